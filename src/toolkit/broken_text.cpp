#include "toolkit/broken_text.h"

#include <algorithm>
#include <cstring>

#include "layout/soft_breaks.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

int64_t FittingOf(void* ruler, std::u16string_view next) {
    return static_cast<FieldRuler*>(ruler)->Fitting(next);
}

HeapText BreakText(HWND field, std::u16string_view text, bool goesOn = false) {
    HeapText broken(static_cast<int64_t>(text.size()) * BrokenPerPlain);
    if (broken.IsThere()) {
        FieldRuler ruler(field);
        broken.length = InsertSoftBreaks(broken.buffer.get(), text, goesOn, FittingOf, &ruler);
    }
    return broken;
}

// A copy of the last piece of the broken text, with room for `more` characters behind it.
HeapText TakeLastPiece(std::u16string_view broken, LastPiece piece, size_t more) {
    const std::u16string_view text = broken.substr(static_cast<size_t>(piece.start));
    HeapText copy(static_cast<int64_t>(text.size() + more));
    if (copy.IsThere()) {
        copy.length = std::copy(text.begin(), text.end(), copy.buffer.get()) - copy.buffer.get();
    }
    return copy;
}

// Looks at the broken text where it lies, since a copy takes time for all of it. A control that
// does not show it is asked for a copy.
HeapText ReadLastPiece(HWND field, LastPiece& piece, size_t more) {
    const auto memory = reinterpret_cast<HLOCAL>(AskEdit(field, EM_GETHANDLE));
    if (memory == nullptr) {
        HeapText broken = BrokenText(field);
        if (!broken.IsThere()) {
            return broken;
        }
        piece = FindLastPiece(broken.View());
        return TakeLastPiece(broken.View(), piece, more);
    }
    const auto length = static_cast<size_t>(AskEdit(field, WM_GETTEXTLENGTH));
    const std::u16string_view broken(static_cast<const char16_t*>(LocalLock(memory)), length);
    piece = FindLastPiece(broken);
    HeapText copy = TakeLastPiece(broken, piece, more);
    LocalUnlock(memory);
    return copy;
}

void SelectPlain(HWND field, TextSelection selection) {
    const HeapText text = BrokenText(field);
    SelectBroken(field, {BrokenPosition(text.View(), selection.from),
                         BrokenPosition(text.View(), selection.to)});
}

// Room for a text that grows at its end. A control whose memory is full takes a little more for
// each text, and that of Wine copies all that is there each time. So it gets all this room once,
// when its text grows beyond LeastGrowingText. It wraps its text anew then, which takes too long
// for more than MostWrappedAnew.
constexpr int64_t GrowingRoom = 32 * 1024 * 1024;
constexpr int64_t LeastGrowingText = 16'384;
constexpr int64_t MostWrappedAnew = 65'536;

bool HasGrowingRoom(HWND field) {
    const auto memory = reinterpret_cast<HLOCAL>(AskEdit(field, EM_GETHANDLE));
    return memory != nullptr &&
           LocalSize(memory) >= static_cast<size_t>(GrowingRoom) * sizeof(char16_t);
}

// A copy in memory that a control can own and resize, with room for so many characters at least;
// null without memory. Windows frees it with the control. Wine keeps the last one until the program
// ends, and the fields live as long.
HLOCAL CopyForControl(const HeapText& text, int64_t room) {
    const size_t bytes = (static_cast<size_t>(text.length) + 1) * sizeof(char16_t);
    const size_t roomBytes = (static_cast<size_t>(room) + 1) * sizeof(char16_t);
    const HLOCAL copy = LocalAlloc(LMEM_MOVEABLE, std::max(bytes, roomBytes));
    if (copy != nullptr) {
        std::memcpy(LocalLock(copy), text.buffer.get(), bytes);
        LocalUnlock(copy);
    }
    return copy;
}

// Hands the control a copy of a text. False when it does not take the memory; the text is as before
// then.
bool HandOver(HWND field, const HeapText& text, int64_t room) {
    const auto before = reinterpret_cast<HLOCAL>(AskEdit(field, EM_GETHANDLE));
    const HLOCAL copy = before != nullptr ? CopyForControl(text, room) : nullptr;
    if (copy == nullptr) {
        return false;
    }
    AskEdit(field, EM_SETHANDLE, reinterpret_cast<WPARAM>(copy));
    const bool isTaken = reinterpret_cast<HLOCAL>(AskEdit(field, EM_GETHANDLE)) == copy;
    LocalFree(isTaken ? before : copy);
    return isTaken;
}

// Does what WM_SETTEXT does, but faster: with that message the control scrolls to the end of the
// text and back, and Wine draws the scroll bar at every step. A control that does not take the
// memory gets WM_SETTEXT.
bool WriteBroken(HWND field, const HeapText& text, int64_t room = 0) {
    if (HandOver(field, text, room)) {
        NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, field, OBJID_CLIENT, CHILDID_SELF);
        return true;
    }
    return AskEdit(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.buffer.get())) != FALSE;
}

// A control that cannot have the room stays as it is.
void MakeRoom(HWND field, int64_t length, int64_t wanted) {
    if (wanted < LeastGrowingText || length > MostWrappedAnew || HasGrowingRoom(field)) {
        return;
    }
    const HeapText text = BrokenText(field);
    if (text.IsThere()) {
        HandOver(field, text, GrowingRoom);
    }
}

// For a field with a short text.
void GiveRoomBack(HWND field) {
    if (HasGrowingRoom(field)) {
        const HeapText text = BrokenText(field);
        if (text.IsThere()) {
            HandOver(field, text, 0);
        }
    }
}

// The visible part of the text stays where it is.
bool Rewrite(HWND field, const HeapText& broken, TextSelection selection) {
    const LRESULT firstLine = AskEdit(field, EM_GETFIRSTVISIBLELINE);
    const LRESULT isModified = AskEdit(field, EM_GETMODIFY);
    const bool isWritten = WriteBroken(field, broken, HasGrowingRoom(field) ? GrowingRoom : 0);
    SelectPlain(field, selection);
    AskEdit(field, EM_SETMODIFY, static_cast<WPARAM>(isModified));
    // Selecting may have scrolled.
    AskEdit(field, EM_LINESCROLL, 0, firstLine - AskEdit(field, EM_GETFIRSTVISIBLELINE));
    return isWritten;
}

}  // namespace

LRESULT AskEdit(HWND field, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto procedure = reinterpret_cast<WNDPROC>(GetClassLongPtrW(field, GCLP_WNDPROC));
    return CallWindowProcW(procedure, field, message, wParam, lParam);
}

bool HasLongText(HWND field) {
    return AskEdit(field, WM_GETTEXTLENGTH) > LongLineCharacters;
}

HeapText BrokenText(HWND field) {
    const LRESULT length = AskEdit(field, WM_GETTEXTLENGTH);
    HeapText text(length);
    if (text.IsThere()) {
        text.length = AskEdit(field, WM_GETTEXT, static_cast<WPARAM>(length + 1),
                              reinterpret_cast<LPARAM>(text.buffer.get()));
    }
    return text;
}

TextSelection BrokenSelection(HWND field) {
    DWORD from = 0;
    DWORD to = 0;
    AskEdit(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return {from, to};
}

void SelectBroken(HWND field, TextSelection selection) {
    AskEdit(field, EM_SETSEL, static_cast<WPARAM>(selection.from), selection.to);
}

FieldState PlainState(HWND field) {
    FieldState state = {BrokenText(field), BrokenSelection(field)};
    auto& [text, selection] = state;
    if (text.IsThere()) {
        selection = {PlainPosition(text.View(), selection.from),
                     PlainPosition(text.View(), selection.to)};
        text.length = RemoveSoftBreaks(text.buffer.get(), text.length);
    }
    return state;
}

HeapText PlainText(HWND field) {
    return PlainState(field).text;
}

LRESULT WritePlainText(HWND field, const char16_t* text) {
    const std::u16string_view plain = text != nullptr ? text : u"";
    if (plain.size() <= LongLineCharacters) {
        const LRESULT result = AskEdit(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
        GiveRoomBack(field);
        return result;
    }
    const HeapText broken = BreakText(field, plain);
    return broken.IsThere() && WriteBroken(field, broken) ? TRUE : FALSE;
}

bool AppendPlainText(HWND field, std::u16string_view text) {
    const LRESULT length = AskEdit(field, WM_GETTEXTLENGTH);
    LastPiece piece = {};
    HeapText joined = ReadLastPiece(field, piece, text.size());
    if (!joined.IsThere()) {
        return false;
    }
    std::copy(text.begin(), text.end(), joined.buffer.get() + joined.length);
    joined.length += static_cast<int64_t>(text.size());
    const HeapText broken = BreakText(field, joined.View(), piece.goesOn);
    const int64_t whole = piece.start + broken.length;
    if (!broken.IsThere() || whole > static_cast<uint32_t>(AskEdit(field, EM_GETLIMITTEXT))) {
        return false;
    }
    MakeRoom(field, length, whole);
    // To select takes time for all lines.
    const TextSelection selection = BrokenSelection(field);
    if (selection.from != piece.start || selection.to != length) {
        SelectBroken(field, {piece.start, length});
    }
    AskEdit(field, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(broken.buffer.get()));
    return AskEdit(field, WM_GETTEXTLENGTH) == whole;
}

FieldRuler::FieldRuler(HWND field) : field_(field), dc_(GetDC(field)) {
    RECT room = {};
    AskEdit(field, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
    width_ = std::max<int>(room.right - room.left, 0);
    breaksAtBlanks_ = AskEdit(field, EM_GETWORDBREAKPROC) == 0;
    fontBefore_ = SelectObject(dc_, reinterpret_cast<HFONT>(AskEdit(field, WM_GETFONT)));
}

FieldRuler::~FieldRuler() {
    SelectObject(dc_, fontBefore_);
    ReleaseDC(field_, dc_);
}

// Measuring takes time for each character. So it looks at only a few more than the line before had.
int64_t FieldRuler::Fitting(std::u16string_view next) {
    int fitting = 0;
    int count = 0;
    do {
        count = static_cast<int>(std::min<size_t>(next.size(), window_));
        SIZE size = {};
        GetTextExtentExPointW(dc_, ToWide(next.data()), count, width_, &fitting, nullptr, &size);
        window_ = static_cast<size_t>(fitting) * 5 / 4 + 16;
    } while (fitting == count && static_cast<size_t>(count) < next.size());
    if (breaksAtBlanks_ && static_cast<size_t>(fitting) < next.size()) {
        const size_t blank = next.substr(0, static_cast<size_t>(fitting)).rfind(u' ');
        if (blank != std::u16string_view::npos && blank > 0) {
            return static_cast<int64_t>(blank) + 1;
        }
    }
    return fitting;
}

void BreakAnew(HWND field) {
    const HeapText before = BrokenText(field);
    const FieldState plain = PlainState(field);
    if (!before.IsThere() || !plain.text.IsThere()) {
        return;
    }
    const HeapText after = BreakText(field, plain.text.View());
    if (after.IsThere() && after.View() != before.View()) {
        Rewrite(field, after, plain.selection);
    }
}

bool ChangePlainText(HWND field, std::u16string_view text, TextSelection selection) {
    const HeapText broken = BreakText(field, text);
    if (!broken.IsThere() || !Rewrite(field, broken, selection)) {
        return false;
    }
    AskEdit(field, EM_SETMODIFY, TRUE);
    AskEdit(field, EM_SCROLLCARET);
    return true;
}

}  // namespace tallymere
