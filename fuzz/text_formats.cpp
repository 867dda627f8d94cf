// The formatter of messages beside a plain one, with room for any number of characters.
//
// Input: capacity, count of arguments, these (kind, then a line or a number), then the format.
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "core/text_writer.h"
#include "fuzz/harness_list.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "support/decimal_text.h"

namespace tallymere::fuzz {

namespace {

using Text = std::u16string;

constexpr char16_t Untouched = u'#';

struct Argument {
    char16_t specifier;  // that takes it; 0 for a text that is missing
    Text written;
};

// The arguments as they are given and as they are written.
struct Arguments {
    std::vector<FormatArgument> given;
    std::vector<Argument> expected;
    std::deque<Text> texts;  // that the given ones point to
};

void AddArgument(FuzzInput& input, Arguments& arguments) {
    switch (input.Choice(4)) {
        case 0: {
            const Text& text = arguments.texts.emplace_back(BeforeZero(input.Line(300)));
            arguments.given.emplace_back(text.c_str());
            arguments.expected.push_back({u's', text});
            break;
        }
        case 1: {
            const auto character = static_cast<char16_t>(input.Number(1, 0xFFFF));
            arguments.given.emplace_back(character);
            arguments.expected.push_back({u'c', Text(1, character)});
            break;
        }
        case 2: {
            const auto number = static_cast<int32_t>(input.Number(INT32_MIN, INT32_MAX));
            arguments.given.emplace_back(number);
            arguments.expected.push_back({u'd', testing_support::WideText(std::to_string(number))});
            break;
        }
        default:
            arguments.given.emplace_back(static_cast<const char16_t*>(nullptr));
            arguments.expected.push_back({u's', u"?"});
    }
}

Text Expected(const Text& format, const std::vector<Argument>& arguments) {
    Text text;
    size_t next = 0;
    for (size_t i = 0; i < format.size(); i++) {
        if (format[i] != u'%') {
            text += format[i];
            continue;
        }
        i++;
        const char16_t specifier = i < format.size() ? format[i] : u'\0';
        if (specifier == u'%') {
            text += u'%';
        } else if (specifier == u's' || specifier == u'c' || specifier == u'd') {
            const bool fits = next < arguments.size() && arguments[next].specifier == specifier;
            text += fits ? arguments[next].written : u"?";
            next++;
        } else {
            text += u'?';
        }
    }
    return text;
}

void Format(char16_t* buffer, int64_t capacity, const char16_t* format,
            const std::vector<FormatArgument>& given) {
    switch (given.size()) {
        case 0:
            return FormatBounded(buffer, capacity, format);
        case 1:
            return FormatBounded(buffer, capacity, format, {given[0]});
        case 2:
            return FormatBounded(buffer, capacity, format, {given[0], given[1]});
        default:
            return FormatBounded(buffer, capacity, format, {given[0], given[1], given[2]});
    }
}

}  // namespace

void FuzzTextFormats(FuzzInput& input) {
    const auto capacity = static_cast<size_t>(input.Number(0, 1'000));
    Arguments arguments;
    for (size_t count = input.Choice(4); count > 0; count--) {
        AddArgument(input, arguments);
    }
    const Text format = BeforeZero(input.Text());

    // In a block of just its length, and with another character where nothing may be written.
    std::vector<char16_t> buffer(capacity + 1, Untouched);
    Format(buffer.data(), static_cast<int64_t>(capacity), format.c_str(), arguments.given);

    Text expected = Expected(format, arguments.expected);
    const bool overflows = expected.size() > capacity;
    EXPECT_EQ(PendingUiError(), overflows ? UiErrorTextOverflow : UiErrorNone);
    ClearErrors();
    expected.resize(std::min(expected.size(), capacity));
    if (overflows && capacity > 0) {
        expected.back() = Ellipsis;
    }
    EXPECT_EQ(Text(buffer.data(), expected.size()), expected);
    EXPECT_EQ(buffer[expected.size()], u'\0');
    for (size_t i = expected.size() + 1; i < buffer.size(); i++) {
        EXPECT_EQ(buffer[i], Untouched);
    }
}

}  // namespace tallymere::fuzz
