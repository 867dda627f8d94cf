// Dialogs that run while everything else waits.
#include "toolkit/modal_loop.h"

#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

// What the dialog saw while it ran and when it was closed.
struct ModalRun {
    bool wasModal = false;
    bool wasEnabled = false;
    bool ownerEnabled = true;
    bool otherEnabled = true;
    bool ownerEnabledAtClose = false;
    HWND focusAtClose = nullptr;
    HWND foreground = nullptr;
};

ModalRun run;
HWND other;
constexpr UINT LookAround = WM_APP + 50;

LRESULT HandleModal(HWND window, UINT message, WPARAM, LPARAM, bool& callDefault) {
    const HWND owner = GetWindow(window, GW_OWNER);
    switch (message) {
        case LookAround:
            run.wasModal = IsModal(window);
            run.wasEnabled = IsWindowEnabled(window) != FALSE;
            run.ownerEnabled = IsWindowEnabled(owner) != FALSE;
            run.otherEnabled = IsWindowEnabled(other) != FALSE;
            run.foreground = GetForegroundWindow();
            PostMessageW(window, WM_CLOSE, 0, 0);
            break;
        case WM_CLOSE:
            run.ownerEnabledAtClose = IsWindowEnabled(owner) != FALSE;
            run.focusAtClose = GetFocus();
            ShowWindow(window, SW_HIDE);
            callDefault = false;
            break;
        default:
            break;
    }
    return 0;
}

LRESULT StayHidden(HWND, UINT message, WPARAM, LPARAM lParam, bool&) {
    if (message == WM_WINDOWPOSCHANGING) {
        reinterpret_cast<WINDOWPOS*>(lParam)->flags &= static_cast<UINT>(~SWP_SHOWWINDOW);
    }
    return 0;
}

class ModalLoop : public testing_support::ToolkitTest {
protected:
    ModalLoop() {
        run = {};
        other = CreateDialogWindow(nullptr, {100, 100}, u"Other", nullptr, 0, 0);
        disabled = CreateDialogWindow(nullptr, {100, 100}, u"Disabled", nullptr, WS_DISABLED, 0);
        modal = CreateDialogWindow(dialog, {100, 100}, u"Modal", HandleModal, WS_SYSMENU, 0);
    }

    ~ModalLoop() override {
        DestroyWindow(modal);
        DestroyWindow(disabled);
        DestroyWindow(other);
    }

    // The look around closes it, too.
    bool RunAndClose() {
        PostMessageW(modal, LookAround, 0, 0);
        return RunModal(modal);
    }

    HWND disabled;
    HWND modal;
};

TEST_F(ModalLoop, RefusesWhatIsNoDialog) {
    EXPECT_FALSE(RunModal(nullptr));
    EXPECT_FALSE(RunModal(Edit()));
}

TEST_F(ModalLoop, DisablesAllOtherWindowsWhileItRuns) {
    EXPECT_TRUE(RunAndClose());
    EXPECT_TRUE(run.wasModal);
    EXPECT_TRUE(run.wasEnabled);
    EXPECT_FALSE(run.ownerEnabled);
    EXPECT_FALSE(run.otherEnabled);
    EXPECT_TRUE(IsWindowEnabled(dialog));
    EXPECT_TRUE(IsWindowEnabled(other));
    EXPECT_FALSE(IsModal(modal));
    EXPECT_TRUE(IsWindow(modal));
}

TEST_F(ModalLoop, LeavesDisabledWhatWasDisabledBefore) {
    EXPECT_TRUE(RunAndClose());
    EXPECT_FALSE(IsWindowEnabled(disabled));
}

TEST_F(ModalLoop, GivesAVisibleOwnerTheFocusBeforeTheDialogHides) {
    EXPECT_TRUE(RunAndClose());
    EXPECT_TRUE(run.ownerEnabledAtClose);
    EXPECT_EQ(run.focusAtClose, dialog);
}

TEST_F(ModalLoop, LeavesAHiddenOwnerAloneUntilTheEnd) {
    ShowWindow(dialog, SW_HIDE);
    EXPECT_TRUE(RunAndClose());
    EXPECT_FALSE(run.ownerEnabledAtClose);
    EXPECT_TRUE(IsWindowEnabled(dialog));
}

TEST_F(ModalLoop, RunsAgain) {
    EXPECT_TRUE(RunAndClose());
    run = {};
    EXPECT_TRUE(RunAndClose());
    EXPECT_TRUE(run.wasModal);
    EXPECT_FALSE(run.otherEnabled);
}

TEST_F(ModalLoop, BringsADialogToTheFrontThatIsShownAlready) {
    ShowWindow(modal, SW_SHOWNORMAL);
    SetForegroundWindow(dialog);
    ASSERT_EQ(GetForegroundWindow(), dialog);
    EXPECT_TRUE(RunAndClose());
    EXPECT_EQ(run.foreground, modal);
}

TEST_F(ModalLoop, OnlyItsOwnEndEndsIt) {
    PostMessageW(nullptr, WM_APP + 1, reinterpret_cast<WPARAM>(other), 0);
    PostMessageW(modal, WM_APP + 1, reinterpret_cast<WPARAM>(modal), 0);
    EXPECT_TRUE(RunAndClose());
    EXPECT_TRUE(run.wasModal);
}

TEST_F(ModalLoop, MakesCharactersOfKeys) {
    const HWND edit = CreateEdit(modal, {0, 0, 60, 20}, u"", 0, 0);
    PostMessageW(edit, WM_KEYDOWN, '7', 1);
    EXPECT_TRUE(RunAndClose());
    EXPECT_EQ(testing_support::TextOf(edit), "7");
}

bool ranInside = false;

LRESULT RunInside(HWND window, UINT message, WPARAM, LPARAM, bool& callDefault) {
    if (message == LookAround) {
        PostMessageW(other, LookAround, 0, 0);
        ranInside = RunModal(other);
        run.otherEnabled = IsWindowEnabled(other) != FALSE;
        run.wasModal = IsModal(window);
        run.wasEnabled = IsWindowEnabled(window) != FALSE;
        PostMessageW(window, WM_CLOSE, 0, 0);
    } else if (message == WM_CLOSE) {
        ShowWindow(window, SW_HIDE);
        callDefault = false;
    }
    return 0;
}

TEST_F(ModalLoop, RunsWithinAnother) {
    const HWND outer = CreateDialogWindow(dialog, {100, 100}, u"Outer", RunInside, WS_SYSMENU, 0);
    const HWND inner = CreateDialogWindow(outer, {100, 100}, u"Inner", HandleModal, WS_SYSMENU, 0);
    const HWND before = other;
    other = inner;
    PostMessageW(outer, LookAround, 0, 0);
    EXPECT_TRUE(RunModal(outer));
    EXPECT_TRUE(ranInside);
    EXPECT_FALSE(run.ownerEnabled);
    EXPECT_TRUE(run.wasModal);
    EXPECT_TRUE(run.wasEnabled);
    EXPECT_FALSE(run.otherEnabled);
    EXPECT_TRUE(IsWindowEnabled(dialog));
    other = before;
    DestroyWindow(inner);
    DestroyWindow(outer);
}

// Closes the dialog, and takes all messages that are there then, as another loop would.
LRESULT CloseWithinLoop(HWND window, UINT message, WPARAM, LPARAM, bool& callDefault) {
    if (message == LookAround) {
        SendMessageW(window, WM_CLOSE, 0, 0);
        MSG taken;
        while (PeekMessageW(&taken, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&taken);
        }
    } else if (message == WM_CLOSE) {
        ShowWindow(window, SW_HIDE);
        callDefault = false;
    }
    return 0;
}

TEST_F(ModalLoop, EndsWhenAnotherLoopHasTakenItsMessage) {
    const HWND closing =
        CreateDialogWindow(dialog, {100, 100}, u"Closing", CloseWithinLoop, WS_SYSMENU, 0);
    const testing_support::LoopDeadline soon(5'000);
    PostMessageW(closing, LookAround, 0, 0);
    EXPECT_TRUE(RunModal(closing));
    EXPECT_TRUE(IsWindowEnabled(other));
    DestroyWindow(closing);
}

TEST_F(ModalLoop, DoesNotRunADialogThatDoesNotComeUp) {
    const HWND shy = CreateDialogWindow(nullptr, {100, 100}, u"Shy", StayHidden, 0, 0);
    EXPECT_FALSE(RunModal(shy));
    EXPECT_FALSE(IsModal(shy));
    EXPECT_TRUE(IsWindowEnabled(other));
    DestroyWindow(shy);
}

TEST_F(ModalLoop, PassesTheEndOfTheProgramOn) {
    PostQuitMessage(5);
    EXPECT_TRUE(RunModal(modal));
    EXPECT_TRUE(IsWindowEnabled(other));
    MSG message;
    ASSERT_EQ(GetMessageW(&message, nullptr, 0, 0), 0);
    EXPECT_EQ(message.wParam, 5u);
}

TEST_F(ModalLoop, CloseWithoutTheLoopEndsNothing) {
    SendMessageW(modal, WM_CLOSE, 0, 0);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_APP + 1, WM_APP + 1, PM_REMOVE));
}

}  // namespace
}  // namespace tallymere
