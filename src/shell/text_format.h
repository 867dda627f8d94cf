// The formatter of all messages: "%s", "%c", "%d" and "%%", without widths or precisions.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "shell/text_sink.h"

namespace tallymere {

/// One argument of a format. It knows its kind, so a format cannot misread it. It owns nothing: a
/// text must live as long as the call.
struct FormatArgument {
    enum Kind { Text, Char, Number };

    // Implicit conversions, so that a call can list plain values.
    FormatArgument(const char16_t* value) : kind(Text), text(value) {}
    FormatArgument(char16_t value) : kind(Char), character(value) {}
    FormatArgument(int32_t value) : kind(Number), number(value) {}

    Kind kind;
    union {
        const char16_t* text;
        char16_t character;
        int32_t number;
    };
};

/// Appends `format` to the sink. The arguments are used in order: "%s" takes a text, "%c" a
/// character and "%d" a signed number, written in decimal. "%%" gives "%". A "%" with any other
/// character behind it, or at the end of the format, gives "?" and uses no argument. An argument
/// that is missing, a null text, or of another kind than its specifier gives "?" too. Does nothing
/// when the sink has overflowed before.
void FormatIntoSink(TextSink& sink, const char16_t* format,
                    std::initializer_list<FormatArgument> arguments = {});

/// Formats into a buffer of capacity + 1 characters, capacity >= 0, and ends the text with a 0. A
/// text longer than the capacity ends with an ellipsis and raises UiErrorTextOverflow.
void FormatBounded(char16_t* buffer, int64_t capacity, const char16_t* format,
                   std::initializer_list<FormatArgument> arguments = {});

}  // namespace tallymere
