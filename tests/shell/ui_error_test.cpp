#include "shell/ui_error.h"

#include <gtest/gtest.h>

#include <string>

#include "core/number_context.h"

namespace tallymere {
namespace {

class UiErrorState : public ::testing::Test {
protected:
    void SetUp() override { ClearErrors(); }
    void TearDown() override { ClearErrors(); }
};

TEST_F(UiErrorState, AFreshRecordIsClearWithQuestionMarks) {
    const UiError fresh;
    EXPECT_EQ(fresh.code, 0);
    EXPECT_EQ(std::u16string(fresh.arg1), u"?");
    EXPECT_EQ(std::u16string(fresh.arg2), u"?");
    EXPECT_EQ(std::u16string(fresh.arg3), u"?");
}

TEST_F(UiErrorState, KeepsTheCodeAndCopiesOfTheArguments) {
    char16_t first[] = u"one";
    SetUiError(UiErrorEquationCoefficient, first, u"two", u"three");
    first[0] = u'X';
    EXPECT_EQ(PendingUiError(), 3401);
    EXPECT_EQ(std::u16string(uiError.arg1), u"one");
    EXPECT_EQ(std::u16string(uiError.arg2), u"two");
    EXPECT_EQ(std::u16string(uiError.arg3), u"three");
}

TEST_F(UiErrorState, MissingArgumentsAreQuestionMarks) {
    SetUiError(UiErrorInternal);
    EXPECT_EQ(std::u16string(uiError.arg1), u"?");
    EXPECT_EQ(std::u16string(uiError.arg2), u"?");
    EXPECT_EQ(std::u16string(uiError.arg3), u"?");
    ClearErrors();
    SetUiError(UiErrorPolynomialNotInteger, nullptr, u"b");
    EXPECT_EQ(std::u16string(uiError.arg1), u"?");
    EXPECT_EQ(std::u16string(uiError.arg2), u"b");
    EXPECT_EQ(std::u16string(uiError.arg3), u"?");
}

TEST_F(UiErrorState, TheFirstErrorWins) {
    SetUiError(UiErrorFileNotFound, u"first");
    SetUiError(UiErrorFormula, u"second", u"second", u"second");
    SetUiError(UiErrorStopped);
    EXPECT_EQ(uiError.code, 1005);
    EXPECT_EQ(std::u16string(uiError.arg1), u"first");
    EXPECT_EQ(std::u16string(uiError.arg2), u"?");
}

TEST_F(UiErrorState, AStopIsAnErrorThatWinsToo) {
    SetUiError(UiErrorStopped);
    SetUiError(UiErrorCalculation);
    EXPECT_EQ(PendingUiError(), 9003);
}

TEST_F(UiErrorState, AnArgumentOf260CharactersFitsTheRecord) {
    const std::u16string longest(260, u'x');
    SetUiError(UiErrorInvalidInput, longest.c_str(), longest.c_str(), longest.c_str());
    EXPECT_EQ(std::u16string(uiError.arg1), longest);
    EXPECT_EQ(std::u16string(uiError.arg2), longest);
    EXPECT_EQ(std::u16string(uiError.arg3), longest);
}

TEST_F(UiErrorState, ALongerArgumentEndsInAnEllipsisAndTheErrorStays) {
    const std::u16string tooLong(261, u'x');
    const std::u16string cut = std::u16string(259, u'x') + u'\u2026';
    SetUiError(UiErrorInvalidInput, tooLong.c_str(), u"b", tooLong.c_str());
    EXPECT_EQ(uiError.code, 1000);
    EXPECT_EQ(std::u16string(uiError.arg1), cut);
    EXPECT_EQ(std::u16string(uiError.arg2), u"b");
    EXPECT_EQ(std::u16string(uiError.arg3), cut);
}

TEST_F(UiErrorState, ClearErrorsClearsAllThreeStates) {
    SetUiError(UiErrorFormula, u"a", u"b", u"c");
    SetCalcError(CalcErrorOverflow);
    RequestStop();
    ClearErrors();
    EXPECT_EQ(uiError.code, 0);
    EXPECT_EQ(std::u16string(uiError.arg1), u"");
    EXPECT_EQ(std::u16string(uiError.arg2), u"");
    EXPECT_EQ(std::u16string(uiError.arg3), u"");
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    EXPECT_EQ(cancelFlag, 0);
}

TEST_F(UiErrorState, TakingNoCalcErrorDoesNothing) {
    TakeCalcError(UiErrorCalculation);
    EXPECT_EQ(uiError.code, 0);
    EXPECT_EQ(std::u16string(uiError.arg1), u"");
}

TEST_F(UiErrorState, TakesEachCalcErrorAsItsOwnCodeOrTheFallback) {
    const struct {
        CalcError calcError;
        int code;
    } expected[] = {
        {CalcErrorCancelled, 9003},          {CalcErrorTextTooLong, 9002},
        {CalcErrorCapacity, 9000},           {CalcErrorBadParameter, 3100},
        {CalcErrorUnknownType, 3100},        {CalcErrorOverflow, 3100},
        {CalcErrorUnderflow, 3100},          {CalcErrorExactDivisionByZero, 3100},
        {CalcErrorUndefined, 3100},          {CalcErrorMalformed, 3100},
        {CalcErrorComplexNotAllowed, 3100},  {CalcErrorSyntax, 3100},
        {static_cast<CalcError>(299), 3100},
    };
    for (const auto& row : expected) {
        ClearErrors();
        numberContext.calcError = row.calcError;
        TakeCalcError(UiErrorPrimeFactorOverflow);
        EXPECT_EQ(uiError.code, row.code) << row.calcError;
        EXPECT_EQ(std::u16string(uiError.arg1), u"?");
        EXPECT_EQ(std::u16string(uiError.arg2), u"?");
        EXPECT_EQ(std::u16string(uiError.arg3), u"?");
        EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    }
}

TEST_F(UiErrorState, APendingErrorStaysAndTheCalcErrorIsClearedAllTheSame) {
    for (CalcError calcError : {CalcErrorCancelled, CalcErrorTextTooLong, CalcErrorOverflow}) {
        ClearErrors();
        SetUiError(UiErrorFormula, u"kept");
        numberContext.calcError = calcError;
        TakeCalcError(UiErrorCalculation);
        EXPECT_EQ(uiError.code, 1007);
        EXPECT_EQ(std::u16string(uiError.arg1), u"kept");
        EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    }
}

TEST_F(UiErrorState, TheEndOfAWorkerRaisesAStopAndLeavesTheRequest) {
    RaiseStop();
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    RequestStop();
    RaiseStop();
    EXPECT_EQ(PendingUiError(), UiErrorStopped);
    EXPECT_TRUE(StopRequested());
    ClearPendingErrors();
    SetUiError(UiErrorDivisionByZero);
    RaiseStop();
    EXPECT_EQ(PendingUiError(), UiErrorDivisionByZero);
}

TEST_F(UiErrorState, TheEndOfARunTakesAStopOnceAndInSilence) {
    TakeStopRequest();
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    RequestStop();
    TakeStopRequest();
    EXPECT_EQ(PendingUiError(), UiErrorStopped);
    EXPECT_FALSE(StopRequested());
    ClearPendingErrors();
    TakeStopRequest();
    EXPECT_EQ(PendingUiError(), UiErrorNone) << "one request silences one run";
}

TEST_F(UiErrorState, AnErrorOfTheRunIsNotSilencedByAStop) {
    SetUiError(UiErrorDivisionByZero);
    RequestStop();
    TakeStopRequest();
    EXPECT_EQ(PendingUiError(), UiErrorDivisionByZero);
    EXPECT_FALSE(StopRequested());
}

TEST_F(UiErrorState, AWorkerEndsAtAnErrorAndAtAStop) {
    EXPECT_FALSE(RunShouldEnd());
    RequestStop();
    EXPECT_TRUE(RunShouldEnd());
    ClearErrors();
    EXPECT_FALSE(RunShouldEnd());
    SetUiError(UiErrorInternal);
    EXPECT_TRUE(RunShouldEnd());
}

TEST_F(UiErrorState, TheErrorsCanBeClearedWithoutTheStop) {
    SetUiError(UiErrorFormula, u"a");
    SetCalcError(CalcErrorOverflow);
    RequestStop();
    ClearPendingErrors();
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(std::u16string(uiError.arg1), u"");
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    EXPECT_TRUE(StopRequested());
}

}  // namespace
}  // namespace tallymere
