#include "calculator/key_press.h"

#include "calculator/calculator_testing.h"

namespace tallymere::testing_support {
namespace {

constexpr KeypadStyle Style = {NumberTypeComplex, AngleRadians, false, 0x0600};

// An edit control: its text and its selection, the caret being at its end.
struct FieldModel {
    std::u16string text;
    size_t from = 0;
    size_t to = 0;

    void Apply(const FieldEdits& edits) {
        for (const FieldEdit& edit : edits) {
            if (edit.from != AtSelection) {
                from = static_cast<size_t>(edit.from);
                to = static_cast<size_t>(edit.to);
            }
            ASSERT_LE(from, to);
            ASSERT_LE(to, text.size());
            text.replace(from, to - from, edit.text.text);
            from = to = from + std::u16string(edit.text.text).size();
        }
    }
    int64_t Length() const { return static_cast<int64_t>(text.size()); }
};

class KeyPressTest : public CalculatorTest {
protected:
    void SetUp() override {
        CalculatorTest::SetUp();
        ApplyNumberType(NumberTypeComplex, 10);
    }
    KeyCommand Press(KeyAction action, const KeypadStyle& style = Style) {
        const int32_t index = KeyOfAction(action, style.numberType);
        EXPECT_GE(index, 0);
        const KeyEffect effect = CalcKeyPressed(index, field.Length(), style);
        field.Apply(effect.edits);
        return effect.command;
    }
    void Type(const std::u16string& text, size_t from, size_t to) {
        field = {text, from, to};
        calculator.formulaTouched = true;
    }
    KeyAction Digit(int32_t digit) { return static_cast<KeyAction>(ActionDigit0 + digit); }

    FieldModel field;
};

TEST_F(KeyPressTest, KeysInsertAtTheCaret) {
    Type(u"1+3", 2, 2);
    EXPECT_EQ(Press(Digit(2)), KeyEditsFormula);
    EXPECT_EQ(field.text, u"1+23");
    EXPECT_EQ(field.from, 3u);
    Press(ActionMultiply);
    EXPECT_EQ(field.text, u"1+2*3");
}

TEST_F(KeyPressTest, KeysReplaceTheSelection) {
    Type(u"1+abc+2", 2, 5);
    Press(ActionAns);
    EXPECT_EQ(field.text, u"1+ans+2");
    EXPECT_EQ(field.to, 5u);
}

TEST_F(KeyPressTest, AFunctionLeavesTheCaretInItsParenthesis) {
    KeypadStyle degrees = Style;
    degrees.angleType = AngleDegrees;
    Type(u"2*", 2, 2);
    Press(ActionSin, degrees);
    EXPECT_EQ(field.text, u"2*sind(");
    EXPECT_EQ(field.from, 7u);
}

TEST_F(KeyPressTest, EveryKeyThatEditsInsertsItsTextIntoEveryType) {
    for (const NumberType type :
         {NumberTypeUint, NumberTypeRational, NumberTypeReal, NumberTypeComplex}) {
        for (const AngleType angle : {AngleDegrees, AngleRadians, AngleGon}) {
            for (const bool lowerCase : {false, true}) {
                const KeypadStyle style = {type, angle, lowerCase, 0x0600};
                for (int32_t index = 0; index < KeyCount; index++) {
                    const KeyAction action = KeypadEntry(index, style).action;
                    const std::u16string text = TextForAction(action, style).text;
                    if (text.empty()) {
                        continue;
                    }
                    Type(u"xy", 1, 1);
                    const KeyEffect effect = CalcKeyPressed(index, 2, style);
                    field.Apply(effect.edits);
                    ASSERT_EQ(effect.command, KeyEditsFormula) << index;
                    ASSERT_EQ(field.text, u"x" + text + u"y") << index;
                }
            }
        }
    }
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(KeyPressTest, NoKeyOfThePadIsAnInternalError) {
    for (const NumberType type :
         {NumberTypeUint, NumberTypeRational, NumberTypeReal, NumberTypeComplex}) {
        for (int32_t index = 0; index < KeyCount; index++) {
            CalcKeyPressed(index, 2, {type, AngleDegrees, false, 0x0600});
            ASSERT_EQ(PendingUiError(), UiErrorNone) << "key " << index << ", type " << type;
        }
    }
}

TEST_F(KeyPressTest, TheFirstKeyAfterAResultStartsANewFormula) {
    field = {u"1+2", 3, 3};
    Show(field.text);
    EXPECT_FALSE(calculator.formulaTouched);
    Press(Digit(7));
    EXPECT_EQ(field.text, u"7");
    EXPECT_TRUE(calculator.formulaTouched);
    EXPECT_FALSE(calculator.resultValid);
    Press(Digit(8));
    EXPECT_EQ(field.text, u"78");
}

TEST_F(KeyPressTest, AFormulaThatFailedIsKeptForCorrection) {
    Type(u"1+", 2, 2);
    Show(field.text);
    EXPECT_EQ(PendingUiError(), UiErrorFormula);
    ClearErrors();
    Press(Digit(7));
    EXPECT_EQ(field.text, u"1+7");
}

TEST_F(KeyPressTest, TypingAfterAResultKeepsTheFormula) {
    field = {u"1+2", 3, 3};
    Show(field.text);
    // The focus came to the field.
    calculator.formulaTouched = true;
    Press(Digit(7));
    EXPECT_EQ(field.text, u"1+27");
}

TEST_F(KeyPressTest, BackspaceTakesTheLastCharacterWhereverTheCaretIs) {
    Type(u"1234", 1, 3);
    EXPECT_EQ(Press(ActionBackspace), KeyEditsFormula);
    EXPECT_EQ(field.text, u"123");
    EXPECT_EQ(field.from, 3u);
}

TEST_F(KeyPressTest, BackspaceTakesTheOnlyCharacterToo) {
    Type(u"1", 0, 0);
    Press(ActionBackspace);
    EXPECT_EQ(field.text, u"");
}

TEST_F(KeyPressTest, BackspaceOnAnEmptyFieldDoesNothing) {
    calculator.formulaTouched = true;
    const KeyEffect effect = CalcKeyPressed(1, 0, Style);
    EXPECT_EQ(effect.edits.count, 0);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(KeyPressTest, AfterAResultBackspaceAndBracketsMeetAnEmptyField) {
    field = {u"1+2", 3, 3};
    Show(field.text);
    Press(ActionBackspace);
    EXPECT_EQ(field.text, u"");
    field = {u"1+2", 3, 3};
    Show(field.text);
    Press(ActionBracketFormula);
    EXPECT_EQ(field.text, u"()");
}

TEST_F(KeyPressTest, TheWholeFormulaGetsBrackets) {
    Type(u"1+2", 1, 2);
    Press(ActionBracketFormula);
    EXPECT_EQ(field.text, u"(1+2)");
    EXPECT_EQ(field.from, 5u);
    Type(u"", 0, 0);
    Press(ActionBracketFormula);
    EXPECT_EQ(field.text, u"()");
}

TEST_F(KeyPressTest, ClearFormulaLeavesAllElse) {
    Show(u"1+2");
    Type(u"1+2", 0, 0);
    calculator.resultForm = ResultScientific;
    EXPECT_EQ(Press(ActionClearFormula), KeyEditsFormula);
    EXPECT_EQ(field.text, u"");
    EXPECT_TRUE(calculator.formulaTouched);
    EXPECT_TRUE(calculator.ansAvailable);
    EXPECT_EQ(calculator.resultForm, ResultScientific);
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"3");
    EXPECT_FALSE(calculator.resultValid);
}

TEST_F(KeyPressTest, ClearAllIsAsAtTheStart) {
    Show(u"1+2");
    Type(u"1+2", 0, 0);
    calculator.resultForm = ResultScientific;
    calculator.resultBracket = true;
    EXPECT_EQ(Press(ActionClearAll), KeyClearsAll);
    EXPECT_EQ(field.text, u"");
    EXPECT_FALSE(calculator.formulaTouched);
    EXPECT_FALSE(calculator.ansAvailable);
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_FALSE(calculator.resultBracket);
    EXPECT_EQ(calculator.resultForm, ResultAutomatic);
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"");
    EXPECT_EQ(calculator.calcResultType, NumberTypeComplex);
}

TEST_F(KeyPressTest, ClearAllClearsErrorsAndRequestsToStop) {
    SetUiError(UiErrorFormula);
    numberContext.calcError = CalcErrorOverflow;
    RequestStop();
    field.Apply(InsertForAction(ActionClearAll, 0, Style));
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    EXPECT_EQ(cancelFlag, 0);
}

TEST_F(KeyPressTest, AKeyOfTheFormulaMakesTheResultStale) {
    for (int32_t index = 0; index < KeyCount; index++) {
        if (!EditsFormula(KeypadEntry(index, Style).action)) {
            continue;
        }
        calculator.resultValid = true;
        CalcKeyPressed(index, 0, Style);
        EXPECT_FALSE(calculator.resultValid) << index;
    }
}

TEST_F(KeyPressTest, CommandsLeaveTheFormula) {
    Show(u"1/3");
    EXPECT_EQ(Press(ActionEvaluate), KeyEvaluates);
    EXPECT_EQ(Press(ActionShowVariables), KeyShowsVariables);
    EXPECT_TRUE(calculator.resultValid);
    EXPECT_EQ(Press(ActionSwitchNotation), KeyShowsResult);
    EXPECT_EQ(calculator.resultForm, ResultScientific);
    MarkResultStale();
    EXPECT_EQ(Press(ActionSwitchNotation), KeyDoesNothing);
    EXPECT_EQ(calculator.resultForm, ResultScientific);
    EXPECT_FALSE(calculator.formulaTouched);
}

TEST_F(KeyPressTest, TheMixedFormIsForFractions) {
    KeypadStyle rat = Style;
    rat.numberType = NumberTypeRational;
    ApplyNumberType(NumberTypeRational, 10);
    Show(u"7/3");
    EXPECT_EQ(Press(ActionSwitchMixed, rat), KeyShowsResult);
    EXPECT_EQ(std::u16string(ShowResult({})), u"2+1/3");
    MarkResultStale();
    EXPECT_EQ(Press(ActionSwitchMixed, rat), KeyDoesNothing);
}

TEST_F(KeyPressTest, AnEmptyKeyDoesNothing) {
    Show(u"1");
    const KeyEffect effect = CalcKeyPressed(71, 1, Style);
    EXPECT_EQ(effect.command, KeyDoesNothing);
    EXPECT_EQ(effect.edits.count, 0);
    EXPECT_TRUE(calculator.resultValid);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(KeyPressTest, OutsideOfThePadIsAnInternalError) {
    for (const int32_t index : {-1, 72}) {
        EXPECT_EQ(CalcKeyPressed(index, 0, Style).command, KeyDoesNothing);
        EXPECT_EQ(PendingUiError(), UiErrorInternal);
        ClearErrors();
    }
}

TEST_F(KeyPressTest, AnActionWithoutTextIsAnInternalError) {
    for (const int32_t action : {1005, 1102, 1299, 1316, 1330, 1399}) {
        calculator.formulaTouched = false;
        EXPECT_EQ(InsertForAction(static_cast<KeyAction>(action), 3, Style).count, 0);
        EXPECT_EQ(PendingUiError(), UiErrorInternal) << action;
        EXPECT_TRUE(calculator.formulaTouched);
        ClearErrors();
    }
}

TEST_F(KeyPressTest, PressedKeysMakeAFormulaThatEvaluates) {
    for (const KeyAction action : {Digit(2), ActionMultiply, ActionSqrt, Digit(9)}) {
        Press(action);
    }
    EXPECT_EQ(field.text, u"2*sqrt(9");
    field.text.append(static_cast<size_t>(CountMissingParentheses(field.text.c_str())), u')');
    EXPECT_EQ(Show(field.text), u"6");
}

TEST_F(KeyPressTest, TheArgumentSeparatorPartsArguments) {
    for (const KeyAction action : {ActionGcd, Digit(8), ActionArgumentSeparator, Digit(6)}) {
        Press(action);
    }
    EXPECT_EQ(field.text, u"gcd(8; 6");
    EXPECT_EQ(Show(field.text + u")"), u"2");
}

}  // namespace
}  // namespace tallymere::testing_support
