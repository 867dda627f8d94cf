#include "toolkit/grid_accessibility.h"

#include <new>
#include <string>

#include "layout/grid_geometry.h"
#include "layout/grid_table.h"
#include "toolkit/field_state.h"
#include "toolkit/system_library.h"
#include "toolkit/wide_text.h"

#include <oleacc.h>

namespace tallymere {

namespace {

// A function of the system's library for programs that read the screen to their users.
template <typename Function>
Function FindAccessibilityFunction(const char* name) {
    return reinterpret_cast<Function>(FindInSystemLibrary(L"oleacc.dll", name));
}

// The number of a cell as a child of its grid; 0 when there are too many cells for that.
LONG ChildOf(const GridState& state, int32_t column, int32_t row) {
    const int64_t child = (int64_t{row} - 1) * GridDataColumns(state.table) + column;
    return child <= INT32_MAX ? static_cast<LONG>(child) : 0;
}

GridPlace CursorOf(const GridState& state) {
    return {state.cursorColumn, state.cursorRow};
}

// The headers of the column and the row of a cell.
BSTR NameOf(const GridRecord& grid, const GridPlace& place) {
    char16_t columnText[16];
    char16_t rowText[16];
    const std::u16string_view column = ShownGridHeader(grid, place.column, 0, columnText);
    const std::u16string_view row = ShownGridHeader(grid, 0, place.row, rowText);
    const bool parts = !column.empty() && !row.empty();
    const BSTR name =
        SysAllocStringLen(nullptr, static_cast<UINT>(column.size() + (parts ? 1 : 0) + row.size()));
    if (name != nullptr) {
        auto* text = reinterpret_cast<char16_t*>(name);
        text += column.copy(text, column.size());
        if (parts) {
            *text++ = u' ';
        }
        row.copy(text, row.size());
    }
    return name;
}

bool IsIn(const GridRange& range, int32_t index) {
    return index >= range.first && index <= range.last;
}

// What keeps a cell from being seen: its column is hidden, or the view is elsewhere.
LONG SightOf(const GridState& state, const GridPlace& place) {
    if (GridColumnWidth(state.table, place.column) == 0) {
        return STATE_SYSTEM_INVISIBLE;
    }
    const bool isInView =
        IsIn(VisibleGridRows(state), place.row) && IsIn(VisibleGridColumns(state), place.column);
    return isInView ? 0 : STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
}

BSTR TextFor(std::u16string_view text) {
    return SysAllocStringLen(ToWide(text.data()), static_cast<UINT>(text.size()));
}

BSTR WindowTextFor(HWND window) {
    const HeapText text(GetWindowTextLengthW(window));
    if (!text.IsThere()) {
        return nullptr;
    }
    GetWindowTextW(window, ToWide(text.buffer.get()), GetWindowTextLengthW(window) + 1);
    return SysAllocString(ToWide(text.buffer.get()));
}

// What the system asks, of a grid or of the edit control in it. The window may be gone meanwhile.
struct GridAccessible final : IAccessible {
    GridAccessible(HWND asked, HWND gridWindow) : window(asked), gridWindow_(gridWindow) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch) && id != __uuidof(IAccessible)) {
            return E_NOINTERFACE;
        }
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) {
            delete this;
        }
        return static_cast<ULONG>(left);
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        static const auto accessibleObjectFromWindow =
            FindAccessibilityFunction<decltype(&AccessibleObjectFromWindow)>(
                "AccessibleObjectFromWindow");
        return accessibleObjectFromWindow == nullptr
                   ? E_NOTIMPL
                   : accessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_WINDOW),
                                                __uuidof(IDispatch),
                                                reinterpret_cast<void**>(parent));
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        *count = 0;
        if (const GridRecord* const grid = Record(); grid != nullptr && !IsEditor()) {
            *count = ChildOf(grid->state, GridDataColumns(grid->state.table),
                             GridDataRows(grid->state.table));
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT, IDispatch** child) override {
        *child = nullptr;
        return S_FALSE;  // Cells have no objects of their own.
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        *name = nullptr;
        const Asked asked = Look(child);
        if (asked.grid == nullptr) {
            return E_INVALIDARG;
        }
        *name = asked.isCell ? NameOf(*asked.grid, asked.place) : WindowTextFor(window);
        return *name != nullptr ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        *value = nullptr;
        const Asked asked = Look(child);
        if (asked.grid == nullptr) {
            return E_INVALIDARG;
        }
        if (IsEditor()) {
            *value = WindowTextFor(window);
        } else if (asked.isCell) {
            *value = TextFor(GridCellText(
                FindGridCell(asked.grid->state.table, asked.place.column, asked.place.row)));
        }
        return *value != nullptr ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT, BSTR* text) override {
        return NoText(text);
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        const Asked asked = Look(child);
        if (asked.grid == nullptr) {
            return E_INVALIDARG;
        }
        role->vt = VT_I4;
        role->lVal = ROLE_SYSTEM_TABLE;
        if (asked.isCell) {
            role->lVal = IsEditor() ? ROLE_SYSTEM_TEXT : ROLE_SYSTEM_CELL;
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        const Asked asked = Look(child);
        if (asked.grid == nullptr) {
            return E_INVALIDARG;
        }
        state->vt = VT_I4;
        state->lVal = STATE_SYSTEM_FOCUSABLE;
        if (IsEditor() || !asked.isCell) {
            state->lVal |= GetFocus() == window ? STATE_SYSTEM_FOCUSED : 0;
            return S_OK;
        }
        const GridState& cells = asked.grid->state;
        state->lVal |= STATE_SYSTEM_SELECTABLE;
        if (asked.place == CursorOf(cells)) {
            state->lVal |=
                STATE_SYSTEM_SELECTED | (asked.grid->hasFocus ? STATE_SYSTEM_FOCUSED : 0);
        }
        if (!CanEditGridCell(cells, asked.place.column, asked.place.row)) {
            state->lVal |= STATE_SYSTEM_READONLY;
        }
        state->lVal |= SightOf(cells, asked.place);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* text) override { return NoText(text); }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, LONG*) override {
        return NoText(file);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR* text) override {
        return NoText(text);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
        return IsEditor() || GetFocus() == window ? CursorChild(child) : NoChild(child);
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* child) override {
        return CursorChild(child);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT, BSTR* text) override {
        return NoText(text);
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override {
        const Asked asked = Look(child);
        if (asked.grid == nullptr) {
            return E_INVALIDARG;
        }
        RECT rect = {};
        if (IsEditor() || !asked.isCell) {
            GetWindowRect(window, &rect);
        } else {
            const LayoutRect place =
                GridCellPlace(asked.grid->state, asked.place.column, asked.place.row);
            rect = RectOf(place);
            MapWindowPoints(window, HWND_DESKTOP, reinterpret_cast<POINT*>(&rect), 2);
        }
        *left = rect.left;
        *top = rect.top;
        *width = rect.right - rect.left;
        *height = rect.bottom - rect.top;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG, VARIANT, VARIANT* end) override {
        return NoChild(end);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* child) override {
        const GridRecord* const grid = Record();
        RECT rect = {};
        GetWindowRect(window, &rect);
        if (grid == nullptr || !PtInRect(&rect, {x, y})) {
            return NoChild(child);
        }
        POINT point = {x, y};
        ScreenToClient(window, &point);
        const int32_t column = ColumnAtX(grid->state, point.x);
        const int32_t row = RowAtY(grid->state, point.y);
        child->vt = VT_I4;
        child->lVal = !IsEditor() && column >= 1 && row >= 1 ? ChildOf(grid->state, column, row)
                                                             : CHILDID_SELF;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return E_NOTIMPL; }

    HWND window;

private:
    // What a call is about: the grid itself, a cell, or for an edit control the cell it is in.
    struct Asked {
        const GridRecord* grid;  ///< null when there is no such thing
        bool isCell;
        GridPlace place;
    };

    bool IsEditor() const { return window != gridWindow_; }
    const GridRecord* Record() const { return GridRecordOf(gridWindow_); }

    Asked Look(const VARIANT& child) const {
        const GridRecord* const grid = Record();
        if (grid == nullptr || child.vt != VT_I4) {
            return {};
        }
        if (IsEditor()) {
            return child.lVal == CHILDID_SELF ? Asked{grid, true, CursorOf(grid->state)} : Asked{};
        }
        if (child.lVal == CHILDID_SELF) {
            return {grid, false, {}};
        }
        const int32_t columns = GridDataColumns(grid->state.table);
        const int32_t index = child.lVal - 1;
        if (index < 0 || columns == 0 || index / columns >= GridDataRows(grid->state.table)) {
            return {};
        }
        return {grid, true, {index % columns + 1, index / columns + 1}};
    }

    HRESULT CursorChild(VARIANT* child) const {
        const GridRecord* const grid = Record();
        if (grid == nullptr || FindGridCell(grid->state.table, grid->state.cursorColumn,
                                            grid->state.cursorRow) == nullptr) {
            return NoChild(child);
        }
        child->vt = VT_I4;
        child->lVal = IsEditor()
                          ? CHILDID_SELF
                          : ChildOf(grid->state, grid->state.cursorColumn, grid->state.cursorRow);
        return S_OK;
    }

    static HRESULT NoText(BSTR* text) {
        *text = nullptr;
        return S_FALSE;
    }
    static HRESULT NoChild(VARIANT* child) {
        child->vt = VT_EMPTY;
        return S_FALSE;
    }

    HWND gridWindow_;
    LONG references_ = 1;
};

LRESULT AnswerObject(HWND window, HWND grid, WPARAM wParam) {
    static const auto lresultFromObject =
        FindAccessibilityFunction<decltype(&LresultFromObject)>("LresultFromObject");
    if (lresultFromObject == nullptr) {
        return 0;
    }
    auto* const object = new (std::nothrow) GridAccessible(window, grid);
    if (object == nullptr) {
        return 0;
    }
    const LRESULT result = lresultFromObject(__uuidof(IAccessible), wParam, object);
    object->Release();
    return result;
}

}  // namespace

LRESULT AnswerGridObject(HWND grid, WPARAM wParam) {
    return AnswerObject(grid, grid, wParam);
}

LRESULT AnswerGridEditorObject(HWND editor, WPARAM wParam) {
    return AnswerObject(editor, GetParent(editor), wParam);
}

void TellGridFocus(const GridRecord& grid) {
    if (grid.hasFocus) {
        NotifyWinEvent(EVENT_OBJECT_FOCUS, grid.window, OBJID_CLIENT,
                       ChildOf(grid.state, grid.state.cursorColumn, grid.state.cursorRow));
    }
}

void TellGridValue(const GridRecord& grid) {
    NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, grid.window, OBJID_CLIENT,
                   ChildOf(grid.state, grid.state.cursorColumn, grid.state.cursorRow));
}

}  // namespace tallymere
