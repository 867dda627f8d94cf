#include "toolkit/long_text_field.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "layout/soft_breaks.h"
#include "toolkit/broken_text.h"
#include "toolkit/clipboard_text.h"
#include "toolkit/control_data.h"
#include "toolkit/control_focus.h"
#include "toolkit/environment.h"
#include "toolkit/long_text_painting.h"
#include "toolkit/standard_controls.h"
#include "toolkit/text_undo.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// Lets the control handle what may change the text.
LRESULT ChangeText(HWND field, TextChangeKind kind, UINT message, WPARAM wParam = 0,
                   LPARAM lParam = 0) {
    FieldState before = PlainState(field);
    const LRESULT result = AskEdit(field, message, wParam, lParam);
    BreakAnew(field);
    AskEdit(field, EM_SCROLLCARET);
    NoteTextChange(field, std::move(before), PlainState(field), kind);
    return result;
}

void TellChange(HWND field) {
    SendMessageW(GetParent(field), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(field), EN_CHANGE),
                 reinterpret_cast<LPARAM>(field));
}

void ReplaceSelection(HWND field, std::u16string_view insertion, bool canBeUndone) {
    FieldState before = PlainState(field);
    const auto [from, to] = before.selection;
    HeapText after(before.text.length + static_cast<int64_t>(insertion.size()));
    if (!before.text.IsThere() || !after.IsThere()) {
        return;
    }
    const std::u16string_view text = before.text.View();
    char16_t* const start = after.buffer.get();
    char16_t* end = std::copy_n(text.begin(), from, start);
    end = std::copy(insertion.begin(), insertion.end(), end);
    const int64_t caret = RemoveSoftBreaks(start, end - start);
    end = std::copy(text.begin() + to, text.end(), start + caret);
    after.length = end - start;
    if (!ChangePlainText(field, after.View(), {caret, caret})) {
        return;
    }
    if (canBeUndone) {
        NoteTextChange(field, std::move(before), PlainState(field), TextReplaced);
    }
    TellChange(field);
}

TextChange* LastChange(HWND field) {
    return TextChangeTo(field, PlainText(field).View());
}

// False when the last change is none that this file remembers.
bool TakeChangeBack(HWND field) {
    TextChange* change = LastChange(field);
    if (change == nullptr) {
        return false;
    }
    if (ChangePlainText(field, change->before.text.View(), change->before.selection)) {
        TurnTextChange(*change);
        TellChange(field);
    }
    return true;
}

LRESULT ReadText(HWND field, WPARAM size, LPARAM buffer) {
    const HeapText text = PlainText(field);
    if (size == 0 || !text.IsThere()) {
        return 0;
    }
    const size_t count = std::min(text.View().size(), static_cast<size_t>(size) - 1);
    auto* target = reinterpret_cast<char16_t*>(buffer);
    *std::copy_n(text.buffer.get(), count, target) = 0;
    return static_cast<LRESULT>(count);
}

LRESULT ReadSelection(HWND field, WPARAM from, LPARAM to) {
    const TextSelection selection = PlainState(field).selection;
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

// Converts a position in a message. A negative position has a special meaning and stays.
int64_t ToBroken(const HeapText& broken, uint64_t position) {
    const auto plain = static_cast<int32_t>(position);
    return plain < 0 ? plain : BrokenPosition(broken.View(), plain);
}

LRESULT WriteSelection(HWND field, WPARAM from, LPARAM to) {
    const HeapText text = BrokenText(field);
    SelectBroken(field, {ToBroken(text, from), ToBroken(text, static_cast<uint64_t>(to))});
    return 0;
}

LRESULT AskAtPosition(HWND field, UINT message, WPARAM position, LPARAM lParam) {
    const int64_t broken = ToBroken(BrokenText(field), position);
    return AskEdit(field, message, static_cast<WPARAM>(broken), lParam);
}

LRESULT StartOfLine(HWND field, WPARAM line) {
    const LRESULT broken = AskEdit(field, EM_LINEINDEX, line);
    return broken < 0 ? broken : PlainPosition(BrokenText(field).View(), broken);
}

// The answer has only the lower 16 bits of the position, and the line. The start of the line gives
// the upper bits.
LRESULT CharacterAt(HWND field, LPARAM point) {
    const LRESULT found = AskEdit(field, EM_CHARFROMPOS, 0, point);
    const WORD line = HIWORD(found);
    const LRESULT start = AskEdit(field, EM_LINEINDEX, line);
    if (start < 0) {
        return found;
    }
    const WORD fromStart = LOWORD(found - start);
    const int64_t plain = PlainPosition(BrokenText(field).View(), start + fromStart);
    return MAKELRESULT(LOWORD(plain), line);
}

bool IsLongWith(HWND field, std::u16string_view insertion) {
    return static_cast<int64_t>(insertion.size()) + AskEdit(field, WM_GETTEXTLENGTH) >
           LongLineCharacters;
}

// False when the clipboard does not have it.
bool CopySelection(HWND field) {
    const auto [text, selection] = PlainState(field);
    const auto [from, to] = selection;
    return text.IsThere() && from < to &&
           PutOnClipboard(field, text.View().substr(static_cast<size_t>(from),
                                                    static_cast<size_t>(to - from)));
}

bool IsSelected(HWND field) {
    const TextSelection selection = BrokenSelection(field);
    return selection.from != selection.to;
}

// When the caret is at a soft break, a key that moves over a character or erases one means the
// character beyond the soft break.
void StepOverSoftBreak(HWND field, bool backwards) {
    const HeapText text = BrokenText(field);
    const int64_t caret = BrokenSelection(field).from;
    constexpr auto Length = static_cast<int64_t>(SoftBreak.size());
    const int64_t start = backwards ? caret - Length : caret;
    if (text.IsThere() && !IsSelected(field) && start >= 0 &&
        text.View().substr(static_cast<size_t>(start)).starts_with(SoftBreak)) {
        const int64_t beyond = backwards ? start : start + Length;
        SelectBroken(field, {beyond, beyond});
    }
}

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

LRESULT HandleKey(HWND field, WPARAM key, LPARAM lParam, bool& callDefault) {
    const bool withShift = IsHeld(VK_SHIFT);
    const bool withControl = IsHeld(VK_CONTROL);
    switch (key) {
        case VK_INSERT:
            if (withControl) {
                return SendMessageW(field, WM_COPY, 0, 0);
            }
            break;
        case VK_DELETE:
            if (withShift && !withControl && IsSelected(field)) {
                return SendMessageW(field, WM_CUT, 0, 0);
            }
            StepOverSoftBreak(field, withShift);
            return ChangeText(field, TextErased, WM_KEYDOWN, key, lParam);
        case VK_LEFT:
        case VK_RIGHT:
            StepOverSoftBreak(field, key == VK_LEFT);
            break;
        default:
            break;
    }
    callDefault = true;
    return 0;
}

LRESULT HandleCharacter(HWND field, WPARAM character, LPARAM lParam, bool& callDefault) {
    if (character == VK_BACK) {
        StepOverSoftBreak(field, true);
        return ChangeText(field, TextErased, WM_CHAR, character, lParam);
    }
    if (character == u'\n' || character >= VK_SPACE) {
        return ChangeText(field, TextTyped, WM_CHAR, character, lParam);
    }
    callDefault = true;
    return 0;
}

// A control wraps its whole text anew for a new size: seconds for a hundred thousand lines. Whoever
// drags the frame of a window sends many sizes. So a text of more than LongestAtOnce characters is
// wrapped for the last of them.
constexpr int64_t LongestAtOnce = 65'536;
constexpr UINT_PTR SizeTimer = 0x4C54;
constexpr UINT SizeDelayMilliseconds = 200;

void TakeSize(HWND field) {
    KillTimer(field, SizeTimer);
    RECT client = {};
    GetClientRect(field, &client);
    AskEdit(field, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
    if (HasLongText(field)) {
        BreakAnew(field);
    }
}

// False when the system gives no timer.
bool TakeSizeLater(HWND field) {
    return AskEdit(field, WM_GETTEXTLENGTH) > LongestAtOnce &&
           SetTimer(field, SizeTimer, SizeDelayMilliseconds, nullptr) != 0;
}

// Handles a message to a field whose text is long.
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
        case EM_LINEFROMCHAR:
        case EM_LINELENGTH:
        case EM_POSFROMCHAR:
            return AskAtPosition(field, message, wParam, lParam);
        case EM_LINEINDEX:
            return StartOfLine(field, wParam);
        case EM_CHARFROMPOS:
            return CharacterAt(field, lParam);
        case WM_COPY:
            CopySelection(field);
            return 0;
        case WM_CUT:
            // What another program keeps from the clipboard would be in neither place.
            return CopySelection(field) ? ChangeText(field, TextReplaced, WM_CLEAR) : 0;
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
            return ChangeText(field, TextReplaced, message);
        case WM_CHAR:
            return HandleCharacter(field, wParam, lParam, callDefault);
        case WM_KEYDOWN:
            return HandleKey(field, wParam, lParam, callDefault);
        case WM_PAINT:
            return PaintLongText(field, wParam);
        case WM_SIZE:
            if (!TakeSizeLater(field)) {
                TakeSize(field);
            }
            return 0;
        case WM_SETFONT: {
            const LRESULT result = AskEdit(field, message, wParam, lParam);
            BreakAnew(field);
            return result;
        }
        default:
            break;
    }
    callDefault = true;
    return 0;
}

// Puts a text at the end of the system's control. What it could not take whole is taken out again.
bool AppendToControl(HWND field, std::u16string_view text) {
    const LRESULT length = AskEdit(field, WM_GETTEXTLENGTH);
    const int64_t whole = length + static_cast<int64_t>(text.size());
    if (whole > static_cast<uint32_t>(AskEdit(field, EM_GETLIMITTEXT))) {
        return false;
    }
    const auto end = static_cast<WPARAM>(length);
    AskEdit(field, EM_SETSEL, end, length);
    AskEdit(field, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.data()));
    const bool isTaken = AskEdit(field, WM_GETTEXTLENGTH) == whole;
    if (!isTaken) {
        AskEdit(field, EM_SETSEL, end, -1);
        AskEdit(field, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
    }
    AskEdit(field, EM_EMPTYUNDOBUFFER);
    return isTaken;
}

}  // namespace

HWND CreateLongTextField(HWND parent, const LayoutRect& place, const char16_t* text) {
    const HWND field = CreateEdit(parent, place, nullptr,
                                  ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL, WS_EX_CLIENTEDGE);
    SetControlHandler(field, HandleLongText);
    SetWindowTextW(field, ToWide(text));
    return field;
}

bool AppendLongText(HWND field, const char16_t* text) {
    if (!isWine) {
        return AppendToControl(field, text);
    }
    ForgetTextChange(field);
    return AppendPlainText(field, text);
}

bool IsPasteKey(UINT message, WPARAM wParam) {
    return message == WM_KEYDOWN && wParam == VK_INSERT && IsHeld(VK_SHIFT);
}

LRESULT HandleLongText(HWND field, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    if (IsPasteKey(message, wParam)) {
        callDefault = false;
        SendMessageW(field, WM_PASTE, 0, 0);
        return 0;
    }
    if (!isWine) {
        return 0;
    }
    switch (message) {
        case WM_SETTEXT:
            callDefault = false;
            ForgetTextChange(field);
            return WritePlainText(field, reinterpret_cast<const char16_t*>(lParam));
        case EM_REPLACESEL: {
            const auto* insertion = reinterpret_cast<const char16_t*>(lParam);
            if (insertion != nullptr && IsLongWith(field, insertion)) {
                callDefault = false;
                ReplaceSelection(field, insertion, wParam != FALSE);
            }
            return 0;
        }
        case WM_PASTE: {
            const ClipboardText clipboard(field);
            const bool isReadOnly = (WindowStyle(field) & ES_READONLY) != 0;
            if (!isReadOnly && clipboard.IsThere() && IsLongWith(field, clipboard.View())) {
                callDefault = false;
                ReplaceSelection(field, clipboard.View(), true);
            }
            return 0;
        }
        case WM_UNDO:
        case EM_UNDO:
            if (TakeChangeBack(field)) {
                callDefault = false;
                return TRUE;
            }
            // From now on the control itself can do the change again.
            ForgetTextChange(field);
            break;
        case WM_TIMER:
            if (wParam == SizeTimer) {
                callDefault = false;
                TakeSize(field);
                return 0;
            }
            break;
        case EM_CANUNDO:
            if (LastChange(field) != nullptr) {
                callDefault = false;
                return TRUE;
            }
            break;
        case EM_EMPTYUNDOBUFFER:
            ForgetTextChange(field);
            break;
        case WM_NCDESTROY:
            ForgetTextChange(field);
            ForgetSlowPainting(field);
            break;
        default:
            break;
    }
    return HasLongText(field) ? HandleLong(field, message, wParam, lParam, callDefault) : 0;
}

}  // namespace tallymere
