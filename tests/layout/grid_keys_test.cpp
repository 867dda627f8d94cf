// What keys do in a grid.
#include "layout/grid_keys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "layout/grid_testing.h"

namespace tallymere {
namespace {

using testing_support::TestGrid;

class GridKeys : public ::testing::Test {
protected:
    GridKeys() : grid(3, 3) {
        grid.state.cursorColumn = 2;
        grid.state.cursorRow = 2;
    }

    GridKeyEffect Press(uint32_t key) { return Press({.key = key, .isFromKeyboard = true}); }
    GridKeyEffect Press(const GridKeyStroke& stroke) { return EffectOfGridKey(grid.state, stroke); }
    GridKeyAction ActionOf(uint32_t key) { return Press(key).action; }

    GridEditorAction Edit(uint32_t key, const GridEditorFacts& facts) {
        return EffectOfGridEditorKey(grid.state, key, false, facts);
    }

    TestGrid grid;
};

TEST_F(GridKeys, MoveTheCursor) {
    const struct {
        uint32_t key;
        GridMove move;
    } keys[] = {{0x26, GridMove::RowUp},       {0x28, GridMove::RowDown},
                {0x21, GridMove::PageUp},      {0x22, GridMove::PageDown},
                {0x25, GridMove::ColumnLeft},  {0x27, GridMove::ColumnRight},
                {0x24, GridMove::FirstColumn}, {0x23, GridMove::LastColumn}};
    for (const auto& [key, move] : keys) {
        EXPECT_EQ(Press(key), (GridKeyEffect{GridKeyAction::Move, move, false})) << key;
    }
}

TEST_F(GridKeys, RightEndsRowSelect) {
    grid.state.rowSelectMode = GridRowSelectNow;
    grid.state.isRowSelectActive = true;
    EXPECT_EQ(Press(0x27), (GridKeyEffect{GridKeyAction::Move, GridMove::ColumnRight, true}));
    EXPECT_EQ(Press(0x25), (GridKeyEffect{GridKeyAction::Move, GridMove::ColumnLeft, false}));
}

TEST_F(GridKeys, TabLeavesTheGrid) {
    EXPECT_EQ(ActionOf(0x09), GridKeyAction::LeaveForward);
    EXPECT_EQ(Press({.key = 0x09, .shift = true}).action, GridKeyAction::LeaveBackward);
    EXPECT_EQ(Press({.key = 0x09, .control = true}).action, GridKeyAction::Nothing);
}

// Whatever is not in these lists opens the editor.
TEST_F(GridKeys, AllOthersOpenTheEditor) {
    const std::vector<uint32_t> moving = {0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28, 0x09};
    // Return, Alt, Pause, Caps Lock, Insert, Windows keys, menu key, Num Lock.
    const std::vector<uint32_t> idle = {0x0D, 0x12, 0x13, 0x14, 0x2D, 0x5B, 0x5C, 0x5D, 0x90};
    // Shift, Control, Escape, Scroll Lock: they have no character.
    const std::vector<uint32_t> silent = {0x10, 0x11, 0x1B, 0x91};
    const auto isIn = [](const std::vector<uint32_t>& keys, uint32_t key) {
        return std::find(keys.begin(), keys.end(), key) != keys.end();
    };
    for (uint32_t key = 1; key < 255; key++) {
        const bool isFunctionKey = key >= 0x70 && key <= 0x87;
        const bool isSidedOrMedia = key >= 0xA0 && key <= 0xB7;
        GridKeyAction typed = GridKeyAction::Type;
        GridKeyAction sent = GridKeyAction::Type;
        if (key == 0x70) {
            typed = sent = GridKeyAction::Pass;
        } else if (isFunctionKey || isIn(idle, key)) {
            typed = sent = GridKeyAction::Nothing;
        } else if (isIn(silent, key) || isSidedOrMedia) {
            typed = GridKeyAction::Nothing;
        }
        if (!isIn(moving, key)) {
            EXPECT_EQ(ActionOf(key), typed) << key;
            EXPECT_EQ(Press({.key = key}).action, sent) << key;
        }
    }
}

TEST_F(GridKeys, DeleteOpensTheEditor) {
    EXPECT_EQ(ActionOf(0x2E), GridKeyAction::Type);
    EXPECT_EQ(ActionOf(0x08), GridKeyAction::Type);
}

TEST_F(GridKeys, AKeyWithControlAloneHasNoCharacter) {
    EXPECT_EQ(Press({.key = 'C', .control = true, .isFromKeyboard = true}).action,
              GridKeyAction::Nothing);
    EXPECT_EQ(Press({.key = 'Q', .control = true, .alt = true, .isFromKeyboard = true}).action,
              GridKeyAction::Type);
}

TEST_F(GridKeys, TheAltBitKeepsTheTextOfTheCell) {
    EXPECT_EQ(Press({.key = 0x10, .isAltBitSet = true}).action, GridKeyAction::EditText);
    EXPECT_EQ(Press({.key = 0x10}).action, GridKeyAction::Type);
    EXPECT_EQ(Press({.key = 'A', .alt = true, .isAltBitSet = true, .isFromKeyboard = true}).action,
              GridKeyAction::EditText);
}

TEST_F(GridKeys, AltGrIsNotTheAltBit) {
    EXPECT_EQ(
        Press(
            {.key = 'Q', .control = true, .alt = true, .isAltBitSet = true, .isFromKeyboard = true})
            .action,
        GridKeyAction::Type);
    // The grid sends itself the key whatever the user holds.
    EXPECT_EQ(Press({.key = 0x10, .control = true, .isAltBitSet = true}).action,
              GridKeyAction::EditText);
}

TEST_F(GridKeys, WithoutCharactersOnlyKeysThatClearOpenTheEditor) {
    for (uint32_t key = 1; key < 255; key++) {
        EXPECT_TRUE(OpensGridEditor({.key = key, .isFromKeyboard = true}, true)) << key;
        EXPECT_EQ(OpensGridEditor({.key = key, .isFromKeyboard = true}, false),
                  key == 0x08 || key == 0x2E)
            << key;
        EXPECT_TRUE(OpensGridEditor({.key = key}, false)) << key;
    }
}

TEST_F(GridKeys, ACharacterOfItsOwnOpensTheEditorUnlessControlIsHeld) {
    EXPECT_TRUE(OpensGridEditor(u'\u4E8C', false, false));
    EXPECT_TRUE(OpensGridEditor(u'@', true, true));
    EXPECT_FALSE(OpensGridEditor(u' ', true, false));
    EXPECT_FALSE(OpensGridEditor(u'\r', false, false));
    EXPECT_FALSE(OpensGridEditor(u'\x7F', false, false));
}

TEST_F(GridKeys, ACellThatCannotBeEditedOpensNoEditor) {
    grid.Cell(2, 2).isProtected = 1;
    EXPECT_EQ(ActionOf('1'), GridKeyAction::Nothing);
    EXPECT_EQ(ActionOf(0x26), GridKeyAction::Move);
    EXPECT_EQ(Press({.key = 0x10, .isAltBitSet = true}).action, GridKeyAction::Nothing);
}

TEST_F(GridKeys, UpAndDownLeaveTheEditorButAtTheEnds) {
    for (int32_t row = 1; row <= 3; row++) {
        grid.state.cursorRow = row;
        const GridEditorAction up = row > 1 ? GridEditorAction::Pass : GridEditorAction::Stay;
        const GridEditorAction down = row < 3 ? GridEditorAction::Pass : GridEditorAction::Stay;
        EXPECT_EQ(Edit(0x26, {1, 2, 3}), up);
        EXPECT_EQ(Edit(0x21, {1, 2, 3}), up);
        EXPECT_EQ(Edit(0x28, {1, 2, 3}), down);
        EXPECT_EQ(Edit(0x22, {1, 2, 3}), down);
    }
}

TEST_F(GridKeys, LeftAndRightLeaveTheEditorAtTheEndsOfItsText) {
    EXPECT_EQ(Edit(0x25, {0, 0, 3}), GridEditorAction::Pass);
    EXPECT_EQ(Edit(0x25, {1, 1, 3}), GridEditorAction::Stay);
    EXPECT_EQ(Edit(0x25, {0, 1, 3}), GridEditorAction::Stay);
    EXPECT_EQ(Edit(0x27, {3, 3, 3}), GridEditorAction::Pass);
    EXPECT_EQ(Edit(0x27, {2, 2, 3}), GridEditorAction::Stay);
    EXPECT_EQ(Edit(0x27, {2, 3, 3}), GridEditorAction::Stay);
    EXPECT_EQ(Edit(0x27, {0, 0, 0}), GridEditorAction::Pass);
    grid.Column(1).isHidden = 1;
    grid.Column(3).width = 0;
    EXPECT_EQ(Edit(0x25, {0, 0, 3}), GridEditorAction::Stay);
    EXPECT_EQ(Edit(0x27, {3, 3, 3}), GridEditorAction::Stay);
}

TEST_F(GridKeys, OtherKeysInTheEditor) {
    EXPECT_EQ(Edit(0x09, {0, 0, 0}), GridEditorAction::Pass);
    EXPECT_EQ(EffectOfGridEditorKey(grid.state, 0x09, true, {0, 0, 0}), GridEditorAction::Swallow);
    EXPECT_EQ(Edit(0x1B, {0, 0, 0}), GridEditorAction::Cancel);
    for (const uint32_t key : {0x0D, 0x23, 0x24, 0x2E, 0x70, 0x10, 0x41}) {
        EXPECT_EQ(Edit(key, {0, 0, 0}), GridEditorAction::Stay) << key;
    }
}

TEST_F(GridKeys, CharactersInTheEditor) {
    EXPECT_EQ(EffectOfGridEditorCharacter(u'\r'), GridEditorAction::Pass);
    EXPECT_EQ(EffectOfGridEditorCharacter(u'\t'), GridEditorAction::Swallow);
    EXPECT_EQ(EffectOfGridEditorCharacter(u'\x1B'), GridEditorAction::Swallow);
    for (const char16_t character : {u'\n', u'\b', u' ', u'1', u'ä'}) {
        EXPECT_EQ(EffectOfGridEditorCharacter(character), GridEditorAction::Stay) << int{character};
    }
}

TEST_F(GridKeys, ControlCharactersAreNoText) {
    for (const char16_t character : {u'\0', u'\b', u'\x1B', u'\x1F', u'\x7F'}) {
        EXPECT_FALSE(IsGridText(character)) << int{character};
    }
    for (const char16_t character : {u' ', u'~', u'\x80', u'√'}) {
        EXPECT_TRUE(IsGridText(character)) << int{character};
    }
}

}  // namespace
}  // namespace tallymere
