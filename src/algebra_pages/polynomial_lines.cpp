#include "algebra_pages/polynomial_lines.h"

#include "algebra/polynomial_pattern.h"
#include "algebra_pages/polynomial_names.h"
#include "shell/scratch_text.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

constexpr char16_t ResultLetter = u'b';
constexpr char16_t RemainderLetter = u'r';

// One line on its way, in a buffer that all lines use.
struct LineWriter {
    TextSink sink;
    TakePolyText take;
    void* context;
};

void SendLine(LineWriter& line) {
    EndSinkText(line.sink);
    if (SinkOverflowed(line.sink)) {
        SetUiError(UiErrorTextOverflow);
    }
    line.take(line.context, line.sink.text);
    line.sink.count = 0;
}

// The degree that lines go down from: a polynomial that is 0 still has its constant.
int32_t ShownDegree(const PolyNumbers& polynomial) {
    const int32_t degree = PolyDegree(polynomial);
    return degree < 0 ? 0 : degree;
}

void AppendPattern(TextSink& sink, const PolyNumbers& polynomial, char16_t letter) {
    char16_t text[PolyPatternCharacters + 1];
    TextWriter writer = {0, PolyPatternCharacters, text};
    AppendPolyPattern(writer, ShownDegree(polynomial), letter);
    text[writer.position] = 0;
    SinkText(sink, text);
}

void WriteHead(LineWriter& line, const PolyCalculation& calculation) {
    TextSink& sink = line.sink;
    for (int32_t k = 0; k < calculation.count; k++) {
        if (k > 0) {
            FormatIntoSink(sink, u" %c ", {SignOfOperator(calculation.operation)});
        }
        if (k > 0 && calculation.operation == PolyOperator::Power) {
            FormatIntoSink(sink, u"%d", {static_cast<int32_t>(calculation.exponent)});
        } else {
            SinkText(sink, NameOfPolynomial(k).text);
        }
    }
    SinkText(sink, u" = ");
    AppendPattern(sink, calculation.result, ResultLetter);
    if (calculation.operation == PolyOperator::Divide) {
        FormatIntoSink(sink, u"    %s    ", {uiText.TextPolyRemainder});
        AppendPattern(sink, calculation.remainder, RemainderLetter);
    }
    SinkText(sink, u"\r\n\r\n");
    SendLine(line);
}

// One line for each coefficient; the numbers go to the store where there is one.
void WriteCoefficients(LineWriter& line, const PolyNumbers& polynomial, char16_t letter,
                       uint32_t printFlags, ResultStore* store) {
    ScratchStackScope scope;
    const int64_t capacity = NumberToText(nullptr, 0, polynomial.coefficients[0], printFlags);
    char16_t* number = TakeText(scope, capacity);
    for (int32_t i = ShownDegree(polynomial); i >= 0; i--) {
        NumberToText(number, capacity, polynomial.coefficients[i], printFlags);
        FormatIntoSink(line.sink, u"%c%d = ", {letter, i});
        SinkText(line.sink, number);
        SinkText(line.sink, u"\r\n");
        SendLine(line);
        if (store != nullptr) {
            KeepResultText(*store, i, number);
        }
    }
}

}  // namespace

char16_t SignOfOperator(PolyOperator operation) {
    switch (operation) {
        case PolyOperator::Plus:
            return u'+';
        case PolyOperator::Minus:
            return u'-';
        case PolyOperator::Times:
            return u'*';
        case PolyOperator::Divide:
            return u'/';
        case PolyOperator::Power:
            break;
    }
    return u'^';
}

int64_t PolyLineCapacity(uint32_t printFlags) {
    ScratchStackScope scope;
    const PolyNumbers any = AllocPolynomial(scope);
    return NumberToText(nullptr, 0, any.coefficients[0], printFlags) + PolyLineCharacters;
}

bool PrintPolyResult(const PolyCalculation& calculation, ResultStore& store, uint32_t printFlags,
                     int64_t capacity, TakePolyText take, void* takeContext) {
    ScratchStackScope scope;
    LineWriter line = {
        .sink = {0, capacity, TakeText(scope, capacity)}, .take = take, .context = takeContext};
    WriteHead(line, calculation);
    WriteCoefficients(line, calculation.result, ResultLetter, printFlags, &store);
    if (calculation.operation == PolyOperator::Divide) {
        SinkText(line.sink, u"\r\n");
        SendLine(line);
        WriteCoefficients(line, calculation.remainder, RemainderLetter, printFlags, nullptr);
    }
    TakeCalcError(UiErrorCalculation);
    return PendingUiError() == UiErrorNone;
}

}  // namespace tallymere
