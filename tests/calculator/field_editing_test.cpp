#include "calculator/field_editing.h"

#include <gtest/gtest.h>

namespace tallymere::testing_support {
namespace {

TEST(FieldEditingTest, CharactersFromTheBlankOnBackspaceAndANewLineChangeTheText) {
    for (uint64_t c = 0; c < 0x400; c++) {
        EXPECT_EQ(ChangesFieldText(0x0102, c), c == 8 || c == 10 || c >= 32) << c;
    }
}

TEST(FieldEditingTest, OfTheKeysOnlyDeleteChangesTheText) {
    for (uint64_t key = 0; key < 256; key++) {
        EXPECT_EQ(ChangesFieldText(0x0100, key), key == 0x2E) << key;
    }
}

TEST(FieldEditingTest, SoDoTheCommandsOfTheMenuExceptCopy) {
    // Cut, paste, clear and the two of undo.
    for (uint32_t message = 0; message < 0x0500; message++) {
        const bool expected = message == 0x0300 || message == 0x0302 || message == 0x0303 ||
                              message == 0x0304 || message == 0x00C7;
        EXPECT_EQ(ChangesFieldText(message, 0), expected) << message;
    }
}

TEST(FieldEditingTest, SelectingCopyingAndCaretKeysChangeNothing) {
    EXPECT_FALSE(ChangesFieldText(0x00B1, 0));
    EXPECT_FALSE(ChangesFieldText(0x0301, 0));
    EXPECT_FALSE(ChangesFieldText(0x0101, FieldDeleteKey));
    EXPECT_FALSE(ChangesFieldText(FieldCharacter, FieldReturn));
}

}  // namespace
}  // namespace tallymere::testing_support
