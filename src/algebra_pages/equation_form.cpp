#include "algebra_pages/equation_form.h"

#include <iterator>
#include <string_view>

#include "algebra/polynomial_pattern.h"
#include "core/text_writer.h"
#include "shell/text_format.h"

namespace tallymere {

void WriteEquationText(char16_t* buffer, int64_t degree) {
    // A no-break space before the 0, so that the end of the equation is not parted.
    constexpr std::u16string_view RightSide = u" =\u00A00";
    char16_t equation[PolyPatternCharacters + RightSide.size() + 1];
    TextWriter writer = {0, std::size(equation) - 1, equation};
    AppendPolyPattern(writer, degree, u'a');
    WriteChars(writer, RightSide.data(), RightSide.size());
    equation[writer.position] = 0;
    FormatBounded(buffer, EquationTextCapacity, uiText.TextAlgEnterCoefficientsEquation,
                  {equation});
}

}  // namespace tallymere
