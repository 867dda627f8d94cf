#include <gtest/gtest.h>

#include "layout/window_model.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;
using Window = WindowModel::Window;

// The names of the stops on a way around, from behind `start` until it comes back or repeats.
std::string Round(WindowModel& tree, Window start, WalkDirection direction) {
    std::string names;
    Window window = start;
    for (size_t i = 0; i <= tree.Size(); i++) {
        window = NextTabStop(tree, window, direction);
        names += (names.empty() ? "" : " ") + window->name;
        if (window == start) {
            return names;
        }
    }
    return names + " and never back";
}

TEST(NextTabStop, VisitsSiblingsInTheOrderOfTheirCreation) {
    WindowModel tree;
    const Window a = tree.Add(tree.Dialog(), "a");
    tree.Add(tree.Dialog(), "b");
    tree.Add(tree.Dialog(), "c");
    EXPECT_EQ(Round(tree, a, WalkForward), "b c a");
    EXPECT_EQ(Round(tree, a, WalkBackward), "c b a");
}

TEST(NextTabStop, DescendsIntoAWindowBeforeItGoesOn) {
    WindowModel tree;
    const Window a = tree.Add(tree.Dialog(), "a");
    const Window group = tree.Add(tree.Dialog(), "group", Plain);
    tree.Add(group, "b");
    const Window inner = tree.Add(group, "inner", Plain);
    tree.Add(inner, "c");
    tree.Add(inner, "d");
    tree.Add(group, "e");
    tree.Add(tree.Dialog(), "f");
    EXPECT_EQ(Round(tree, a, WalkForward), "b c d e f a");
    EXPECT_EQ(Round(tree, a, WalkBackward), "f e d c b a");
}

TEST(NextTabStop, ClimbsOverSeveralLevelsAtOnce) {
    WindowModel tree;
    const Window tabs = tree.Add(tree.Dialog(), "tabs", Plain);
    const Window page = tree.Add(tabs, "page", Plain);
    const Window group = tree.Add(page, "group", Plain);
    const Window box = tree.Add(group, "box");
    const Window ok = tree.Add(tree.Dialog(), "ok");
    EXPECT_EQ(NextTabStop(tree, box, WalkForward), ok);
    EXPECT_EQ(NextTabStop(tree, ok, WalkBackward), box);
    EXPECT_EQ(NextTabStop(tree, ok, WalkForward), box);
    EXPECT_EQ(NextTabStop(tree, box, WalkBackward), ok);
}

TEST(NextTabStop, AWindowWithChildrenMayBeAStopItself) {
    WindowModel tree;
    const Window tabs = tree.Add(tree.Dialog(), "tabs", Stop);
    tree.Add(tabs, "a");
    tree.Add(tabs, "b");
    tree.Add(tree.Dialog(), "ok");
    EXPECT_EQ(Round(tree, tabs, WalkForward), "a b ok tabs");
    EXPECT_EQ(Round(tree, tabs, WalkBackward), "ok b a tabs");
}

TEST(NextTabStop, PassesOverWhatIsHiddenDisabledOrNoStop) {
    WindowModel tree;
    const Window a = tree.Add(tree.Dialog(), "a");
    tree.Add(tree.Dialog(), "hidden", Stop | Hidden);
    tree.Add(tree.Dialog(), "disabled", Stop | Disabled);
    tree.Add(tree.Dialog(), "label", Plain);
    tree.Add(tree.Dialog(), "b");
    EXPECT_EQ(Round(tree, a, WalkForward), "b a");
    EXPECT_EQ(Round(tree, a, WalkBackward), "b a");
}

TEST(NextTabStop, PassesOverEverythingOnAHiddenPage) {
    WindowModel tree;
    const Window tabs = tree.Add(tree.Dialog(), "tabs", Plain);
    const Window shown = tree.Add(tabs, "page 1", Plain);
    const Window hidden = tree.Add(tabs, "page 2", Hidden);
    const Window a = tree.Add(shown, "a");
    tree.Add(tree.Add(hidden, "group", Plain), "x");
    tree.Add(hidden, "y");
    tree.Add(tree.Dialog(), "ok");
    EXPECT_EQ(Round(tree, a, WalkForward), "ok a");
    EXPECT_EQ(Round(tree, a, WalkBackward), "ok a");
}

TEST(NextTabStop, GoesOnBelowADisabledWindow) {
    WindowModel tree;
    const Window a = tree.Add(tree.Dialog(), "a");
    tree.Add(tree.Add(tree.Dialog(), "spin", Stop | Disabled), "field");
    EXPECT_EQ(Round(tree, a, WalkForward), "field a");
    EXPECT_EQ(Round(tree, a, WalkBackward), "field a");
}

TEST(NextTabStop, ComesBackToAnOnlyStop) {
    WindowModel tree;
    tree.Add(tree.Dialog(), "label", Plain);
    const Window a = tree.Add(tree.Dialog(), "a");
    tree.Add(tree.Dialog(), "hidden", Stop | Hidden);
    EXPECT_EQ(NextTabStop(tree, a, WalkForward), a);
    EXPECT_EQ(NextTabStop(tree, a, WalkBackward), a);
}

TEST(NextTabStop, ComesBackToAStartThatIsNoStop) {
    WindowModel tree;
    const Window label = tree.Add(tree.Dialog(), "label", Plain);
    tree.Add(tree.Add(tree.Dialog(), "group", Plain), "hidden", Stop | Hidden);
    EXPECT_EQ(NextTabStop(tree, label, WalkForward), label);
    EXPECT_EQ(NextTabStop(tree, label, WalkBackward), label);
}

TEST(NextTabStop, LeavesAStartThatIsNoStopAnyMore) {
    WindowModel tree;
    const Window a = tree.Add(tree.Dialog(), "a");
    const Window gone = tree.Add(tree.Dialog(), "gone", Stop | Hidden);
    const Window c = tree.Add(tree.Dialog(), "c");
    EXPECT_EQ(NextTabStop(tree, gone, WalkForward), c);
    EXPECT_EQ(NextTabStop(tree, gone, WalkBackward), a);
}

TEST(NextTabStop, TheDialogIsPassedOver) {
    WindowModel tree;
    const Window a = tree.Add(tree.Dialog(), "a");
    const Window b = tree.Add(tree.Dialog(), "b");
    EXPECT_EQ(NextTabStop(tree, b, WalkForward), a);
    EXPECT_EQ(NextTabStop(tree, a, WalkBackward), b);
}

TEST(FirstFocus, IsTheFirstStopOfTheDialogAtAnyDepth) {
    WindowModel tree;
    tree.Add(tree.Dialog(), "label", Plain);
    const Window group = tree.Add(tree.Dialog(), "group", Plain);
    tree.Add(group, "hidden", Stop | Hidden);
    const Window a = tree.Add(group, "a");
    const Window b = tree.Add(tree.Dialog(), "b");
    EXPECT_EQ(NextTabStop(tree, tree.Dialog(), WalkForward), a);
    EXPECT_EQ(NextTabStop(tree, tree.Dialog(), WalkBackward), b);
}

TEST(FirstFocus, StaysOnADialogWhereNothingTakesIt) {
    WindowModel empty;
    EXPECT_EQ(NextTabStop(empty, empty.Dialog(), WalkForward), empty.Dialog());
    EXPECT_EQ(NextTabStop(empty, empty.Dialog(), WalkBackward), empty.Dialog());
    WindowModel tree;
    tree.Add(tree.Dialog(), "label", Plain);
    tree.Add(tree.Add(tree.Dialog(), "group", Plain), "disabled", Stop | Disabled);
    EXPECT_EQ(NextTabStop(tree, tree.Dialog(), WalkForward), tree.Dialog());
    EXPECT_EQ(NextTabStop(tree, tree.Dialog(), WalkBackward), tree.Dialog());
}

void ListInOrder(Window window, std::vector<Window>& list) {
    list.push_back(window);
    for (const Window child : window->children) {
        ListInOrder(child, list);
    }
}

TEST(NextTabStop, GoesRoundAnyTreeAsRoundAListOfItsWindows) {
    RandomSource random;
    for (int round = 0; round < TestRounds(300); round++) {
        WindowModel tree;
        const uint64_t count = random.Below(40);
        for (uint64_t i = 0; i < count; i++) {
            tree.Add(tree.At(random.Below(tree.Size())), std::to_string(i),
                     random.Below(3) == 0 ? Plain : static_cast<unsigned>(random.Below(8)));
        }
        std::vector<Window> list;
        ListInOrder(tree.Dialog(), list);
        for (size_t i = 0; i < list.size(); i++) {
            size_t next = (i + 1) % list.size();
            while (next != i && !tree.IsTabStop(list[next])) {
                next = (next + 1) % list.size();
            }
            ASSERT_EQ(NextTabStop(tree, list[i], WalkForward), list[next]);
            size_t previous = (i + list.size() - 1) % list.size();
            while (previous != i && !tree.IsTabStop(list[previous])) {
                previous = (previous + list.size() - 1) % list.size();
            }
            ASSERT_EQ(NextTabStop(tree, list[i], WalkBackward), list[previous]);
        }
    }
}

}  // namespace
}  // namespace tallymere
