// Texts and numbers as JSON, for the helper programs of the window tests.
#pragma once

#include <concepts>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace tallymere {

/// A string of JSON in ASCII. Text is UTF-16 in units of any integer type, and a unit outside ASCII
/// is written as an escape, so that half a surrogate pair arrives as it is.
template <typename Unit>
std::string JsonText(std::basic_string_view<Unit> text) {
    std::string json = "\"";
    for (const Unit unit : text) {
        const auto code = static_cast<uint16_t>(unit);
        if (code < 0x20 || code > 0x7E || code == '"' || code == '\\') {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", unsigned{code});
            json += escape;
        } else {
            json += static_cast<char>(code);
        }
    }
    return json + '"';
}

/// An object or array, member by member.
class JsonList {
public:
    JsonList(char opening, char closing) : json(1, opening), end(closing) {}

    /// Adds an element that is JSON already.
    void Add(const std::string& element) {
        if (json.size() > 1) {
            json += ", ";
        }
        json += element;
    }

    void Add(const char* name, const std::string& value) {
        Add('"' + std::string(name) + "\": " + value);
    }

    /// Takes no enumerator, which would become a flag.
    template <std::integral Value>
    void Add(const char* name, Value value) {
        if constexpr (std::same_as<Value, bool>) {
            Add(name, std::string(value ? "true" : "false"));
        } else {
            Add(name, std::to_string(value));
        }
    }

    std::string Text() const { return json + end; }

private:
    std::string json;
    char end;
};

inline JsonList JsonObject() {
    return {'{', '}'};
}
inline JsonList JsonArray() {
    return {'[', ']'};
}

}  // namespace tallymere
