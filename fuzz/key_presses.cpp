// Presses of the calculator's keys, beside a plain model of the formula field.
//
// Input: type, angle unit, case, digits; then an action for each byte: a key, or a selection with
// its two ends.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "calculator/calc_evaluation.h"
#include "calculator/key_press.h"
#include "calculator/result_text.h"
#include "fuzz/harness_list.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "support/formula_generator.h"
#include "support/formula_testing.h"
#include "support/number_types.h"

namespace tallymere::fuzz {

using namespace testing_support;

namespace {

using Text = std::u16string;

constexpr int MostPresses = 100;
// Longer formulas are typed, but not evaluated: that may take long.
constexpr size_t MostEvaluated = 30;
constexpr int64_t MostDigits = 40;
constexpr AngleType Angles[] = {AngleDegrees, AngleRadians, AngleGon};

// An edit control: its text and its selection, the caret being at its end.
struct Field {
    Text text;
    size_t from = 0;
    size_t to = 0;

    void Replace(const Text& inserted) {
        text.replace(from, to - from, inserted);
        from = to = from + inserted.size();
    }

    bool operator==(const Field&) const = default;
};

// The field after the edits of a key.
Field Edited(Field field, const FieldEdits& edits) {
    for (const FieldEdit& edit : edits) {
        if (edit.from != AtSelection) {
            field.from = static_cast<size_t>(edit.from);
            field.to = static_cast<size_t>(edit.to);
        }
        EXPECT_LE(field.from, field.to);
        EXPECT_LE(field.to, field.text.size());
        if (field.from > field.to || field.to > field.text.size()) {
            break;
        }
        field.Replace(edit.text.text);
    }
    return field;
}

// What a key that edits the formula is to make of it.
Field Expected(Field field, KeyAction action, const KeypadStyle& style, bool isTouched) {
    if (!isTouched || action == ActionClearAll || action == ActionClearFormula) {
        field = {};
    }
    if (action == ActionBackspace) {
        if (!field.text.empty()) {
            field.text.pop_back();
            field.from = field.to = field.text.size();
        }
    } else if (action == ActionBracketFormula) {
        field.text = u"(" + field.text + u")";
        field.from = field.to = field.text.size();
    } else if (action != ActionClearAll && action != ActionClearFormula) {
        field.Replace(TextForAction(action, style).text);
    }
    return field;
}

class Keyboard {
public:
    Keyboard(const KeypadStyle& style) : style_(style) {}

    void Press(int32_t index) {
        const KeyAction action = KeypadEntry(index, style_).action;
        const bool wasTouched = calculator.formulaTouched;
        const bool wasValid = calculator.resultValid;
        const KeyEffect effect =
            CalcKeyPressed(index, static_cast<int64_t>(field_.text.size()), style_);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
        const Field edited = Edited(field_, effect.edits);
        if (EditsFormula(action)) {
            EXPECT_EQ(effect.command, action == ActionClearAll ? KeyClearsAll : KeyEditsFormula);
            EXPECT_TRUE(edited == Expected(field_, action, style_, wasTouched))
                << action << " makes " << Printable(edited.text) << " of "
                << Printable(field_.text);
            EXPECT_FALSE(calculator.resultValid);
            EXPECT_EQ(calculator.formulaTouched, action != ActionClearAll);
            field_ = edited;
            return;
        }
        EXPECT_TRUE(edited == field_);
        switch (effect.command) {
            case KeyEvaluates:
                EXPECT_EQ(action, ActionEvaluate);
                Evaluate();
                break;
            case KeyShowsResult:
                EXPECT_TRUE(wasValid);
                EXPECT_TRUE(action == ActionSwitchNotation || action == ActionSwitchMixed);
                Show();
                break;
            case KeyShowsVariables:
                EXPECT_EQ(action, ActionShowVariables);
                break;
            case KeyDoesNothing:
                EXPECT_TRUE(action == ActionNone || !wasValid || action == ActionSwitchMixed);
                break;
            case KeyEditsFormula:
            case KeyClearsAll:
                ADD_FAILURE() << "no such key";
        }
    }

    void Select(size_t from, size_t to) {
        field_.from = std::min({from, to, field_.text.size()});
        field_.to = std::min(std::max(from, to), field_.text.size());
    }

private:
    static Text ShownText(const char16_t* shown) {
        EXPECT_NE(shown, nullptr);
        const Text text = calculator.calcResultText;
        EXPECT_LE(text.size(), size_t{ProductResultCharacters});
        if (!text.empty() && shown != nullptr) {
            EXPECT_EQ(text, shown);
        }
        return text;
    }

    static void Show() {
        ShownText(ShowResult({}));
        EXPECT_EQ(PendingUiError(), UiErrorNone);
    }

    // The whole way of "=": true when there is a result.
    bool Calculate(const Text& formula) {
        BeginEvaluation();
        CalculateResult(formula.c_str());
        const char16_t* const shown = FinishCalculation({});
        const bool isGood = PendingUiError() == UiErrorNone;
        EXPECT_EQ(calculator.resultValid, isGood);
        if (isGood) {
            ShownText(shown);
            EXPECT_FALSE(calculator.formulaTouched);
        } else {
            EXPECT_EQ(PendingUiError(), UiErrorFormula);
            ClearErrors();
        }
        style_.numberType = calculator.calcResultType;
        return isGood;
    }

    // A result is worth the same as `ans`.
    void Evaluate() {
        Text formula = field_.text;
        formula.append(static_cast<size_t>(CountMissingParentheses(formula.c_str())), u')');
        Text shortened = formula;
        KeepShort(shortened);
        if (formula.size() > MostEvaluated || shortened != formula || !Calculate(formula)) {
            return;
        }
        const Text result = calculator.calcResultText;
        if (!result.empty()) {
            EXPECT_TRUE(Calculate(u"ans")) << Printable(formula) << " = " << Printable(result);
            EXPECT_EQ(Text(calculator.calcResultText), result) << Printable(formula);
        }
    }

    KeypadStyle style_;
    Field field_;
};

}  // namespace

void FuzzKeyPresses(FuzzInput& input) {
    const NumberType type = input.OneOf(AllNumberTypes);
    const AngleType angle = input.OneOf(Angles);
    const bool lowerCase = input.Flag();
    const FormulaScope formulaScope(1, type);
    const NumberSetupScope setupScope;
    ClearErrors();
    calculator = CalculatorState();
    ApplyPrecision(input.Number(1, MostDigits));
    ApplyNumberType(type, DecimalBase);

    Keyboard keyboard({type, angle, lowerCase, 0x0600});
    for (int left = MostPresses; left > 0 && !input.IsAtEnd(); left--) {
        const int64_t key = input.Number(0, KeyCount);
        if (key < KeyCount) {
            keyboard.Press(static_cast<int32_t>(key));
        } else {
            const size_t from = input.Choice(64);
            keyboard.Select(from, input.Choice(64));
        }
    }
    calculator = CalculatorState();
}

}  // namespace tallymere::fuzz
