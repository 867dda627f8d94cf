#include "algebra_pages/polynomial_form.h"

#include "algebra/polynomial_pattern.h"
#include "core/text_writer.h"
#include "shell/text_format.h"

namespace tallymere {

void WritePolynomialHint(char16_t* buffer, int64_t degree) {
    char16_t pattern[PolyPatternCharacters + 1];
    TextWriter writer = {0, PolyPatternCharacters, pattern};
    AppendPolyPattern(writer, degree, u'a');
    pattern[writer.position] = 0;
    FormatBounded(buffer, PolynomialHintCapacity, uiText.TextPolyEnterCoefficientsPolynomialsPi,
                  {pattern});
}

void WritePolynomialCaption(char16_t* buffer, PolynomialControl button) {
    char16_t name[PolynomialCaptionCapacity + 1];
    FormatBounded(name, PolynomialCaptionCapacity, u"P%d", {PolynomialOfButton(button)});
    FormatBounded(buffer, PolynomialCaptionCapacity, FormText(PolynomialForm[button]), {name});
}

}  // namespace tallymere
