#include <gtest/gtest.h>

#include "layout/window_model.h"

namespace tallymere {
namespace {

using namespace testing_support;
using Window = WindowModel::Window;

constexpr unsigned Option = Stop | Radio;

// A field, three radio buttons and a button, side by side.
struct RadioDialog : ::testing::Test {
    WindowModel tree;
    Window before = tree.Add(tree.Dialog(), "before");
    Window first = tree.Add(tree.Dialog(), "first", Option);
    Window second = tree.Add(tree.Dialog(), "second", Option);
    Window third = tree.Add(tree.Dialog(), "third", Option);
    Window after = tree.Add(tree.Dialog(), "after", Stop | Push);

    void ExpectFocus(FocusTarget<Window> target, Window window, bool check) {
        EXPECT_EQ(target.window->name, window->name);
        EXPECT_EQ(target.check, check);
    }
};

TEST_F(RadioDialog, GroupEndsWhereASiblingIsNoRadioButton) {
    for (const Window button : {first, second, third}) {
        EXPECT_EQ(RadioGroupEnd(tree, button, WalkForward), third);
        EXPECT_EQ(RadioGroupEnd(tree, button, WalkBackward), first);
    }
}

TEST_F(RadioDialog, GroupEndIsAVisibleButton) {
    third->traits |= Hidden;
    EXPECT_EQ(RadioGroupEnd(tree, first, WalkForward), second);
    second->traits |= Hidden;
    EXPECT_EQ(RadioGroupEnd(tree, first, WalkForward), first);
    third->traits = Option;
    EXPECT_EQ(RadioGroupEnd(tree, first, WalkForward), third);
    first->traits |= Hidden;
    EXPECT_EQ(RadioGroupEnd(tree, third, WalkBackward), third);
}

TEST_F(RadioDialog, GroupEndMayBeDisabled) {
    third->traits |= Disabled;
    EXPECT_EQ(RadioGroupEnd(tree, first, WalkForward), third);
}

TEST_F(RadioDialog, AHiddenButtonWithNoVisibleOneBehindItIsItsOwnEnd) {
    second->traits |= Hidden;
    third->traits |= Hidden;
    EXPECT_EQ(RadioGroupEnd(tree, third, WalkForward), third);
    EXPECT_EQ(RadioGroupEnd(tree, second, WalkForward), second);
}

TEST(RadioGroup, EndsWithTheSiblings) {
    WindowModel tree;
    const Window left = tree.Add(tree.Dialog(), "left", Plain);
    const Window right = tree.Add(tree.Dialog(), "right", Plain);
    const Window a = tree.Add(left, "a", Option);
    const Window b = tree.Add(left, "b", Option);
    const Window c = tree.Add(right, "c", Option);
    EXPECT_EQ(RadioGroupEnd(tree, a, WalkForward), b);
    EXPECT_EQ(RadioGroupEnd(tree, c, WalkBackward), c);
    EXPECT_EQ(RadioArrowTarget(tree, b, WalkForward), nullptr);
    EXPECT_EQ(RadioArrowTarget(tree, a, WalkBackward), nullptr);
}

TEST_F(RadioDialog, ArrowLeadsToTheNeighbour) {
    EXPECT_EQ(RadioArrowTarget(tree, first, WalkForward), second);
    EXPECT_EQ(RadioArrowTarget(tree, second, WalkForward), third);
    EXPECT_EQ(RadioArrowTarget(tree, third, WalkBackward), second);
    EXPECT_EQ(RadioArrowTarget(tree, second, WalkBackward), first);
}

TEST_F(RadioDialog, ArrowPastTheEndOfTheGroupDoesNothing) {
    EXPECT_EQ(RadioArrowTarget(tree, third, WalkForward), nullptr);
    EXPECT_EQ(RadioArrowTarget(tree, first, WalkBackward), nullptr);
}

TEST_F(RadioDialog, ArrowSkipsHiddenButtons) {
    second->traits |= Hidden;
    EXPECT_EQ(RadioArrowTarget(tree, first, WalkForward), third);
    EXPECT_EQ(RadioArrowTarget(tree, third, WalkBackward), first);
    third->traits |= Hidden;
    EXPECT_EQ(RadioArrowTarget(tree, first, WalkForward), nullptr);
}

TEST_F(RadioDialog, ArrowDoesNotPassAHiddenControlOfAnotherKind) {
    second->traits = Stop | Hidden;
    EXPECT_EQ(RadioArrowTarget(tree, first, WalkForward), nullptr);
    EXPECT_EQ(RadioArrowTarget(tree, third, WalkBackward), nullptr);
}

TEST_F(RadioDialog, FocusGoesToTheControlItselfUnlessItIsARadioButton) {
    second->traits |= Checked;
    ExpectFocus(FocusTargetOf(tree, before), before, false);
    ExpectFocus(FocusTargetOf(tree, after), after, false);
}

TEST_F(RadioDialog, FocusGoesToTheCheckedButtonOfTheGroup) {
    for (const Window checked : {first, second, third}) {
        checked->traits |= Checked;
        for (const Window button : {first, second, third}) {
            ExpectFocus(FocusTargetOf(tree, button), checked, false);
        }
        checked->traits = Option;
    }
}

TEST_F(RadioDialog, FocusLooksBackwardFirst) {
    first->traits |= Checked;
    third->traits |= Checked;
    ExpectFocus(FocusTargetOf(tree, second), first, false);
    second->traits |= Checked;
    ExpectFocus(FocusTargetOf(tree, second), second, false);
    ExpectFocus(FocusTargetOf(tree, third), third, false);
}

TEST_F(RadioDialog, WithNoneCheckedTheFirstVisibleButtonIsCheckedAndFocused) {
    for (const Window button : {first, second, third}) {
        ExpectFocus(FocusTargetOf(tree, button), first, true);
    }
    first->traits |= Hidden;
    ExpectFocus(FocusTargetOf(tree, third), second, true);
    ExpectFocus(FocusTargetOf(tree, second), second, true);
}

TEST_F(RadioDialog, AHiddenCheckedButtonDoesNotCount) {
    third->traits |= Checked | Hidden;
    ExpectFocus(FocusTargetOf(tree, second), first, true);
}

TEST_F(RadioDialog, ACheckedButtonOfAnotherGroupDoesNotCount) {
    third->traits |= Checked;
    second->traits = Plain;
    ExpectFocus(FocusTargetOf(tree, first), first, true);
}

TEST_F(RadioDialog, TabLeavesTheWholeGroup) {
    for (const Window button : {first, second, third}) {
        button->traits |= Checked;
        ExpectFocus(TabTargetOf(tree, button, WalkForward), after, false);
        ExpectFocus(TabTargetOf(tree, button, WalkBackward), before, false);
        button->traits = Option;
    }
}

TEST_F(RadioDialog, TabEntersTheGroupAtItsCheckedButton) {
    second->traits |= Checked;
    ExpectFocus(TabTargetOf(tree, before, WalkForward), second, false);
    ExpectFocus(TabTargetOf(tree, after, WalkBackward), second, false);
}

TEST_F(RadioDialog, TabIntoAGroupWithNothingCheckedChecksItsFirstButton) {
    ExpectFocus(TabTargetOf(tree, before, WalkForward), first, true);
    ExpectFocus(TabTargetOf(tree, after, WalkBackward), first, true);
}

TEST_F(RadioDialog, TabBetweenOtherControlsIsPlain) {
    WindowModel plain;
    const Window a = plain.Add(plain.Dialog(), "a");
    const Window b = plain.Add(plain.Dialog(), "b");
    ExpectFocus(TabTargetOf(plain, a, WalkForward), b, false);
    ExpectFocus(TabTargetOf(plain, b, WalkBackward), a, false);
}

TEST(RadioGroup, ThatIsAloneInItsDialogKeepsTheFocusOnItsCheckedButton) {
    WindowModel tree;
    tree.Add(tree.Dialog(), "a", Option);
    const Window b = tree.Add(tree.Dialog(), "b", Option | Checked);
    tree.Add(tree.Dialog(), "c", Option);
    for (const WalkDirection direction : {WalkForward, WalkBackward}) {
        EXPECT_EQ(TabTargetOf(tree, b, direction).window, b);
        EXPECT_FALSE(TabTargetOf(tree, b, direction).check);
    }
}

}  // namespace
}  // namespace tallymere
