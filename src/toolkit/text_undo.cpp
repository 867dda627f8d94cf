#include "toolkit/text_undo.h"

#include <new>
#include <utility>

#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// The window property of this name points to the change, which lives on the heap.
constexpr const char16_t* TextChangeProperty = u"cwl_TextChange";

TextChange* ChangeOf(HWND field) {
    return static_cast<TextChange*>(GetPropW(field, ToWide(TextChangeProperty)));
}

bool GoesOn(const TextChange& last, const TextSelection& caret, TextChangeKind kind) {
    return kind == last.kind && kind != TextReplaced && caret.from == caret.to &&
           caret.from == last.after.selection.from;
}

}  // namespace

void NoteTextChange(HWND field, FieldState before, FieldState after, TextChangeKind kind) {
    if (!before.text.IsThere() || !after.text.IsThere()) {
        ForgetTextChange(field);
        return;
    }
    if (before.text.View() == after.text.View()) {
        return;
    }
    TextChange* last = TextChangeTo(field, before.text.View());
    if (last != nullptr && GoesOn(*last, before.selection, kind)) {
        last->after = std::move(after);
        return;
    }
    ForgetTextChange(field);
    auto* change = new (std::nothrow) TextChange{std::move(before), std::move(after), kind};
    if (change == nullptr || !SetPropW(field, ToWide(TextChangeProperty), change)) {
        delete change;
    }
}

TextChange* TextChangeTo(HWND field, std::u16string_view text) {
    TextChange* change = ChangeOf(field);
    return change != nullptr && change->after.text.View() == text ? change : nullptr;
}

void TurnTextChange(TextChange& change) {
    std::swap(change.before, change.after);
    change.kind = TextReplaced;
}

void ForgetTextChange(HWND field) {
    delete ChangeOf(field);
    RemovePropW(field, ToWide(TextChangeProperty));
}

}  // namespace tallymere
