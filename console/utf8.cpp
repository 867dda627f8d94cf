#include "console/utf8.h"

#include <algorithm>

namespace tallymere {

namespace {

struct LeadByte {
    int following;            // bytes behind it; -1 for a byte that begins nothing
    unsigned char low, high;  // bounds of the first of them
};

LeadByte ClassifyLead(unsigned char lead) {
    if (lead < 0x80) {
        return {0, 0, 0};
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return {-1, 0, 0};
    }
    if (lead < 0xE0) {
        return {1, 0x80, 0xBF};
    }
    // The tighter bounds leave out overlong forms, surrogates and what is above U+10FFFF.
    switch (lead) {
        case 0xE0:
            return {2, 0xA0, 0xBF};
        case 0xED:
            return {2, 0x80, 0x9F};
        case 0xF0:
            return {3, 0x90, 0xBF};
        case 0xF4:
            return {3, 0x80, 0x8F};
        default:
            return {lead < 0xF0 ? 2 : 3, 0x80, 0xBF};
    }
}

void AppendUtf16(std::u16string& text, char32_t c) {
    if (c < 0x10000) {
        text += static_cast<char16_t>(c);
    } else {
        text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
        text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
}

void AppendUtf8(std::string& bytes, char32_t c) {
    const auto trail = [&](int shift) { bytes += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        bytes += static_cast<char>(c);
    } else if (c < 0x800) {
        bytes += static_cast<char>(0xC0 | (c >> 6));
        trail(0);
    } else if (c < 0x10000) {
        bytes += static_cast<char>(0xE0 | (c >> 12));
        trail(6);
        trail(0);
    } else {
        bytes += static_cast<char>(0xF0 | (c >> 18));
        trail(12);
        trail(6);
        trail(0);
    }
}

bool IsHighSurrogate(char16_t c) {
    return (c & 0xFC00) == 0xD800;
}
bool IsLowSurrogate(char16_t c) {
    return (c & 0xFC00) == 0xDC00;
}

}  // namespace

DecodedText DecodeUtf8(std::string_view bytes) {
    DecodedText decoded;
    size_t i = 0;
    while (i < bytes.size()) {
        const auto lead = static_cast<unsigned char>(bytes[i++]);
        LeadByte form = ClassifyLead(lead);
        char32_t c = form.following <= 0 ? lead : lead & (0x3Fu >> form.following);
        while (form.following > 0 && i < bytes.size()) {
            const auto byte = static_cast<unsigned char>(bytes[i]);
            if (byte < form.low || byte > form.high) {
                break;
            }
            c = (c << 6) | (byte & 0x3Fu);
            form = {form.following - 1, 0x80, 0xBF};
            i++;
        }
        if (form.following == 0) {
            AppendUtf16(decoded.text, c);
            continue;
        }
        if (decoded.firstInvalid == DecodedText::NoPosition) {
            decoded.firstInvalid = decoded.text.size();
        }
        decoded.text += ReplacementCharacter;
    }
    return decoded;
}

void BlankControlCharacters(std::u16string& text) {
    const auto isControl = [](char16_t c) { return c < u' ' || (c >= 0x7F && c <= 0x9F); };
    std::replace_if(text.begin(), text.end(), isControl, u' ');
}

std::string EncodeUtf8(std::u16string_view text) {
    std::string bytes;
    for (size_t i = 0; i < text.size(); i++) {
        const char16_t c = text[i];
        if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            AppendUtf8(bytes, 0x10000 + ((char32_t{c} & 0x3FF) << 10) + (text[++i] & 0x3FF));
        } else if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
            AppendUtf8(bytes, ReplacementCharacter);
        } else {
            AppendUtf8(bytes, c);
        }
    }
    return bytes;
}

}  // namespace tallymere
