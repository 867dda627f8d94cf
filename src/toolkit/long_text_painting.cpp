#include "toolkit/long_text_painting.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <new>
#include <string_view>

#include "toolkit/broken_text.h"
#include "toolkit/control_focus.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// A text of fewer characters is left to the system, however long it takes.
constexpr int64_t LeastOwnText = 65'536;

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
    const int64_t below = AskEdit(field, EM_GETLINECOUNT) - rows.first;
    rows.count = std::max<int64_t>(std::min(room, below), 0);
    return rows;
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

// What of the text is below the rows that were taken.
struct RestOfText {
    std::u16string_view text;
    int64_t position;  // in the whole text
    bool hasRow;       // there is one more row, which may be empty
};

// The rest of the next line, without its line end or soft break.
std::u16string_view NextLine(const RestOfText& rest) {
    std::u16string_view line = rest.text.substr(0, rest.text.find(u'\n'));
    while (line.ends_with(u'\r')) {
        line.remove_suffix(1);
    }
    return line;
}

void Skip(RestOfText& rest, size_t count) {
    rest.text.remove_prefix(count);
    rest.position += static_cast<int64_t>(count);
}

// Takes the next row: a line, or as much of it as the control shows in one row when it has wrapped
// it. `below` is the row below, as the control counts them. It is asked only about a line that is
// too wide for one row, because it walks through its text for each answer.
std::u16string_view TakeRow(HWND field, RestOfText& rest, FieldRuler& ruler, int64_t below) {
    const std::u16string_view line = NextLine(rest);
    if (ruler.Fitting(line) < static_cast<int64_t>(line.size())) {
        const int64_t count =
            AskEdit(field, EM_LINEINDEX, static_cast<WPARAM>(below)) - rest.position;
        if (count > 0 && count < static_cast<int64_t>(line.size())) {
            Skip(rest, static_cast<size_t>(count));
            return line.substr(0, static_cast<size_t>(count));
        }
    }
    const size_t end = rest.text.find(u'\n');
    rest.hasRow = end != rest.text.npos;
    Skip(rest, rest.hasRow ? end + 1 : rest.text.size());
    return line;
}

// Finds what is in each row in view, in `texts`. `text` begins with the first of them, at `start`.
// False when it is not certain, or when not all characters are plain.
bool FindTexts(HWND field, const RowsInView& rows, int64_t start, std::u16string_view text,
               std::u16string_view* texts) {
    FieldRuler ruler(field);
    RestOfText rest = {text, start, true};
    for (int64_t i = 0; i < rows.count; i++) {
        if (!rest.hasRow || !IsPlain(NextLine(rest))) {
            return false;
        }
        texts[i] = TakeRow(field, rest, ruler, rows.first + i + 1);
    }
    const LRESULT next = AskEdit(field, EM_LINEINDEX, static_cast<WPARAM>(rows.first + rows.count));
    return next < 0 ? !rest.hasRow : next == rest.position;
}

// What of the text is shown as selected: nothing without the focus.
TextSelection ShownSelection(HWND field) {
    return GetFocus() == field ? BrokenSelection(field) : TextSelection{};
}

// Draws a part of a row, which begins at `x`, and moves `x` behind it.
void DrawPart(HDC dc, int& x, int y, std::u16string_view part) {
    if (part.empty()) {
        return;
    }
    const auto length = static_cast<int>(part.size());
    ExtTextOutW(dc, x, y, 0, nullptr, ToWide(part.data()), static_cast<UINT>(length), nullptr);
    SIZE size = {};
    GetTextExtentPoint32W(dc, ToWide(part.data()), length, &size);
    x += size.cx;
}

// Draws a row that begins at `x`. What is selected is counted from its first character; it may lie
// outside the row.
void DrawRow(HDC dc, int x, int y, std::u16string_view row, const TextSelection& selected) {
    const auto placeInRow = [&row](int64_t place) {
        return static_cast<size_t>(std::clamp<int64_t>(place, 0, static_cast<int64_t>(row.size())));
    };
    const size_t from = placeInRow(selected.from);
    const size_t to = placeInRow(selected.to);
    DrawPart(dc, x, y, row.substr(0, from));
    const COLORREF text = SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    const COLORREF paper = SetBkColor(dc, GetSysColor(COLOR_HIGHLIGHT));
    DrawPart(dc, x, y, row.substr(from, to - from));
    SetTextColor(dc, text);
    SetBkColor(dc, paper);
    DrawPart(dc, x, y, row.substr(to));
}

// Draws the rows in view. Their text is that of the control from `start` on, at `text`.
void DrawRows(HWND field, HDC dc, const RowsInView& rows, const std::u16string_view* texts,
              int64_t start, const char16_t* text) {
    const TextSelection selection = ShownSelection(field);
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
            const int64_t position = start + (texts[i].data() - text);
            DrawRow(dc, rows.area.left, static_cast<int>(rows.area.top + i * rows.height), texts[i],
                    {selection.from - position, selection.to - position});
        }
    }
    RestoreDC(dc, before);
}

bool IsOfTheUsualKind(HWND field) {
    constexpr LONG_PTR OtherSide = WS_EX_RIGHT | WS_EX_RTLREADING | WS_EX_LEFTSCROLLBAR;
    return IsWindowEnabled(field) &&
           (WindowStyle(field) & (ES_READONLY | ES_CENTER | ES_RIGHT | ES_NOHIDESEL)) == 0 &&
           (GetWindowLongPtrW(field, GWL_EXSTYLE) & OtherSide) == 0;
}

// False when the rows are to be painted by the system.
bool PaintRows(HWND field, WPARAM wParam) {
    if (!IsOfTheUsualKind(field)) {
        return false;
    }
    const RowsInView rows = FindRows(field);
    const LRESULT start = AskEdit(field, EM_LINEINDEX, static_cast<WPARAM>(rows.first));
    const LockedText text(field);
    const std::unique_ptr<std::u16string_view[]> texts(
        new (std::nothrow) std::u16string_view[static_cast<size_t>(rows.count)]);
    if (start < 0 || !text.IsThere() || texts == nullptr ||
        !FindTexts(field, rows, start, text.From(start), texts.get())) {
        return false;
    }
    const char16_t* const first = text.From(start).data();
    if (wParam != 0) {
        DrawRows(field, reinterpret_cast<HDC>(wParam), rows, texts.get(), start, first);
        return true;
    }
    PAINTSTRUCT paint = {};
    DrawRows(field, BeginPaint(field, &paint), rows, texts.get(), start, first);
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
        SetPropW(field, ToWide(SlowPaintingProperty), reinterpret_cast<HANDLE>(1));
    }
    return result;
}

}  // namespace

double longestSystemPainting = 30;

LRESULT PaintLongText(HWND field, WPARAM wParam) {
    if (AskEdit(field, WM_GETTEXTLENGTH) < LeastOwnText) {
        ForgetSlowPainting(field);
        return AskEdit(field, WM_PAINT, wParam);
    }
    if (GetPropW(field, ToWide(SlowPaintingProperty)) != nullptr && PaintRows(field, wParam)) {
        return 0;
    }
    return PaintBySystem(field, wParam);
}

void ForgetSlowPainting(HWND field) {
    RemovePropW(field, ToWide(SlowPaintingProperty));
}

}  // namespace tallymere
