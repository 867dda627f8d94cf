// The text that other programs put on the clipboard.
#include "toolkit/clipboard_text.h"

#include <string>

#include "toolkit/long_text_testing.h"

namespace tallymere::testing_support {
namespace {

TEST(ClipboardBlock, HasNoMoreTextThanItsMemory) {
    const char16_t memory[] = u"123456\0rest";
    constexpr size_t Character = sizeof(char16_t);
    EXPECT_EQ(TextInBlock(memory, 3 * Character), u"123") << "there is no zero in it";
    EXPECT_EQ(TextInBlock(memory, 3 * Character + 1), u"123") << "nor a whole fourth character";
    EXPECT_EQ(TextInBlock(memory, 7 * Character), u"123456");
    EXPECT_EQ(TextInBlock(memory, 9 * Character), u"123456");
    EXPECT_EQ(TextInBlock(memory, 0), u"");
}

class Clipboard : public ToolkitTest {};

TEST_F(Clipboard, GivesTheTextThatWasPutThere) {
    for (const std::u16string& text : {std::u16string(u"1+2"), Digits(5'000)}) {
        PutOnEmptyClipboard(dialog, text);
        const ClipboardText clipboard(dialog);
        EXPECT_TRUE(clipboard.IsThere());
        EXPECT_EQ(clipboard.View(), text);
    }
    PutOnEmptyClipboard(dialog, u"");
    const ClipboardText clipboard(dialog);
    EXPECT_FALSE(clipboard.IsThere());
    EXPECT_EQ(clipboard.View(), u"");
}

}  // namespace
}  // namespace tallymere::testing_support
