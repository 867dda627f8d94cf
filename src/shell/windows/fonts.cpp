#include "shell/windows/fonts.h"

#include "toolkit/environment.h"
#include "toolkit/wide_text.h"

namespace tallymere {

HFONT MakeFont(const FontForm& form) {
    LOGFONTW font = {};
    font.lfHeight = ToScreenPixels(form.height);
    font.lfWeight = form.weight;
    font.lfItalic = form.italic ? TRUE : FALSE;
    lstrcpynW(font.lfFaceName, ToWide(form.name), LF_FACESIZE);
    return CreateFontIndirectW(&font);
}

}  // namespace tallymere
