#include "shell/window_states.h"

#include <gtest/gtest.h>

#include <map>

namespace tallymere {
namespace {

constexpr uint32_t Minimised = 2;

// The desktop of a program: how each window is shown, and its main window among them.
struct Desktop {
    static constexpr int Main = 1;
    std::map<int, uint32_t> shown;
    WindowStateList<int> list;

    // Returns how many windows were asked about.
    int Minimise() {
        int asked = 0;
        for (const auto& [window, state] : shown) {
            asked++;
            if (!NoteWindowState(list, window, state != WindowHidden,
                                 state == WindowHidden ? uint32_t{WindowNormal} : state)) {
                break;
            }
        }
        for (int32_t i = 0; i < list.count; i++) {
            if (FollowsMainWindow(list.states[i], Main)) {
                shown[list.states[i].window] = WindowHidden;
            }
        }
        return asked;
    }

    void Restore() {
        for (int32_t i = 0; i < list.count; i++) {
            if (FollowsMainWindow(list.states[i], Main)) {
                shown[list.states[i].window] = list.states[i].showState;
            }
        }
        list.count = 0;
    }
};

TEST(WindowStates, MinimisingHidesTheVisibleWindowsAndRestoringShowsThemAsTheyWere) {
    Desktop desktop;
    desktop.shown = {{1, Minimised}, {2, WindowNormal}, {3, WindowMaximised}, {4, WindowHidden}};
    const auto before = desktop.shown;
    desktop.Minimise();
    EXPECT_EQ(desktop.shown,
              (std::map<int, uint32_t>{
                  {1, Minimised}, {2, WindowHidden}, {3, WindowHidden}, {4, WindowHidden}}));
    desktop.Restore();
    EXPECT_EQ(desktop.shown, before);
    EXPECT_EQ(desktop.list.count, 0);
}

TEST(WindowStates, AHiddenWindowIsNotedAsHiddenWhateverItsPlacementSays) {
    WindowStateList<int> list;
    NoteWindowState(list, 7, false, WindowMaximised);
    NoteWindowState(list, 8, true, WindowMaximised);
    EXPECT_EQ(list.count, 2);
    EXPECT_EQ(list.states[0].window, 7);
    EXPECT_EQ(list.states[0].showState, uint32_t{WindowHidden});
    EXPECT_EQ(list.states[1].window, 8);
    EXPECT_EQ(list.states[1].showState, uint32_t{WindowMaximised});
}

TEST(WindowStates, OnlyNormalAndMaximisedWindowsFollowTheMainWindow) {
    for (uint32_t state = 0; state <= 12; state++) {
        EXPECT_EQ(FollowsMainWindow(WindowState<int>{5, state}, 1), state == 1 || state == 3)
            << state;
    }
}

TEST(WindowStates, TheMainWindowDoesNotFollowItself) {
    EXPECT_FALSE(FollowsMainWindow(WindowState<int>{1, WindowNormal}, 1));
    EXPECT_FALSE(FollowsMainWindow(WindowState<int>{1, WindowMaximised}, 1));
}

TEST(WindowStates, AMinimisedWindowStaysMinimised) {
    Desktop desktop;
    desktop.shown = {{1, Minimised}, {2, Minimised}};
    desktop.Minimise();
    EXPECT_EQ(desktop.shown[2], Minimised);
    desktop.Restore();
    EXPECT_EQ(desktop.shown[2], Minimised);
}

TEST(WindowStates, RestoringWithoutMinimisingShowsNothing) {
    Desktop desktop;
    desktop.shown = {{1, WindowNormal}, {2, WindowHidden}};
    desktop.Restore();
    EXPECT_EQ(desktop.shown[2], uint32_t{WindowHidden});
    desktop.shown[2] = WindowNormal;
    desktop.Minimise();
    desktop.Restore();
    desktop.shown[2] = WindowHidden;
    desktop.Restore();
    EXPECT_EQ(desktop.shown[2], uint32_t{WindowHidden});
}

TEST(WindowStates, AHundredWindowsAreNotedAndNoMore) {
    Desktop desktop;
    for (int window = 1; window <= 130; window++) {
        desktop.shown[window] = WindowNormal;
    }
    EXPECT_EQ(desktop.Minimise(), 100);
    EXPECT_EQ(desktop.list.count, 100);
    for (int window = 2; window <= 130; window++) {
        EXPECT_EQ(desktop.shown[window], window <= 100 ? WindowHidden : WindowNormal) << window;
    }
    desktop.Restore();
    for (int window = 2; window <= 130; window++) {
        EXPECT_EQ(desktop.shown[window], uint32_t{WindowNormal}) << window;
    }
}

TEST(WindowStates, AFullListTakesNothing) {
    WindowStateList<int> list;
    for (int window = 0; window < 99; window++) {
        EXPECT_TRUE(NoteWindowState(list, window, true, WindowNormal)) << window;
    }
    EXPECT_FALSE(NoteWindowState(list, 99, true, WindowNormal));
    EXPECT_FALSE(NoteWindowState(list, 100, true, WindowMaximised));
    EXPECT_EQ(list.count, 100);
    EXPECT_EQ(list.states[99].window, 99);
    EXPECT_EQ(list.states[99].showState, uint32_t{WindowNormal});
}

TEST(WindowStates, MinimisedTwiceWithoutARestoreBetweenTheFirstStatesStillCount) {
    Desktop desktop;
    desktop.shown = {{1, Minimised}, {2, WindowMaximised}, {3, WindowHidden}};
    desktop.Minimise();
    desktop.shown[3] = WindowNormal;  // shown from the menu meanwhile
    desktop.Minimise();
    EXPECT_EQ(desktop.shown[2], uint32_t{WindowHidden});
    EXPECT_EQ(desktop.shown[3], uint32_t{WindowHidden});
    desktop.Restore();
    EXPECT_EQ(desktop.shown[2], uint32_t{WindowMaximised});
    EXPECT_EQ(desktop.shown[3], uint32_t{WindowNormal});
}

}  // namespace
}  // namespace tallymere
