// The text of a window in scratch memory, up to a length, and text that is added to a field.
#include "shell/windows/window_text.h"

#include <string>

#include "core/scratch.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

class WindowText : public testing_support::ToolkitTest {
protected:
    WindowText() { CreateScratchStack(); }
    ~WindowText() override { DestroyScratchStack(); }

    static constexpr int64_t Capacity = 5;
};

TEST_F(WindowText, IsTakenWholeUpToTheCapacity) {
    for (const char16_t* text : {u"", u"1", u"1234", u"12345"}) {
        ScratchStackScope scope;
        bool isCut = true;
        const HWND field = CreateEdit(dialog, {0, 0, 60, 20}, text, 0, 0);
        EXPECT_EQ(std::u16string(TakeWindowText(scope, field, Capacity, &isCut)), text);
        EXPECT_FALSE(isCut);
    }
}

TEST_F(WindowText, EndsInAnEllipsisWhereItIsCut) {
    for (const char16_t* text : {u"123456", u"12345678901234567890"}) {
        ScratchStackScope scope;
        bool isCut = false;
        const HWND field = CreateEdit(dialog, {0, 0, 60, 20}, text, 0, 0);
        EXPECT_EQ(std::u16string(TakeWindowText(scope, field, Capacity, &isCut)), u"1234\u2026");
        EXPECT_TRUE(isCut);
        EXPECT_EQ(std::u16string(TakeWindowText(scope, field, Capacity, nullptr)), u"1234\u2026");
    }
}

TEST_F(WindowText, IsAddedBehindWhatIsThereWhereverTheCaretIs) {
    const HWND field =
        CreateEdit(dialog, {0, 0, 60, 20}, u"", ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL, 0);
    AppendWindowText(field, u"first\r\n");
    SendMessageW(field, EM_SETSEL, 0, 3);
    AppendWindowText(field, u"second");
    EXPECT_EQ(testing_support::WholeText(field), u"first\r\nsecond");
}

}  // namespace
}  // namespace tallymere
