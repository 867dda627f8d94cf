#include "calculator/windows/long_text_field.h"

#include <string_view>

#include "toolkit/environment.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

constexpr size_t PieceCharacters = 256;

// Up to here a field is as fast with the whole text.
constexpr int64_t ShortTextCharacters = 1000;

struct Selection {
    DWORD from = 0;
    DWORD to = 0;
};

Selection SelectionOf(HWND field) {
    Selection selection;
    SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&selection.from),
                 reinterpret_cast<LPARAM>(&selection.to));
    return selection;
}

// The text of a field, of whatever length; null when there is no memory for it.
struct FieldText {
    FieldText(HWND field, int64_t length)
        : text(static_cast<wchar_t*>(
              HeapAlloc(GetProcessHeap(), 0, static_cast<size_t>(length + 1) * sizeof(wchar_t)))) {
        if (text != nullptr) {
            GetWindowTextW(field, text, static_cast<int>(length + 1));
        }
    }
    ~FieldText() { HeapFree(GetProcessHeap(), 0, text); }
    FieldText(const FieldText&) = delete;
    FieldText& operator=(const FieldText&) = delete;

    wchar_t* text;
};

// Nothing is drawn before all is done.
struct DrawnAtOnce {
    explicit DrawnAtOnce(HWND window) : field(window) {
        SendMessageW(field, WM_SETREDRAW, FALSE, 0);
    }
    ~DrawnAtOnce() {
        SendMessageW(field, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(field, nullptr, TRUE);
    }
    DrawnAtOnce(const DrawnAtOnce&) = delete;
    DrawnAtOnce& operator=(const DrawnAtOnce&) = delete;

    HWND field;
};

void InsertInPieces(HWND field, std::u16string_view text) {
    char16_t piece[PieceCharacters + 1];
    while (!text.empty()) {
        const size_t length = text.copy(piece, PieceCharacters);
        piece[length] = 0;
        SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(piece));
        text.remove_prefix(length);
    }
}

}  // namespace

void WriteLongText(HWND field, const char16_t* text) {
    const std::u16string_view whole = text;
    if (whole.size() <= ShortTextCharacters) {
        SetWindowTextW(field, ToWide(text));
        return;
    }
    const DrawnAtOnce drawing(field);
    SetWindowTextW(field, L"");
    InsertInPieces(field, whole);
    SendMessageW(field, EM_EMPTYUNDOBUFFER, 0, 0);
    SendMessageW(field, EM_SETSEL, 0, 0);
    SendMessageW(field, EM_SCROLLCARET, 0, 0);
}

void PlaceLongTextField(HWND field, const LayoutRect& place) {
    const LayoutRect before = PlaceInParent(field);
    const int64_t length = GetWindowTextLengthW(field);
    const bool isSized = place.width != before.width || place.height != before.height;
    const auto move = [&] {
        SetWindowPos(field, nullptr, place.x, place.y, place.width, place.height,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    };
    if (!isSized || length <= ShortTextCharacters) {
        move();
        return;
    }
    const FieldText whole(field, length);
    const Selection selection = SelectionOf(field);
    if (whole.text != nullptr) {
        SetWindowTextW(field, L"");
    }
    move();
    if (whole.text != nullptr) {
        WriteLongText(field, FromWide(whole.text));
        SendMessageW(field, EM_SETSEL, selection.from, static_cast<LPARAM>(selection.to));
        SendMessageW(field, EM_SCROLLCARET, 0, 0);
    }
}

bool PasteLongText(HWND field) {
    if (static_cast<int64_t>(SelectionOf(field).to) != GetWindowTextLengthW(field) ||
        OpenClipboard(field) == 0) {
        return false;
    }
    bool isPasted = false;
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    const auto* text =
        memory != nullptr ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
    if (text != nullptr) {
        const std::u16string_view whole = FromWide(text);
        isPasted = whole.size() > ShortTextCharacters;
        if (isPasted) {
            const DrawnAtOnce drawing(field);
            InsertInPieces(field, whole);
        }
        GlobalUnlock(memory);
    }
    CloseClipboard();
    SendMessageW(field, EM_SCROLLCARET, 0, 0);
    return isPasted;
}

}  // namespace tallymere
