// The text of a run on its way to the output of its page. The thread of the run writes one piece
// after the other; the page takes all that was gathered at a time, which is far faster than to show
// each piece. shell/windows/page_text has the two threads.
#pragma once

#include <cstdint>
#include <string_view>

namespace tallymere {

/// Room for so many characters. A control needs up to a tenth of a second to take them, and the
/// window answers in between.
inline constexpr int64_t PageTextCapacity = 32'768;

/// 0 <= length <= PageTextCapacity, and text[length] is 0.
struct PageTextBuffer {
    int64_t length = 0;
    char16_t text[PageTextCapacity + 1] = {};
};

/// Takes as much of the beginning of a text as there is room for, and puts it behind what was
/// gathered before. What it takes does not end between the two characters of a line end or of a
/// surrogate pair. Returns how many characters it took: 0 only for an empty text or where something
/// was gathered before.
int64_t GatherPageText(PageTextBuffer& gathered, std::u16string_view text);

/// Moves all that was gathered, so that there is room again. `taken` is overwritten.
void TakePageText(PageTextBuffer& taken, PageTextBuffer& gathered);

}  // namespace tallymere
