// The forms of both pages: what stands where, and what can be used.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "layout/window_model.h"
#include "prime_pages/prime_factors_form.h"
#include "prime_pages/prime_numbers_form.h"
#include "shell/languages.h"

namespace tallymere::testing_support {
namespace {

using T = UiText;

// A row as it is expected. In the form it is at `index`.
struct ExpectedControl {
    int32_t index;
    FormControl control;
};

const ExpectedControl ExpectedFactors[] = {
    {PrimeFactorsStartLabel, {-1, FormStatic, {15, 17, 30, 21}, &T::TextFactorsStart}},
    {PrimeFactorsNumber, {-1, FormField, {47, 15, 0, 21}, nullptr}},
    {PrimeFactorsInputGroup, {-1, FormGroupBox, {15, 43, 98, 85}, &T::TextPrimesInputOutput}},
    {PrimeFactorsDigits,
     {PrimeFactorsInputGroup, FormDigitCount, {9, 24, 98, 24}, &T::TextCtlDigits}},
    {PrimeFactorsBase, {PrimeFactorsInputGroup, FormNumberBase, {9, 45, 98, 42}, &T::TextCtlBase}},
    {PrimeFactorsModeGroup, {-1, FormGroupBox, {119, 43, 150, 85}, &T::TextFactorsMode}},
    {PrimeFactorsFactors,
     {PrimeFactorsModeGroup, FormRadioButton, {10, 15, 110, 21}, &T::TextFactorsPrimeFactors}},
    {PrimeFactorsDivisors,
     {PrimeFactorsModeGroup, FormRadioButton, {10, 36, 120, 21}, &T::TextFactorsDivisors}},
    {PrimeFactorsShowCount,
     {PrimeFactorsModeGroup, FormCheckBox, {10, 57, 120, 21}, &T::TextFactorsNumberDivisors}},
    {PrimeFactorsIntervalGroup,
     {-1, FormGroupBox, {274, 43, 100, 50}, &T::TextFactorsIntervalSize}},
    {PrimeFactorsInterval, {PrimeFactorsIntervalGroup, FormField, {10, 20, 80, 20}, nullptr}},
    {PrimeFactorsOutput, {-1, FormMultilineField, {15, 135, 0, 0}, nullptr}},
    {PrimeFactorsStart, {-1, FormPushButton, {15, 0, 75, 25}, &T::TextBtnStart}},
    {PrimeFactorsStop, {-1, FormPushButton, {105, 0, 75, 25}, &T::TextBtnStop}},
    {PrimeFactorsClose, {-1, FormPushButton, {0, 0, 85, 25}, &T::TextBtnClose}},
};

const ExpectedControl ExpectedNumbers[] = {
    {PrimeNumbersStartLabel, {-1, FormStatic, {15, 17, 30, 21}, &T::TextFactorsStart}},
    {PrimeNumbersNumber, {-1, FormMultilineField, {47, 15, 0, 61}, nullptr}},
    {PrimeNumbersInputGroup, {-1, FormGroupBox, {15, 83, 98, 85}, &T::TextPrimesInputOutput}},
    {PrimeNumbersDigits,
     {PrimeNumbersInputGroup, FormDigitCount, {9, 24, 98, 24}, &T::TextCtlDigits}},
    {PrimeNumbersBase, {PrimeNumbersInputGroup, FormNumberBase, {9, 45, 98, 42}, &T::TextCtlBase}},
    {PrimeNumbersModeGroup, {-1, FormGroupBox, {119, 83, 210, 85}, &T::TextFactorsMode}},
    {PrimeNumbersIntervalMode,
     {PrimeNumbersModeGroup, FormRadioButton, {10, 15, 110, 21}, &T::TextPrimesIntervalSize}},
    {PrimeNumbersInterval, {PrimeNumbersModeGroup, FormField, {120, 16, 80, 20}, nullptr, u"100"}},
    {PrimeNumbersNextPrime,
     {PrimeNumbersModeGroup, FormRadioButton, {10, 36, 120, 21}, &T::TextPrimesNextPrimeNumber}},
    {PrimeNumbersTest,
     {PrimeNumbersModeGroup, FormRadioButton, {10, 57, 120, 21}, &T::TextPrimesPrimeNumberTest}},
    {PrimeNumbersMethodGroup, {-1, FormGroupBox, {335, 83, 240, 65}, &T::TextPrimesMethod}},
    {PrimeNumbersExact, {PrimeNumbersMethodGroup, FormRadioButton, {10, 15, 225, 21}, nullptr}},
    {PrimeNumbersProbabilistic,
     {PrimeNumbersMethodGroup, FormRadioButton, {10, 36, 225, 21}, nullptr}},
    {PrimeNumbersOutput, {-1, FormMultilineField, {15, 175, 0, 0}, nullptr}},
    {PrimeNumbersStart, {-1, FormPushButton, {15, 0, 75, 25}, &T::TextBtnStart}},
    {PrimeNumbersStop, {-1, FormPushButton, {105, 0, 75, 25}, &T::TextBtnStop}},
    {PrimeNumbersClose, {-1, FormPushButton, {0, 0, 85, 25}, &T::TextBtnClose}},
};

bool HasText(const FormControl& control, const char16_t* text) {
    return std::u16string(FormText(control)) == text;
}

void ExpectRow(const FormControl& actual, const FormControl& expected, int32_t index) {
    EXPECT_EQ(actual.parent, expected.parent) << index;
    EXPECT_EQ(actual.kind, expected.kind) << index;
    EXPECT_EQ(actual.place, expected.place) << index;
    EXPECT_TRUE(actual.text == expected.text) << index;
    EXPECT_TRUE(HasText(actual, FormText(expected))) << index;
    EXPECT_EQ(actual.style, 0u) << index;
}

TEST(PrimeFormsTest, ThePrimeFactorsPageHasItsControls) {
    EXPECT_EQ(PrimeFactorsSize, (LayoutSize{562, 316}));
    static_assert(std::size(ExpectedFactors) == PrimeFactorsControlCount);
    for (const auto& [index, control] : ExpectedFactors) {
        ExpectRow(PrimeFactorsForm[index], control, index);
    }
}

TEST(PrimeFormsTest, ThePrimeNumbersPageHasItsControls) {
    EXPECT_EQ(PrimeNumbersSize, (LayoutSize{650, 368}));
    static_assert(std::size(ExpectedNumbers) == PrimeNumbersControlCount);
    for (const auto& [index, control] : ExpectedNumbers) {
        ExpectRow(PrimeNumbersForm[index], control, index);
    }
}

unsigned TraitsOf(FormControlKind kind) {
    switch (kind) {
        case FormField:
        case FormMultilineField:
        case FormCheckBox:
            return Stop;
        case FormRadioButton:
            return Stop | Radio;
        case FormPushButton:
            return Stop | Push;
        default:
            return Plain;
    }
}

// The controls that Tab leads to, by their rows, from the first one on. Of the list of bases, the
// row is that of its control.
std::vector<int32_t> TabOrder(const FormControl* form, int32_t count,
                              const std::vector<int32_t>& checked,
                              const std::vector<int32_t>& disabled) {
    WindowModel tree;
    std::vector<WindowModel::Window> windows;
    const auto is = [](const std::vector<int32_t>& rows, int32_t row) {
        return std::find(rows.begin(), rows.end(), row) != rows.end();
    };
    for (int32_t i = 0; i < count; i++) {
        const auto parent = form[i].parent == FormWindow
                                ? tree.Dialog()
                                : windows[static_cast<size_t>(form[i].parent)];
        windows.push_back(tree.Add(parent, std::to_string(i),
                                   TraitsOf(form[i].kind) | (is(checked, i) ? Checked : 0u) |
                                       (is(disabled, i) ? Disabled : 0u)));
        if (form[i].kind == FormNumberBase) {
            tree.Add(windows.back(), std::to_string(i));
        }
    }
    std::vector<int32_t> order;
    WindowModel::Window window = tree.Dialog();
    do {
        window = TabTargetOf(tree, window, WalkForward).window;
        order.push_back(std::stoi(window->name));
    } while (order.size() <= tree.Size() && (order.size() == 1 || order.back() != order.front()));
    order.pop_back();
    return order;
}

TEST(PrimeFormsTest, TabLeadsThroughThePrimeFactorsPageFromTopToBottom) {
    EXPECT_EQ(TabOrder(PrimeFactorsForm, PrimeFactorsControlCount, {PrimeFactorsFactors},
                       {PrimeFactorsShowCount, PrimeFactorsStop}),
              (std::vector<int32_t>{PrimeFactorsNumber, PrimeFactorsBase, PrimeFactorsFactors,
                                    PrimeFactorsInterval, PrimeFactorsOutput, PrimeFactorsStart,
                                    PrimeFactorsClose}));
    // During a run of divisors.
    EXPECT_EQ(TabOrder(PrimeFactorsForm, PrimeFactorsControlCount, {PrimeFactorsDivisors},
                       {PrimeFactorsStart}),
              (std::vector<int32_t>{PrimeFactorsNumber, PrimeFactorsBase, PrimeFactorsDivisors,
                                    PrimeFactorsShowCount, PrimeFactorsInterval, PrimeFactorsOutput,
                                    PrimeFactorsStop, PrimeFactorsClose}));
}

TEST(PrimeFormsTest, TabLeadsThroughThePrimeNumbersPageFromTopToBottom) {
    EXPECT_EQ(TabOrder(PrimeNumbersForm, PrimeNumbersControlCount,
                       {PrimeNumbersTest, PrimeNumbersExact}, {PrimeNumbersStop}),
              (std::vector<int32_t>{PrimeNumbersNumber, PrimeNumbersBase, PrimeNumbersTest,
                                    PrimeNumbersInterval, PrimeNumbersExact, PrimeNumbersOutput,
                                    PrimeNumbersStart, PrimeNumbersClose}));
}

// A radio button that follows a control of another kind begins a group of its own for the keyboard.
TEST(PrimeFormsTest, RadioButtonsOfAGroupFollowEachOther) {
    EXPECT_EQ(PrimeFactorsFactors + 1, PrimeFactorsDivisors);
    EXPECT_EQ(PrimeNumbersIntervalMode + 1, PrimeNumbersNextPrime);
    EXPECT_EQ(PrimeNumbersNextPrime + 1, PrimeNumbersTest);
    EXPECT_EQ(PrimeNumbersExact + 1, PrimeNumbersProbabilistic);
}

TEST(PrimeFormsTest, OnThePrimeFactorsPageFieldAndOutputFillTheArea) {
    for (int32_t i = 0; i < PrimeFactorsControlCount; i++) {
        const auto control = static_cast<PrimeFactorsControl>(i);
        LayoutRect expected = PrimeFactorsForm[i].place;
        if (control == PrimeFactorsNumber) {
            expected = {47, 15, 738, 21};
        } else if (control == PrimeFactorsOutput) {
            expected = {15, 135, 768, 417};
        } else if (control == PrimeFactorsStart) {
            expected = {15, 567, 75, 25};
        } else if (control == PrimeFactorsStop) {
            expected = {105, 567, 75, 25};
        } else if (control == PrimeFactorsClose) {
            expected = {700, 567, 85, 25};
        }
        EXPECT_EQ(PlacePrimeFactorsControl(control, {800, 600}), expected) << i;
    }
    EXPECT_EQ(PlacePrimeFactorsControl(PrimeFactorsOutput, PrimeFactorsSize),
              (LayoutRect{15, 135, 530, 133}));
}

TEST(PrimeFormsTest, OnThePrimeNumbersPageFieldAndOutputFillTheArea) {
    for (int32_t i = 0; i < PrimeNumbersControlCount; i++) {
        const auto control = static_cast<PrimeNumbersControl>(i);
        LayoutRect expected = PrimeNumbersForm[i].place;
        if (control == PrimeNumbersNumber) {
            expected = {47, 15, 738, 61};
        } else if (control == PrimeNumbersOutput) {
            expected = {15, 175, 768, 377};
        } else if (control == PrimeNumbersStart) {
            expected = {15, 567, 75, 25};
        } else if (control == PrimeNumbersStop) {
            expected = {105, 567, 75, 25};
        } else if (control == PrimeNumbersClose) {
            expected = {700, 567, 85, 25};
        }
        EXPECT_EQ(PlacePrimeNumbersControl(control, {800, 600}), expected) << i;
    }
    EXPECT_EQ(PlacePrimeNumbersControl(PrimeNumbersOutput, PrimeNumbersSize),
              (LayoutRect{15, 175, 618, 145}));
}

TEST(PrimeFormsTest, TheNumberOfDivisorsCanBeAskedForWithDivisorsAlone) {
    for (int32_t i = 0; i < PrimeFactorsControlCount; i++) {
        const auto control = static_cast<PrimeFactorsControl>(i);
        EXPECT_TRUE(IsEnabledInMode(control, PrimeFactorsDivisors));
        EXPECT_EQ(IsEnabledInMode(control, PrimeFactorsFactors), i != PrimeFactorsShowCount);
    }
}

TEST(PrimeFormsTest, ARunDisablesWhatWouldMeddleWithIt) {
    for (int32_t i = 0; i < PrimeFactorsControlCount; i++) {
        EXPECT_EQ(IsDisabledDuringRun(static_cast<PrimeFactorsControl>(i)), i == PrimeFactorsBase);
    }
    for (int32_t i = 0; i < PrimeNumbersControlCount; i++) {
        const bool isDisabled =
            i == PrimeNumbersBase || (i >= PrimeNumbersModeGroup && i <= PrimeNumbersProbabilistic);
        EXPECT_EQ(IsDisabledDuringRun(static_cast<PrimeNumbersControl>(i)), isDisabled) << i;
    }
}

TEST(PrimeFormsTest, MethodsSayHowManyDigitsTheyTake) {
    const auto textOf = [](PrimeNumbersControl control) {
        char16_t text[PrimeMethodTextCapacity + 1] = u"before";
        WritePrimeMethodText(text, control);
        return std::u16string(text);
    };
    InstallLanguage(LanguageEnglish);
    EXPECT_EQ(textOf(PrimeNumbersExact), u"exact (max. 38 to 39 decimal digits)");
    EXPECT_EQ(textOf(PrimeNumbersProbabilistic), u"probabilistic (max. 1253 decimal digits)");
    EXPECT_EQ(textOf(PrimeNumbersTest), u"");
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(textOf(PrimeNumbersExact), u"exakt (max. 38 bis 39 Dezimalziffern)");
    EXPECT_EQ(textOf(PrimeNumbersProbabilistic), u"probabilistisch (max. 1253 Dezimalziff.)");
    InstallLanguage(LanguageEnglish);
}

}  // namespace
}  // namespace tallymere::testing_support
