#include "shell/ui_message.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>
#include <string>

#include "core/number_context.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"

namespace tallymere {
namespace {

struct CodeRow {
    int32_t code;
    const char16_t* UiText::*entry;
};

const CodeRow CodeRows[] = {
    {0, &UiText::TextErrAllRight},
    {1000, &UiText::TextErrInvalidInput},
    {1001, &UiText::TextErrErrorMathematicalCalculation},
    {1002, &UiText::TextErrDivision0},
    {1003, &UiText::TextErrTextEnteredTooLong},
    {1005, &UiText::TextErrFileWasFound},
    {1006, &UiText::TextErrErrorWhenAccessingFile},
    {1007, &UiText::TextErrErrorMathematicalFormula},
    {1100, &UiText::TextErrDecimalThousandsSeparatorSame},
    {1200, &UiText::TextErrSettingsCouldSaved},
    {1300, &UiText::TextErrVariableNameInvalidOnly},
    {2000, &UiText::TextErrHighestCoefficient0},
    {2001, &UiText::TextErrIterationMethodConverged},
    {2002, &UiText::TextErrErrorEvaluatingCoefficient},
    {2003, &UiText::TextErrCoefficientReal},
    {2004, &UiText::TextErrOverflowErrorWhenSolving},
    {2005, &UiText::TextErrCoefficientRationalNumberNumerator},
    {2006, &UiText::TextErrCoefficientManyCharacters},
    {3000, &UiText::TextErrOverflowPrimeNumberCalculation},
    {3100, &UiText::TextErrOverflowPrimeFactorCalculation},
    {3101, &UiText::TextErrNumberManyPrimeFactors},
    {3300, &UiText::TextErrErrorEvaluatingCoefficientPolynomial},
    {3301, &UiText::TextErrCoefficientPolynomialTooLong},
    {3302, &UiText::TextErrMaximumPolynomialDegreeResult},
    {3303, &UiText::TextErrPolynomialAnIntegerNumber},
    {3400, &UiText::TextErrCoefficientEquationColumnToo},
    {3401, &UiText::TextErrErrorEvaluatingCoefficientEquation},
    {3402, &UiText::TextErrNumberEquationVariablesBetween},
    {9000, &UiText::TextErrInternalError},
    {9001, &UiText::TextErrYetImplemented},
    {9002, &UiText::TextErrStringBufferOverflow},
};

// `format` with its "%s" replaced in order by a, b and c, by another way than the formatter's.
std::u16string Filled(std::u16string format, const std::u16string& a, const std::u16string& b,
                      const std::u16string& c) {
    size_t from = 0;
    for (const std::u16string& argument : {a, b, c}) {
        const size_t place = format.find(u"%s", from);
        if (place == std::u16string::npos) {
            break;
        }
        format.replace(place, 2, argument);
        from = place + argument.size();
    }
    return format;
}

class UiMessage : public ::testing::Test {
protected:
    void SetUp() override {
        InstallLanguage(LanguageEnglish);
        ClearErrors();
    }
    void TearDown() override {
        InstallLanguage(LanguageEnglish);
        ClearErrors();
    }

    static void Raise(int32_t code) {
        SetUiError(static_cast<UiErrorCode>(code), u"A1", u"B2", u"C3");
    }

    static std::u16string Message() {
        char16_t text[UiErrorMessageCapacity + 1];
        TextSink sink{0, UiErrorMessageCapacity, text};
        FormatUiErrorMessage(sink);
        return {text, static_cast<size_t>(sink.count)};
    }

    // Takes the message with the given capacity and says what was in the buffer.
    std::u16string Take(int64_t capacity = UiErrorMessageCapacity) {
        std::fill(std::begin(text_), std::end(text_), u'#');
        shown_ = TakeUiErrorMessage(text_, capacity);
        EXPECT_EQ(text_[capacity + 1], u'#');
        return text_;
    }

    static void ExpectAllClear() {
        EXPECT_EQ(uiError.code, 0);
        EXPECT_EQ(std::u16string(uiError.arg1), u"");
        EXPECT_EQ(std::u16string(uiError.arg2), u"");
        EXPECT_EQ(std::u16string(uiError.arg3), u"");
        EXPECT_EQ(numberContext.calcError, CalcErrorNone);
        EXPECT_EQ(cancelFlag, 0);
    }

    char16_t text_[UiErrorMessageCapacity + 2];
    bool shown_ = false;
};

TEST_F(UiMessage, EachCodeHasItsTextInBothLanguages) {
    for (Language language : {LanguageEnglish, LanguageGerman}) {
        InstallLanguage(language);
        for (const CodeRow& row : CodeRows) {
            ClearErrors();
            uiError.code = static_cast<UiErrorCode>(row.code);
            uiError.arg1[0] = u'1';
            uiError.arg2[0] = u'2';
            uiError.arg3[0] = u'3';
            uiError.arg1[1] = uiError.arg2[1] = uiError.arg3[1] = 0;
            EXPECT_EQ(Message(), Filled(uiText.*row.entry, u"1", u"2", u"3")) << row.code;
        }
    }
}

TEST_F(UiMessage, EveryOtherCodeUpTo10000IsUnknownAndShowsItsNumber) {
    std::set<int32_t> known{9003};
    for (const CodeRow& row : CodeRows) {
        known.insert(row.code);
    }
    for (int32_t code = 1; code <= 10'000; ++code) {
        if (known.count(code) == 0) {
            ClearErrors();
            Raise(code);
            const std::string digits = std::to_string(code);
            const std::u16string number(digits.begin(), digits.end());
            ASSERT_EQ(Message(), u"Unknown error " + number + u" occurred!");
            ASSERT_EQ(std::u16string(uiError.arg1), number);
        }
    }
}

TEST_F(UiMessage, AGapInTheCodesIsUnknown) {
    Raise(1004);
    EXPECT_EQ(Take(), u"Unknown error 1004 occurred!");
    InstallLanguage(LanguageGerman);
    Raise(1099);
    EXPECT_EQ(Take(), u"Unbekannter Fehler 1099 aufgetreten!");
}

TEST_F(UiMessage, UnknownCodesMayBeNegative) {
    Raise(-1);
    EXPECT_EQ(Take(), u"Unknown error -1 occurred!");
    EXPECT_TRUE(shown_);
    Raise(std::numeric_limits<int32_t>::min());
    EXPECT_EQ(Take(), u"Unknown error -2147483648 occurred!");
}

TEST_F(UiMessage, ArgumentsFillTheMessage) {
    SetUiError(UiErrorPolynomialCoefficient, u"a2", u"P1", u"Unexpected end of formula!");
    EXPECT_EQ(Take(),
              u"Error evaluating coefficient \"a2\" in polynomial \"P1\": Unexpected end of "
              u"formula!");
    EXPECT_TRUE(shown_);
    ExpectAllClear();
}

TEST_F(UiMessage, AMissingArgumentShowsAsAQuestionMark) {
    SetUiError(UiErrorEquationCoefficientTooLong, u"3");
    EXPECT_EQ(Take(), u"The coefficient in equation 3, column \"?\" is too long!");
}

TEST_F(UiMessage, OfTwoErrorsTheFirstIsShown) {
    SetUiError(UiErrorSeparators);
    SetUiError(UiErrorInternal);
    EXPECT_EQ(Take(),
              u"Decimal and thousands separator must not be the same and they must not be "
              u"undefined.");
    Take();
    EXPECT_FALSE(shown_);
}

TEST_F(UiMessage, AStopIsReportedBySilenceAndClearsEverything) {
    SetUiError(UiErrorStopped);
    SetCalcError(CalcErrorCancelled);
    RequestStop();
    EXPECT_EQ(Message(), u"");
    EXPECT_EQ(Take(), u"");
    EXPECT_FALSE(shown_);
    ExpectAllClear();
}

TEST_F(UiMessage, WithNoErrorPendingNothingIsShownAndTheRestIsCleared) {
    SetCalcError(CalcErrorOverflow);
    RequestStop();
    EXPECT_EQ(Take(), u"");
    EXPECT_FALSE(shown_);
    ExpectAllClear();
}

TEST_F(UiMessage, ShowingClearsTheCalcErrorAndTheCancelFlagToo) {
    SetUiError(UiErrorCalculation);
    SetCalcError(CalcErrorOverflow);
    RequestStop();
    EXPECT_EQ(Take(), u"Error in mathematical calculation!");
    EXPECT_TRUE(shown_);
    ExpectAllClear();
}

TEST_F(UiMessage, AMessageOf1023CharactersIsShownWhole) {
    const std::u16string longest(1'023, u'm');
    uiText.TextErrInternalError = longest.c_str();
    SetUiError(UiErrorInternal);
    EXPECT_EQ(Take(), longest);
}

TEST_F(UiMessage, ALongerMessageEndsInAnEllipsisIsShownAndRaisesNothing) {
    const std::u16string tooLong(1'024, u'm');
    uiText.TextErrInternalError = tooLong.c_str();
    SetUiError(UiErrorInternal);
    EXPECT_EQ(Take(), std::u16string(1'022, u'm') + u'\u2026');
    EXPECT_TRUE(shown_);
    ExpectAllClear();
}

TEST_F(UiMessage, AnySmallerBufferIsKeptToo) {
    SetUiError(UiErrorDivisionByZero);
    EXPECT_EQ(Take(4), u"Div\u2026");
    SetUiError(UiErrorDivisionByZero);
    EXPECT_EQ(Take(0), u"");
    EXPECT_TRUE(shown_);
    ExpectAllClear();
}

TEST_F(UiMessage, NoMessageWithTheLongestArgumentsIsCut) {
    const std::u16string longest(UiErrorArgumentCapacity, u'x');
    for (Language language : {LanguageEnglish, LanguageGerman}) {
        InstallLanguage(language);
        for (const CodeRow& row : CodeRows) {
            if (row.code != 0) {
                SetUiError(static_cast<UiErrorCode>(row.code), longest.c_str(), longest.c_str(),
                           longest.c_str());
                EXPECT_EQ(Take(), Filled(uiText.*row.entry, longest, longest, longest)) << row.code;
            }
        }
    }
}

TEST_F(UiMessage, FormulaErrorsHaveTheirTexts) {
    const CodeRow rows[] = {
        {10200, &UiText::TextFormulaSyntaxError},
        {10201, &UiText::TextFormulaLeftParenthesisMissingRight},
        {10202, &UiText::TextFormulaUnexpectedEndFormula},
        {10203, &UiText::TextFormulaOverflow},
        {10204, &UiText::TextFormulaFormulaComplicatedBecauseMany},
        {10205, &UiText::TextFormulaInternalFormulaErrorOccurred},
        {10206, &UiText::TextFormulaNumberParametersFunctionWrong},
        {10207, &UiText::TextFormulaFunctionNumberRequiresComplex},
        {10208, &UiText::TextFormulaNumberAnInvalidFormat},
        {10209, &UiText::TextFormulaFunctionAvailableSetNumber},
        {10210, &UiText::TextFormulaCalculationWasAbortedUser},
        {10211, &UiText::TextFormulaVariableFunctionDefined},
        {10212, &UiText::TextFormulaVariableCouldEvaluated},
        {0, &UiText::TextFormulaInternalFormulaErrorOccurred},
        {1, &UiText::TextFormulaInternalFormulaErrorOccurred},
        {10199, &UiText::TextFormulaInternalFormulaErrorOccurred},
        {10213, &UiText::TextFormulaInternalFormulaErrorOccurred},
    };
    for (Language language : {LanguageEnglish, LanguageGerman}) {
        InstallLanguage(language);
        for (const CodeRow& row : rows) {
            EXPECT_EQ(FormulaErrorText(static_cast<FormulaError>(row.code)), uiText.*row.entry)
                << row.code;
        }
    }
}

TEST_F(UiMessage, AFormulaErrorReachesTheUserWithItsPosition) {
    char16_t reason[UiErrorArgumentCapacity + 1];
    FormatBounded(reason, UiErrorArgumentCapacity, FormulaErrorText(FormulaErrorSyntax), {17});
    SetUiError(UiErrorFormula, reason);
    EXPECT_EQ(Take(), u"Error in mathematical formula: Syntax error at character position 17!");
    FormatBounded(reason, UiErrorArgumentCapacity, FormulaErrorText(FormulaErrorUnexpectedEnd),
                  {17});
    SetUiError(UiErrorCoefficient, u"a3", reason);
    EXPECT_EQ(Take(), u"Error evaluating coefficient \"a3\": Unexpected end of formula!");
}

}  // namespace
}  // namespace tallymere
