// Message loops that would wait for ever end by the deadline of their test.
#include "toolkit/loop_deadline.h"

#include <gtest/gtest-spi.h>

#include "toolkit/modal_loop.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {
namespace {

class LoopDeadlineTest : public ToolkitTest {
protected:
    static bool IsQuitPending() {
        MSG message;
        return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
    }
};

TEST_F(LoopDeadlineTest, EndsALoopOfTheTestAndFailsIt) {
    const auto waitInVain = [] {
        const LoopDeadline deadline(1);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        }
    };
    EXPECT_NONFATAL_FAILURE(waitInVain(), "a message loop waited in vain");
    EXPECT_FALSE(IsQuitPending()) << "the loops of the next test would end at once";
}

TEST_F(LoopDeadlineTest, EndsALoopWhenTheTimeIsOverThatItWasGivenLast) {
    const auto waitInVain = [] {
        LoopDeadline deadline(10 * LoopDeadline::UsualMilliseconds);
        deadline.Change(1);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        }
    };
    EXPECT_NONFATAL_FAILURE(waitInVain(), "a message loop waited in vain");
}

TEST_F(LoopDeadlineTest, EndsALoopOfTheProgramAndFailsTheTest) {
    const HWND modal = CreateDialogWindow(dialog, {100, 100}, u"Modal", nullptr, WS_SYSMENU, 0);
    const auto waitInVain = [modal] {
        const LoopDeadline deadline(1);
        RunModal(modal);
    };
    EXPECT_NONFATAL_FAILURE(waitInVain(), "a message loop waited in vain");
    EXPECT_FALSE(IsQuitPending());
    DestroyWindow(modal);
}

TEST_F(LoopDeadlineTest, LeavesALoopAloneThatEndsInTime) {
    { const LoopDeadline deadline; }
    EXPECT_FALSE(IsQuitPending());
}

}  // namespace
}  // namespace tallymere::testing_support
