// What a screen reader hears of a grid.
#include "toolkit/grid_page.h"

#include <oleacc.h>

namespace tallymere {
namespace {

class GridAccessibility : public testing_support::GridTest {
protected:
    GridAccessibility() {
        CoInitialize(nullptr);
        Write(1, 2, u"-3/4");
        Ask(GridSetCursor, 1, 2);
    }
    ~GridAccessibility() override {
        for (IAccessible* object : objects_) {
            object->Release();
        }
        CoUninitialize();
    }

    // As a screen reader gets it.
    IAccessible* Object(HWND window) {
        IAccessible* object = nullptr;
        EXPECT_EQ(
            AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                       __uuidof(IAccessible), reinterpret_cast<void**>(&object)),
            S_OK);
        objects_.push_back(object);
        return object;
    }

    static VARIANT Child(LONG number) {
        VARIANT child = {};
        child.vt = VT_I4;
        child.lVal = number;
        return child;
    }

    using TextGetter = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);
    static std::u16string TextOf(IAccessible* object, TextGetter getter, LONG child) {
        BSTR text = nullptr;
        const HRESULT result = (object->*getter)(Child(child), &text);
        if (FAILED(result)) {
            return u"refused";
        }
        EXPECT_EQ(result == S_FALSE, text == nullptr);
        const std::u16string copy = text != nullptr ? FromWide(text) : u"none";
        SysFreeString(text);
        return copy;
    }
    static std::u16string Name(IAccessible* object, LONG child) {
        return TextOf(object, &IAccessible::get_accName, child);
    }
    static std::u16string Value(IAccessible* object, LONG child) {
        return TextOf(object, &IAccessible::get_accValue, child);
    }

    using NumberGetter = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, VARIANT*);
    static LONG NumberOf(IAccessible* object, NumberGetter getter, LONG child) {
        VARIANT number = {};
        if (FAILED((object->*getter)(Child(child), &number))) {
            return -1;
        }
        EXPECT_EQ(number.vt, VT_I4);
        return number.lVal;
    }
    static LONG State(IAccessible* object, LONG child) {
        return NumberOf(object, &IAccessible::get_accState, child);
    }
    static LONG Role(IAccessible* object, LONG child) {
        return NumberOf(object, &IAccessible::get_accRole, child);
    }
    // The focused child; -1 for none.
    static LONG Focus(IAccessible* object) {
        VARIANT child = {};
        object->get_accFocus(&child);
        return child.vt == VT_I4 ? child.lVal : -1;
    }

    // Rows of three cells: the cell of the cursor is the second of the third.
    static constexpr LONG CursorChild = 8;

private:
    std::vector<IAccessible*> objects_;
};

TEST_F(GridAccessibility, TheCellOfTheCursorHasTheFocus) {
    IAccessible* object = Object(grid);
    EXPECT_EQ(Focus(object), -1);
    SetFocus(grid);
    EXPECT_EQ(Focus(object), CursorChild);
    EXPECT_EQ(State(object, CursorChild), STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE |
                                              STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED);
    EXPECT_EQ(State(object, 1), STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE);
    VARIANT selected = {};
    EXPECT_EQ(object->get_accSelection(&selected), S_OK);
    EXPECT_EQ(selected.lVal, CursorChild);
}

TEST_F(GridAccessibility, ACellIsNamedByItsHeadersAndHasItsText) {
    IAccessible* object = Object(grid);
    EXPECT_EQ(Name(object, CursorChild), u"B 3");
    EXPECT_EQ(Value(object, CursorChild), u"-3/4");
    EXPECT_EQ(Value(object, 1), u"");
    EXPECT_EQ(Role(object, CursorChild), ROLE_SYSTEM_CELL);
    Ask(GridSetShowColumnLetters, 0);
    Ask(GridSetShowRowNumbers, 0);
    EXPECT_EQ(Name(object, CursorChild), u"head row");
    Ask(GridSetColumnHeader, 1);
    EXPECT_EQ(Name(object, CursorChild), u"row");
    Ask(GridSetRowHeader, 2);
    EXPECT_EQ(Name(object, CursorChild), u"");
}

TEST_F(GridAccessibility, AProtectedCellIsOnlyRead) {
    AskCell(GridSetCellProtected, 1, 0, 0);
    EXPECT_EQ(State(Object(grid), 1) & STATE_SYSTEM_READONLY, STATE_SYSTEM_READONLY);
}

TEST_F(GridAccessibility, TheGridIsATableWithATitle) {
    IAccessible* object = Object(grid);
    SetWindowTextW(grid, L"Coefficients");
    EXPECT_EQ(Name(object, 0), u"Coefficients");
    EXPECT_EQ(Value(object, 0), u"none");
    EXPECT_EQ(Role(object, 0), ROLE_SYSTEM_TABLE);
    LONG count = 0;
    EXPECT_EQ(object->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 12);
    EXPECT_EQ(State(object, 0), STATE_SYSTEM_FOCUSABLE);
    for (const LONG child : {-1, 13, 1000}) {
        EXPECT_EQ(Name(object, child), u"refused");
        EXPECT_EQ(Value(object, child), u"refused");
        EXPECT_EQ(Role(object, child), -1);
        EXPECT_EQ(State(object, child), -1);
    }
    IDispatch* parent = nullptr;
    EXPECT_EQ(object->get_accParent(&parent), S_OK);
    ASSERT_NE(parent, nullptr);
    parent->Release();
}

TEST_F(GridAccessibility, TheEditorIsNamedByItsCell) {
    AskCell(GridSetCursorEdit, 0, 1, 2);
    IAccessible* object = Object(Editor());
    EXPECT_EQ(Name(object, 0), u"B 3");
    EXPECT_EQ(Value(object, 0), u"-3/4");
    SetWindowTextW(Editor(), L"15");
    EXPECT_EQ(Value(object, 0), u"15");
    EXPECT_EQ(Role(object, 0), ROLE_SYSTEM_TEXT);
    EXPECT_EQ(State(object, 0), STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_FOCUSED);
    EXPECT_EQ(Focus(object), 0);
    EXPECT_EQ(Name(object, 1), u"refused");
    EXPECT_EQ(Focus(Object(grid)), -1);
}

TEST_F(GridAccessibility, CellsAreFoundOnTheScreen) {
    IAccessible* object = Object(grid);
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(object->accLocation(&left, &top, &width, &height, Child(CursorChild)), S_OK);
    POINT corner = {100, 63};
    ClientToScreen(grid, &corner);
    EXPECT_EQ(left, corner.x);
    EXPECT_EQ(top, corner.y);
    EXPECT_EQ(width, 50);
    EXPECT_EQ(height, 21);
    VARIANT hit = {};
    EXPECT_EQ(object->accHitTest(left + 49, top + 20, &hit), S_OK);
    EXPECT_EQ(hit.lVal, CursorChild);
    EXPECT_EQ(object->accHitTest(left - 90, top, &hit), S_OK);
    EXPECT_EQ(hit.lVal, CHILDID_SELF);
    EXPECT_EQ(object->accHitTest(left - 1000, top, &hit), S_FALSE);
    EXPECT_EQ(hit.vt, VT_EMPTY);
    RECT rect = {};
    GetWindowRect(grid, &rect);
    EXPECT_EQ(object->accLocation(&left, &top, &width, &height, Child(0)), S_OK);
    EXPECT_EQ(left, rect.left);
    EXPECT_EQ(width, rect.right - rect.left);
}

TEST_F(GridAccessibility, CellsOutsideOfTheViewSayThatAndWhereTheyAre) {
    IAccessible* object = Object(grid);
    constexpr LONG Outside = STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
    const auto sight = [this, object](LONG child) { return State(object, child) & Outside; };
    EXPECT_EQ(sight(1), 0);
    testing_support::GridTest::State().topRow = 2;
    EXPECT_EQ(sight(2), Outside);
    EXPECT_EQ(sight(5), 0);
    testing_support::GridTest::State().leftColumn = 2;
    EXPECT_EQ(sight(4), Outside);
    EXPECT_EQ(sight(5), 0);
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(object->accLocation(&left, &top, &width, &height, Child(1)), S_OK);
    POINT corner = {0, 0};
    ClientToScreen(grid, &corner);
    EXPECT_EQ(left, corner.x);
    EXPECT_EQ(top, corner.y);
    Ask(GridHideColumn, 2, 1);
    EXPECT_EQ(sight(6), STATE_SYSTEM_INVISIBLE);
    SetControlSize(grid, 60, 50);
    EXPECT_EQ(sight(11), Outside);
}

TEST_F(GridAccessibility, AnEmptyGridHasNoCells) {
    Ask(GridClear);
    SetFocus(grid);
    IAccessible* object = Object(grid);
    LONG count = -1;
    EXPECT_EQ(object->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(Focus(object), -1);
    EXPECT_EQ(Name(object, 1), u"refused");
}

TEST_F(GridAccessibility, AnObjectOutlivesItsGrid) {
    IAccessible* object = Object(grid);
    DestroyWindow(grid);
    EXPECT_EQ(Name(object, CursorChild), u"refused");
    EXPECT_EQ(Focus(object), -1);
    LONG count = -1;
    object->get_accChildCount(&count);
    EXPECT_EQ(count, 0);
}

TEST_F(GridAccessibility, OnlyItsOwnInterfacesAreAnswered) {
    IAccessible* object = Object(grid);
    void* other = object;
    EXPECT_EQ(object->QueryInterface(__uuidof(IEnumVARIANT), &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    // Other objects of the window are the system's.
    EXPECT_EQ(Ask(WM_GETOBJECT, 0, static_cast<LONG>(OBJID_VSCROLL)), 0);
}

struct Event {
    DWORD event;
    HWND window;
    LONG child;
};
std::vector<Event> events;

void CALLBACK NoteEvent(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD,
                        DWORD) {
    if (object == OBJID_CLIENT) {
        events.push_back({event, window, child});
    }
}

// The children of the grid that events of a kind were about.
std::vector<LONG> ChildrenOf(DWORD event, HWND grid) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
    std::vector<LONG> children;
    for (const Event& noted : events) {
        if (noted.event == event && noted.window == grid && noted.child != CHILDID_SELF) {
            children.push_back(noted.child);
        }
    }
    return children;
}

TEST_F(GridAccessibility, MovesAndNewTextsAreHeard) {
    events.clear();
    const HWINEVENTHOOK hook =
        SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_VALUECHANGE, nullptr, NoteEvent,
                        GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    ASSERT_NE(hook, nullptr);
    SetFocus(grid);
    EXPECT_EQ(ChildrenOf(EVENT_OBJECT_FOCUS, grid), std::vector<LONG>{CursorChild});
    Ask(GridSetCursor, 0, 0);
    EXPECT_EQ(ChildrenOf(EVENT_OBJECT_FOCUS, grid), (std::vector<LONG>{CursorChild, 1}));
    AskCell(GridSetCursorEdit, 1, 0, 0);
    EXPECT_EQ(ChildrenOf(EVENT_OBJECT_VALUECHANGE, grid), std::vector<LONG>{});
    PressCharacter(VK_RETURN, u'\r');
    EXPECT_EQ(ChildrenOf(EVENT_OBJECT_VALUECHANGE, grid), std::vector<LONG>{1});
    UnhookWinEvent(hook);
}

}  // namespace
}  // namespace tallymere
