#include "algebra_pages/equation_lines.h"

#include "core/complex_text.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "shell/scratch_text.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"

namespace tallymere {

namespace {

// Room in a line beside both parts of a value: for the exact text, the number of the root and its
// multiplicity.
constexpr int64_t LineCharacters = 329;

bool IsInteger(const ComplexNumber* z) {
    return RealIsInteger(RealPart(z)) && RealIsInteger(ImaginaryPart(z));
}

void AppendValue(TextSink& line, const ComplexNumber* value, const char16_t* sign) {
    ScratchStackScope scope;
    const int64_t capacity = 2 * RealTextCapacity(0);
    char16_t* text = TakeText(scope, capacity);
    ComplexToText(text, capacity, value, 0);
    SinkText(line, sign);
    SinkText(line, text);
}

void WriteLine(TextSink& line, const SolutionSet& solutions, int64_t index, bool exactWanted,
               bool showMultiplicity) {
    const ComplexNumber* value = solutions.values[index];
    FormatIntoSink(line, u"x%d", {static_cast<int32_t>(index + 1)});
    if (solutions.exactTexts[index][0] == 0) {
        AppendValue(line, value, exactWanted ? u" \u2248 " : u" = ");
    } else {
        SinkText(line, u" = ");
        SinkText(line, solutions.exactTexts[index]);
        // An integer shows only once.
        if (!IsInteger(value)) {
            AppendValue(line, value, u" \u2248 ");
        }
    }
    if (showMultiplicity) {
        FormatIntoSink(line, u"   [%d]", {static_cast<int32_t>(solutions.multiplicities[index])});
    }
    SinkText(line, u"\r\n");
    EndSinkText(line);
    if (SinkOverflowed(line)) {
        SetUiError(UiErrorTextOverflow);
    }
}

}  // namespace

void ShowEquationRoots(const SolutionSet& solutions, bool exactWanted, bool showMultiplicity,
                       TakeLine take) {
    ScratchStackScope scope;
    const int64_t capacity = 2 * RealTextCapacity(0) + LineCharacters;
    char16_t* text = TakeText(scope, capacity);
    for (int64_t i = 0; i < solutions.count; i++) {
        TextSink line = {0, capacity, text};
        WriteLine(line, solutions, i, exactWanted, showMultiplicity);
        take(text);
    }
    if (solutions.count == 0) {
        take(uiText.TextAlgEquationNoRealSolutions);
    }
}

}  // namespace tallymere
