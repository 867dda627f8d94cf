#include "reference/settings_twins.h"

#include <algorithm>

namespace tallymere::reference {

namespace {

using Text = std::u16string_view;

// find_first_of and find_first_not_of, with the end of the text for what is not there.
size_t Find(Text text, Text any, size_t from) {
    return std::min(text.find_first_of(any, from), text.size());
}
size_t FindOther(Text text, Text any, size_t from) {
    return std::min(text.find_first_not_of(any, from), text.size());
}

bool StartsAt(Text text, size_t at, Text part) {
    return text.substr(at).starts_with(part);
}

// The value from `from` on; `next` becomes the start of the line behind it.
Text Value(Text text, size_t from, size_t& next) {
    const size_t begin = FindOther(text, u" ", from);
    const size_t end = Find(text, u"\r\n", begin);
    next = std::min(end + (StartsAt(text, end, u"\r") ? 2 : 1), text.size());
    return text.substr(begin, end - begin);
}

size_t PassSection(Text text, size_t at, Text section) {
    const size_t start = FindOther(text, u" ", at);
    if (!StartsAt(text, start, section)) {
        return at;
    }
    return std::min(Find(text, u"\n", start + section.size()) + 1, text.size());
}

}  // namespace

TwinSettings TwinReadSettings(Text text) {
    text = text.substr(0, text.find(u'\0'));
    TwinSettings twin;
    size_t at = 0;
    const auto readKeys = [&](std::initializer_list<Text> keys) {
        for (const Text key : keys) {
            const size_t start = FindOther(text, u" ", at);
            const size_t equals = FindOther(text, u" ", std::min(start + key.size(), text.size()));
            const bool found = StartsAt(text, start, key) && StartsAt(text, equals, u"=");
            twin.values.emplace_back(found ? Value(text, equals + 1, at) : Text());
        }
    };
    at = PassSection(text, at, u"[options]");
    readKeys({u"language", u"decimal_separator", u"thousands_separator", u"thousands_sep_sci_calc",
              u"thousands_sep_equations", u"thousands_sep_prime_nums"});
    at = PassSection(text, at, u"[scientific_calculator]");
    readKeys({u"angle_type", u"number_type", u"decimal_precision", u"output_number_base",
              u"use_lower_case_hex"});
    for (;;) {
        const size_t start = FindOther(text, u" ", at);
        const size_t digit = start + 8;
        if (!StartsAt(text, start, u"variable") || Find(text, u"0123456789", digit) != digit ||
            digit == text.size()) {
            break;
        }
        const size_t equals = Find(text, u"=\r\n", digit);
        if (!StartsAt(text, equals, u"=")) {
            at = std::min(Find(text, u"\n", equals) + 1, text.size());
            continue;
        }
        const Text value = Value(text, equals + 1, at);
        if (!value.empty() && twin.variables.size() < 100) {
            const size_t split = std::min(value.find(u';'), value.size());
            twin.variables.emplace_back(value.substr(0, split),
                                        value.substr(std::min(split + 1, value.size())));
        }
    }
    at = PassSection(text, at, u"[hints]");
    readKeys({u"show_welcome_hint"});
    return twin;
}

}  // namespace tallymere::reference
