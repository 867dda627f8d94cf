#include "toolkit/long_text_field.h"

#include <algorithm>
#include <memory>
#include <new>
#include <string_view>

#include "layout/soft_breaks.h"
#include "toolkit/control_data.h"
#include "toolkit/standard_controls.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// A text on the heap. Without memory for it the text is empty.
struct HeapText {
    explicit HeapText(int64_t characters)
        : buffer(new (std::nothrow) char16_t[static_cast<size_t>(characters) + 1]()) {}

    std::u16string_view View() const { return {buffer.get(), static_cast<size_t>(length)}; }

    std::unique_ptr<char16_t[]> buffer;
    int64_t length = 0;
};

struct Selection {
    int64_t from;
    int64_t to;
};

// What the control makes of a message by the procedure of its class, as if it were not a control of
// the toolkit.
LRESULT AskControl(HWND field, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    const auto procedure = reinterpret_cast<WNDPROC>(GetClassLongPtrW(field, GCLP_WNDPROC));
    return CallWindowProcW(procedure, field, message, wParam, lParam);
}

// Only then can there be soft breaks in it.
bool IsLong(HWND field) {
    return AskControl(field, WM_GETTEXTLENGTH) > LongLineCharacters;
}

// The text as the control has it.
HeapText BrokenText(HWND field) {
    HeapText text(AskControl(field, WM_GETTEXTLENGTH));
    if (text.buffer != nullptr) {
        const auto size = AskControl(field, WM_GETTEXTLENGTH) + 1;
        text.length = AskControl(field, WM_GETTEXT, static_cast<WPARAM>(size),
                                 reinterpret_cast<LPARAM>(text.buffer.get()));
    }
    return text;
}

HeapText PlainText(HWND field) {
    HeapText text = BrokenText(field);
    if (text.buffer != nullptr) {
        text.length = RemoveSoftBreaks(text.buffer.get(), text.length);
    }
    return text;
}

// In the text as the control has it.
Selection BrokenSelection(HWND field) {
    DWORD from = 0;
    DWORD to = 0;
    AskControl(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return {from, to};
}

void SelectBroken(HWND field, Selection selection) {
    AskControl(field, EM_SETSEL, static_cast<WPARAM>(selection.from), selection.to);
}

Selection PlainSelection(HWND field) {
    const HeapText text = BrokenText(field);
    const Selection broken = BrokenSelection(field);
    return {PlainPosition(text.View(), broken.from), PlainPosition(text.View(), broken.to)};
}

void SelectPlain(HWND field, Selection selection) {
    const HeapText text = BrokenText(field);
    SelectBroken(field, {BrokenPosition(text.View(), selection.from),
                         BrokenPosition(text.View(), selection.to)});
}

// Measures in the font of a field, as wide as its lines.
class FieldRuler {
public:
    explicit FieldRuler(HWND field) : field_(field), dc_(GetDC(field)) {
        RECT room = {};
        AskControl(field, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
        width_ = std::max<int>(room.right - room.left, 0);
        fontBefore_ = SelectObject(dc_, reinterpret_cast<HFONT>(AskControl(field, WM_GETFONT)));
    }
    ~FieldRuler() {
        SelectObject(dc_, fontBefore_);
        ReleaseDC(field_, dc_);
    }
    FieldRuler(const FieldRuler&) = delete;
    FieldRuler& operator=(const FieldRuler&) = delete;

    // Each character that is looked at takes its time, so that not many more than those of the line
    // before are.
    int64_t Fitting(std::u16string_view next) {
        int fitting = 0;
        int count = 0;
        do {
            count = static_cast<int>(std::min<size_t>(next.size(), window_));
            SIZE size = {};
            GetTextExtentExPointW(dc_, ToWide(next.data()), count, width_, &fitting, nullptr,
                                  &size);
            window_ = static_cast<size_t>(fitting) * 5 / 4 + 16;
        } while (fitting == count && static_cast<size_t>(count) < next.size());
        return fitting;
    }

private:
    HWND field_;
    HDC dc_;
    int width_;
    HGDIOBJ fontBefore_;
    size_t window_ = 64;
};

int64_t FittingOf(void* ruler, std::u16string_view next) {
    return static_cast<FieldRuler*>(ruler)->Fitting(next);
}

HeapText BreakText(HWND field, std::u16string_view text) {
    HeapText broken(static_cast<int64_t>(text.size()) * BrokenPerPlain);
    if (broken.buffer != nullptr) {
        FieldRuler ruler(field);
        broken.length = InsertSoftBreaks(broken.buffer.get(), text, FittingOf, &ruler);
    }
    return broken;
}

LRESULT WriteText(HWND field, const char16_t* text) {
    const std::u16string_view plain = text != nullptr ? text : u"";
    if (plain.size() <= LongLineCharacters) {
        return AskControl(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    }
    const HeapText broken = BreakText(field, plain);
    if (broken.buffer == nullptr) {
        return FALSE;
    }
    return AskControl(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(broken.buffer.get()));
}

// Puts the soft breaks where they belong after a change of text or width.
void BreakAnew(HWND field) {
    const HeapText before = BrokenText(field);
    const HeapText plain = PlainText(field);
    if (before.buffer == nullptr || plain.buffer == nullptr) {
        return;
    }
    const HeapText after = BreakText(field, plain.View());
    if (after.buffer == nullptr || after.View() == before.View()) {
        return;
    }
    const Selection selection = PlainSelection(field);
    const LRESULT firstLine = AskControl(field, EM_GETFIRSTVISIBLELINE);
    AskControl(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(after.buffer.get()));
    SelectPlain(field, selection);
    AskControl(field, EM_LINESCROLL, 0, firstLine);
}

// Lets the control handle what may change the text.
LRESULT ChangeText(HWND field, UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = AskControl(field, message, wParam, lParam);
    BreakAnew(field);
    AskControl(field, EM_SCROLLCARET);
    return result;
}

LRESULT ReadText(HWND field, WPARAM size, LPARAM buffer) {
    const HeapText text = PlainText(field);
    if (size == 0 || text.buffer == nullptr) {
        return 0;
    }
    const size_t count = std::min(text.View().size(), static_cast<size_t>(size) - 1);
    auto* target = reinterpret_cast<char16_t*>(buffer);
    *std::copy_n(text.buffer.get(), count, target) = 0;
    return static_cast<LRESULT>(count);
}

LRESULT ReadSelection(HWND field, WPARAM from, LPARAM to) {
    const Selection selection = PlainSelection(field);
    if (from != 0) {
        *reinterpret_cast<DWORD*>(from) = static_cast<DWORD>(selection.from);
    }
    if (to != 0) {
        *reinterpret_cast<DWORD*>(to) = static_cast<DWORD>(selection.to);
    }
    constexpr int64_t LargestWord = 0xFFFF;
    return selection.to > LargestWord
               ? -1
               : MAKELRESULT(static_cast<WORD>(selection.from), static_cast<WORD>(selection.to));
}

// Negative positions have a meaning of their own.
LRESULT WriteSelection(HWND field, WPARAM from, LPARAM to) {
    const HeapText text = BrokenText(field);
    const auto start = static_cast<int64_t>(static_cast<int32_t>(from));
    const int64_t end = static_cast<int32_t>(to);
    const int64_t brokenStart = start < 0 ? start : BrokenPosition(text.View(), start);
    const int64_t brokenEnd = end < 0 ? end : BrokenPosition(text.View(), end);
    return AskControl(field, EM_SETSEL, static_cast<WPARAM>(brokenStart), brokenEnd);
}

void TellChange(HWND field) {
    SendMessageW(GetParent(field), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(field), EN_CHANGE),
                 reinterpret_cast<LPARAM>(field));
}

// The text is put together outside of the control, which would wrap a long insertion at once.
void ReplaceSelection(HWND field, std::u16string_view insertion) {
    const HeapText before = PlainText(field);
    const Selection selection = PlainSelection(field);
    HeapText after(before.length + static_cast<int64_t>(insertion.size()));
    if (before.buffer == nullptr || after.buffer == nullptr) {
        return;
    }
    char16_t* end = std::copy_n(before.buffer.get(), selection.from, after.buffer.get());
    end = std::copy(insertion.begin(), insertion.end(), end);
    std::copy(before.buffer.get() + selection.to, before.buffer.get() + before.length, end);
    const int64_t caret = end - after.buffer.get();
    const LRESULT firstLine = AskControl(field, EM_GETFIRSTVISIBLELINE);
    WriteText(field, after.buffer.get());
    SelectPlain(field, {caret, caret});
    AskControl(field, EM_LINESCROLL, 0, firstLine);
    AskControl(field, EM_SCROLLCARET);
    TellChange(field);
}

bool IsLongWith(HWND field, std::u16string_view insertion) {
    return static_cast<int64_t>(insertion.size()) + AskControl(field, WM_GETTEXTLENGTH) >
           LongLineCharacters;
}

// The clipboard's text, locked as long as the record lives.
class ClipboardText {
public:
    explicit ClipboardText(HWND owner) : isOpen_(OpenClipboard(owner) != 0) {
        memory_ = isOpen_ ? GetClipboardData(CF_UNICODETEXT) : nullptr;
        text_ = memory_ != nullptr ? static_cast<const wchar_t*>(GlobalLock(memory_)) : nullptr;
    }
    ~ClipboardText() {
        if (text_ != nullptr) {
            GlobalUnlock(memory_);
        }
        if (isOpen_) {
            CloseClipboard();
        }
    }
    ClipboardText(const ClipboardText&) = delete;
    ClipboardText& operator=(const ClipboardText&) = delete;

    std::u16string_view View() const { return text_ != nullptr ? FromWide(text_) : u""; }

private:
    bool isOpen_;
    HANDLE memory_;
    const wchar_t* text_;
};

void PutOnClipboard(HWND owner, std::u16string_view text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
    if (memory == nullptr || OpenClipboard(owner) == 0) {
        GlobalFree(memory);
        return;
    }
    auto* copy = static_cast<char16_t*>(GlobalLock(memory));
    *std::copy(text.begin(), text.end(), copy) = 0;
    GlobalUnlock(memory);
    EmptyClipboard();
    if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr) {
        GlobalFree(memory);
    }
    CloseClipboard();
}

void CopySelection(HWND field) {
    const HeapText text = PlainText(field);
    const Selection selection = PlainSelection(field);
    if (selection.from < selection.to) {
        PutOnClipboard(field,
                       text.View().substr(static_cast<size_t>(selection.from),
                                          static_cast<size_t>(selection.to - selection.from)));
    }
}

// Backspace behind a soft break and Delete before one mean the character beyond it.
void ReachOverSoftBreak(HWND field, bool backwards) {
    const HeapText text = BrokenText(field);
    const auto [from, to] = BrokenSelection(field);
    constexpr auto Length = static_cast<int64_t>(SoftBreak.size());
    const int64_t start = backwards ? from - Length : from;
    if (from != to || start < 1 ||
        text.View().substr(static_cast<size_t>(start), SoftBreak.size()) != SoftBreak) {
        return;
    }
    SelectBroken(field, backwards ? Selection{start - 1, to} : Selection{from, to + Length + 1});
}

bool IsPlainDelete(WPARAM key) {
    return key == VK_DELETE && GetKeyState(VK_SHIFT) >= 0 && GetKeyState(VK_CONTROL) >= 0;
}

// Messages to a field whose text is long.
LRESULT HandleLong(HWND field, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    callDefault = false;
    switch (message) {
        case WM_GETTEXT:
            return ReadText(field, wParam, lParam);
        case WM_GETTEXTLENGTH:
            return PlainText(field).length;
        case EM_GETSEL:
            return ReadSelection(field, wParam, lParam);
        case EM_SETSEL:
            return WriteSelection(field, wParam, lParam);
        case WM_COPY:
            CopySelection(field);
            return 0;
        case WM_CUT:
            CopySelection(field);
            return ChangeText(field, WM_CLEAR, 0, 0);
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
            return ChangeText(field, message, wParam, lParam);
        case WM_CHAR:
            if (wParam == VK_BACK || wParam == u'\n' || wParam >= VK_SPACE) {
                if (wParam == VK_BACK) {
                    ReachOverSoftBreak(field, true);
                }
                return ChangeText(field, message, wParam, lParam);
            }
            break;
        case WM_KEYDOWN:
            if (IsPlainDelete(wParam)) {
                ReachOverSoftBreak(field, false);
                return ChangeText(field, message, wParam, lParam);
            }
            break;
        case WM_SIZE:
        case WM_SETFONT: {
            const LRESULT result = AskControl(field, message, wParam, lParam);
            BreakAnew(field);
            return result;
        }
        default:
            break;
    }
    callDefault = true;
    return 0;
}

}  // namespace

HWND CreateLongTextField(HWND parent, const LayoutRect& place, const char16_t* text) {
    const HWND field = CreateEdit(parent, place, nullptr,
                                  ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL, WS_EX_CLIENTEDGE);
    SetControlHandler(field, HandleLongText);
    SetWindowTextW(field, ToWide(text));
    return field;
}

bool IsPasteKey(UINT message, WPARAM wParam) {
    return message == WM_KEYDOWN && wParam == VK_INSERT && GetKeyState(VK_SHIFT) < 0;
}

LRESULT HandleLongText(HWND field, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if (IsPasteKey(message, wParam)) {
        callDefault = false;
        SendMessageW(field, WM_PASTE, 0, 0);
        return 0;
    }
    switch (message) {
        case WM_SETTEXT:
            callDefault = false;
            return WriteText(field, reinterpret_cast<const char16_t*>(lParam));
        case EM_REPLACESEL: {
            const auto* insertion = reinterpret_cast<const char16_t*>(lParam);
            if (insertion != nullptr && IsLongWith(field, insertion)) {
                callDefault = false;
                ReplaceSelection(field, insertion);
            }
            return 0;
        }
        case WM_PASTE: {
            const ClipboardText clipboard(field);
            if (IsLongWith(field, clipboard.View())) {
                callDefault = false;
                ReplaceSelection(field, clipboard.View());
            }
            return 0;
        }
        default:
            return IsLong(field) ? HandleLong(field, message, wParam, lParam, callDefault) : 0;
    }
}

}  // namespace tallymere
