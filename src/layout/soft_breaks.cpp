#include "layout/soft_breaks.h"

#include <algorithm>

namespace tallymere {

namespace {

constexpr std::u16string_view LineEnd = u"\r\n";
constexpr auto SoftBreakLength = static_cast<int64_t>(SoftBreak.size());

bool IsHighSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

bool IsLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

// The length of the first piece of a line that needs more than one.
size_t PieceLength(std::u16string_view line, FittingCharacters fitting, void* ruler) {
    const auto fit = static_cast<size_t>(std::max<int64_t>(fitting(ruler, line), 1));
    if (fit >= line.size()) {
        return line.size();
    }
    const bool splitsPair = IsHighSurrogate(line[fit - 1]) && IsLowSurrogate(line[fit]);
    return !splitsPair ? fit : fit == 1 ? 2 : fit - 1;
}

char16_t* CopyLine(char16_t* end, std::u16string_view line, bool goesOn, FittingCharacters fitting,
                   void* ruler) {
    if (goesOn || line.size() > LongLineCharacters) {
        size_t piece = PieceLength(line, fitting, ruler);
        while (piece < line.size()) {
            end = std::copy_n(line.begin(), piece, end);
            end = std::copy(SoftBreak.begin(), SoftBreak.end(), end);
            line.remove_prefix(piece);
            piece = PieceLength(line, fitting, ruler);
        }
    }
    return std::copy(line.begin(), line.end(), end);
}

}  // namespace

int64_t InsertSoftBreaks(char16_t* broken, std::u16string_view text, bool goesOn,
                         FittingCharacters fitting, void* ruler) {
    char16_t* end = broken;
    for (;;) {
        const size_t length = std::min(text.find(LineEnd), text.size());
        end = CopyLine(end, text.substr(0, length), goesOn, fitting, ruler);
        goesOn = false;
        if (length == text.size()) {
            break;
        }
        end = std::copy(LineEnd.begin(), LineEnd.end(), end);
        text.remove_prefix(length + LineEnd.size());
    }
    *end = 0;
    return end - broken;
}

LastPiece FindLastPiece(std::u16string_view broken) {
    const size_t end = broken.rfind(LineEnd);
    if (end == std::u16string_view::npos) {
        return {0, false};
    }
    const size_t start = end + LineEnd.size();
    return {static_cast<int64_t>(start), broken.substr(0, start).ends_with(SoftBreak)};
}

int64_t RemoveSoftBreaks(char16_t* text, int64_t length) {
    std::u16string_view rest(text, static_cast<size_t>(length));
    char16_t* end = text;
    while (!rest.empty()) {
        const size_t piece = std::min(rest.find(SoftBreak), rest.size());
        end = std::copy_n(rest.begin(), piece, end);
        rest.remove_prefix(std::min(piece + SoftBreak.size(), rest.size()));
    }
    *end = 0;
    return end - text;
}

int64_t PlainPosition(std::u16string_view broken, int64_t position) {
    int64_t plain = position;
    size_t found = broken.find(SoftBreak);
    while (found < static_cast<size_t>(position)) {
        plain -= std::min(position - static_cast<int64_t>(found), SoftBreakLength);
        found = broken.find(SoftBreak, found + SoftBreak.size());
    }
    return plain;
}

int64_t BrokenPosition(std::u16string_view broken, int64_t plain) {
    int64_t position = plain;
    size_t found = broken.find(SoftBreak);
    while (found <= static_cast<size_t>(position)) {
        position += SoftBreakLength;
        found = broken.find(SoftBreak, found + SoftBreak.size());
    }
    return std::min(position, static_cast<int64_t>(broken.size()));
}

}  // namespace tallymere
