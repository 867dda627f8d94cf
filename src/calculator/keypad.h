// The keypad of the calculator: 72 keys in 8 rows. Captions and actions depend on the number type,
// the angle unit and the case of letters.
#pragma once

#include <cstdint>
#include <iterator>

#include "calculator/key_texts.h"
#include "layout/font_form.h"
#include "layout/rgb_colour.h"

namespace tallymere {

inline constexpr int32_t KeyColumns = 9;
inline constexpr int32_t KeyRows = 8;
inline constexpr int32_t KeyCount = KeyColumns * KeyRows;

/// The id of the window of the first key. The ids of the others follow, row by row.
inline constexpr int32_t FirstKeyId = 100'000;

/// The key CA, which is Stop during a long calculation.
inline constexpr int32_t StopKey = 0;
/// A fixed text: the German interface shows it too.
inline constexpr const char16_t* StopCaption = u"Stop";

/// The class of a key. It decides the colour of the caption.
enum KeyClass : int32_t {
    KeyClassNone = 0,  ///< of an empty key
    KeyClassDigit = 1,
    KeyClassOperator = 2,
    KeyClassClear = 3,
    KeyClassFunction = 4,
    KeyClassStructure = 5,
    KeyClassComplex = 6,
    KeyClassCount,
};

/// The colours of the classes. The index is a KeyClass.
inline constexpr RgbColour KeyColours[] = {
    {0, 0, 0}, {0, 100, 0}, {0, 100, 0}, {255, 0, 0}, {0, 0, 255}, {0, 0, 0}, {128, 0, 0},
};
static_assert(std::size(KeyColours) == KeyClassCount);

/// The pixels that stay free to the left and to the right of a drawn caption.
inline constexpr int32_t KeyCaptionMargin = 3;

enum KeyFont : int32_t {
    KeyFontPlain,
    KeyFontArrow,
    KeyFontPi,
    KeyFontNarrow,
    KeyFontCount,
};

/// The fonts of the keys. The index is a KeyFont.
inline constexpr FontForm KeyFonts[] = {
    {u"Verdana", 13}, {u"Consolas", 22}, {u"Consolas", 13}, {u"Verdana", 12}};
static_assert(std::size(KeyFonts) == KeyFontCount);

/// The characters of the longest caption, without the terminating 0.
inline constexpr int64_t KeyCaptionCharacters = 8;

struct KeyInfo {
    char16_t caption[KeyCaptionCharacters + 1] = {};
    KeyAction action = ActionNone;
    KeyClass colourClass = KeyClassNone;
    KeyFont font = KeyFontPlain;
};

/// The key at `index`. It has no caption and no action when the number type has no use for it, or
/// when `index` is outside 0 to 71.
KeyInfo KeypadEntry(int32_t index, const KeypadStyle& style);

/// The index of the key that has an action in a number type; -1 for none.
int32_t KeyOfAction(KeyAction action, NumberType type);

}  // namespace tallymere
