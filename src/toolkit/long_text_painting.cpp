#include "toolkit/long_text_painting.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string_view>

#include "toolkit/broken_text.h"
#include "toolkit/control_focus.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// A text of fewer characters is left to the system, however long it takes.
constexpr int64_t LeastOwnText = 65'536;

// The field that the system has been slow with; null for none.
HWND slowField = nullptr;

// Where the rows in view are, in pixels and in lines of the control.
struct RowsInView {
    RECT area;
    int32_t height;  // of a row
    int64_t first;
    int64_t count;
};

// A text of the control, where it lies.
class LockedText {
public:
    explicit LockedText(HWND field)
        : memory_(reinterpret_cast<HLOCAL>(AskEdit(field, EM_GETHANDLE))),
          length_(static_cast<size_t>(AskEdit(field, WM_GETTEXTLENGTH))),
          text_(memory_ != nullptr ? static_cast<const char16_t*>(LocalLock(memory_)) : nullptr) {}
    ~LockedText() {
        if (text_ != nullptr) {
            LocalUnlock(memory_);
        }
    }
    LockedText(const LockedText&) = delete;
    LockedText& operator=(const LockedText&) = delete;

    bool IsThere() const { return text_ != nullptr; }
    std::u16string_view From(int64_t position) const {
        return std::u16string_view(text_, length_).substr(static_cast<size_t>(position));
    }

private:
    HLOCAL memory_;
    size_t length_;
    const char16_t* text_;
};

// Selects the font of a field into a device context while it lives.
class FieldFont {
public:
    FieldFont(HWND field, HDC dc)
        : dc_(dc), before_(SelectObject(dc, reinterpret_cast<HFONT>(AskEdit(field, WM_GETFONT)))) {}
    ~FieldFont() { SelectObject(dc_, before_); }
    FieldFont(const FieldFont&) = delete;
    FieldFont& operator=(const FieldFont&) = delete;

private:
    HDC dc_;
    HGDIOBJ before_;
};

int32_t RowHeight(HWND field) {
    const HDC dc = GetDC(field);
    TEXTMETRICW metrics = {};
    {
        const FieldFont font(field, dc);
        GetTextMetricsW(dc, &metrics);
    }
    ReleaseDC(field, dc);
    return std::max<int32_t>(metrics.tmHeight, 1);
}

RowsInView FindRows(HWND field) {
    RowsInView rows = {};
    AskEdit(field, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&rows.area));
    rows.height = RowHeight(field);
    rows.first = AskEdit(field, EM_GETFIRSTVISIBLELINE);
    const int64_t room = (rows.area.bottom - rows.area.top + rows.height - 1) / rows.height;
    rows.count = std::min<int64_t>(room, AskEdit(field, EM_GETLINECOUNT) - rows.first);
    return rows;
}

// Takes the next row from the rest of a text, without its line end or soft break.
std::u16string_view TakeRow(std::u16string_view& rest) {
    const size_t end = std::min(rest.find(u'\n'), rest.size());
    std::u16string_view row = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    while (row.ends_with(u'\r')) {
        row.remove_suffix(1);
    }
    return row;
}

// Whether the characters are put side by side in every font, from left to right. The narrow space
// may part groups of digits.
bool IsPlain(std::u16string_view row) {
    constexpr char16_t LastLatin = 0x17F;
    constexpr char16_t NarrowSpace = 0x202F;
    return std::ranges::all_of(row, [](char16_t c) {
        return (c >= u' ' && c < 0x7F) || (c > 0x9F && c <= LastLatin) || c == NarrowSpace;
    });
}

// Whether each row in view is one line of the text, with plain characters alone. `text` begins with
// the first of them.
bool AreRowsLines(HWND field, const RowsInView& rows, int64_t start, std::u16string_view text) {
    std::u16string_view rest = text;
    for (int64_t i = 0; i < rows.count; i++) {
        // Had the control wrapped one of its last lines, there would be fewer of them.
        const bool isLast = i + 1 == rows.count;
        if ((!isLast && rest.find(u'\n') == rest.npos) || !IsPlain(TakeRow(rest))) {
            return false;
        }
    }
    // Had it wrapped one of these, the next row would begin before the rest.
    const LRESULT next = AskEdit(field, EM_LINEINDEX, static_cast<WPARAM>(rows.first + rows.count));
    return next < 0 || next - start == static_cast<LRESULT>(text.size() - rest.size());
}

void DrawRows(HWND field, HDC dc, const RowsInView& rows, std::u16string_view text) {
    const int before = SaveDC(dc);
    {
        const FieldFont font(field, dc);
        const LRESULT brush =
            SendMessageW(GetParent(field), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc),
                         reinterpret_cast<LPARAM>(field));
        RECT client = {};
        GetClientRect(field, &client);
        FillRect(dc, &client, reinterpret_cast<HBRUSH>(brush));
        IntersectClipRect(dc, rows.area.left, rows.area.top, rows.area.right, rows.area.bottom);
        for (int64_t i = 0; i < rows.count; i++) {
            const std::u16string_view row = TakeRow(text);
            const int top = static_cast<int>(rows.area.top + i * rows.height);
            ExtTextOutW(dc, rows.area.left, top, 0, nullptr, ToWide(row.data()),
                        static_cast<UINT>(row.size()), nullptr);
        }
    }
    RestoreDC(dc, before);
}

bool IsOfTheUsualKind(HWND field) {
    return IsWindowEnabled(field) &&
           (WindowStyle(field) & (ES_READONLY | ES_CENTER | ES_RIGHT)) == 0;
}

// False when the rows are to be painted by the system.
bool PaintRows(HWND field, WPARAM wParam) {
    const TextSelection selection = BrokenSelection(field);
    if (!IsOfTheUsualKind(field) || selection.from != selection.to) {
        return false;
    }
    const RowsInView rows = FindRows(field);
    const LRESULT start = AskEdit(field, EM_LINEINDEX, static_cast<WPARAM>(rows.first));
    const LockedText text(field);
    if (start < 0 || !text.IsThere() || !AreRowsLines(field, rows, start, text.From(start))) {
        return false;
    }
    if (wParam != 0) {
        DrawRows(field, reinterpret_cast<HDC>(wParam), rows, text.From(start));
        return true;
    }
    PAINTSTRUCT paint = {};
    DrawRows(field, BeginPaint(field, &paint), rows, text.From(start));
    EndPaint(field, &paint);
    return true;
}

// Notes whether it took long.
LRESULT PaintBySystem(HWND field, WPARAM wParam) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    const LRESULT result = AskEdit(field, WM_PAINT, wParam);
    const std::chrono::duration<double, std::milli> passed = Clock::now() - start;
    if (passed.count() > longestSystemPainting) {
        slowField = field;
    }
    return result;
}

}  // namespace

double longestSystemPainting = 30;

LRESULT PaintLongText(HWND field, WPARAM wParam) {
    if (AskEdit(field, WM_GETTEXTLENGTH) < LeastOwnText) {
        slowField = field == slowField ? nullptr : slowField;
        return AskEdit(field, WM_PAINT, wParam);
    }
    if (field == slowField && PaintRows(field, wParam)) {
        return 0;
    }
    return PaintBySystem(field, wParam);
}

}  // namespace tallymere
