// The toolkit as a page meets it: an own container, handlers that see and end messages, and keys
// that come through a message loop.
#include <vector>

#include "toolkit/test_dialog.h"
#include "toolkit/window_class.h"

namespace tallymere {
namespace {

using testing_support::HasDefaultLook;
using testing_support::heard;
using testing_support::PressKey;
using testing_support::TextOf;

// What the container heard, and what it answers.
struct ContainerHeard {
    HWND clicked = nullptr;
    HWND slider = nullptr;
    std::vector<WORD> slides;
    HWND labelAskedFor = nullptr;
    HWND drawn = nullptr;
    DWORD drawStage = 0;
};

ContainerHeard container;

constexpr LRESULT LabelBrush = 7;

LRESULT HandleContainer(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    switch (message) {
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED) {
                container.clicked = reinterpret_cast<HWND>(lParam);
            }
            return 0;
        case WM_HSCROLL:
            container.slider = reinterpret_cast<HWND>(lParam);
            container.slides.push_back(LOWORD(wParam));
            return 0;
        case WM_CTLCOLORSTATIC:
            container.labelAskedFor = reinterpret_cast<HWND>(lParam);
            callDefault = false;
            return LabelBrush;
        case WM_NOTIFY: {
            const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
            if (notice.code == NM_CUSTOMDRAW) {
                const auto& draw = *reinterpret_cast<const NMCUSTOMDRAW*>(lParam);
                container.drawn = notice.hwndFrom;
                container.drawStage |= draw.dwDrawStage;
                callDefault = false;
                return CDRF_SKIPDEFAULT;
            }
            return 0;
        }
        default:
            return 0;
    }
}

ToolkitClass containerClass = {u"ToolkitTestContainer", DefWindowProcW, 0, 0, false};

class PageContainer : public testing_support::ToolkitTest {
protected:
    PageContainer() {
        container = {};
        box = CreateOwnControl(dialog, containerClass, {0, 40, 370, 250});
        AttachControlData(box, HandleContainer);
    }

    HWND box;
};

TEST_F(PageContainer, HearsWhichKeyWasClicked) {
    const HWND key = CreateButton(box, {10, 38, 38, 25}, u"7");
    SetWindowLongW(key, GWL_ID, 100002);
    SendMessageW(key, BM_CLICK, 0, 0);
    EXPECT_EQ(container.clicked, key);
    EXPECT_EQ(GetWindowLongW(key, GWL_ID), 100002);
    EXPECT_EQ(heard.clicks, 0);
}

TEST_F(PageContainer, HearsASliderThatArrowsMove) {
    const HWND slider = CreateTrackbar(box, 19, 70);
    SendMessageW(slider, TBM_SETRANGEMIN, FALSE, 300000);
    SendMessageW(slider, TBM_SETRANGEMAX, FALSE, 300003);
    SendMessageW(slider, TBM_SETPOS, TRUE, 300001);
    EXPECT_TRUE(container.slides.empty());
    SetFocus(slider);
    PressKey(slider, VK_RIGHT);
    EXPECT_EQ(SendMessageW(slider, TBM_GETPOS, 0, 0), 300002);
    EXPECT_EQ(container.slider, slider);
    EXPECT_EQ(container.slides, (std::vector<WORD>{TB_LINEDOWN, TB_ENDTRACK}));
    EXPECT_EQ(GetFocus(), slider);
}

TEST_F(PageContainer, ColoursItsLabels) {
    const HWND label = CreateStatic(box, {11, 0, 22, 15}, u"uint");
    EXPECT_EQ(SendMessageW(box, WM_CTLCOLORSTATIC, 0, reinterpret_cast<LPARAM>(label)), LabelBrush);
    RedrawWindow(label, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(container.labelAskedFor, label);
}

TEST_F(PageContainer, DrawsItsKeys) {
    const HWND key = CreateButton(box, {10, 38, 38, 25}, u"7");
    RedrawWindow(key, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(container.drawn, key);
    EXPECT_NE(container.drawStage & CDDS_PREPAINT, 0u);
}

// A key gives the focus away to a button without size, which is no tab stop, so that it does not
// keep it.
HWND sink = nullptr;

LRESULT FocusSink(HWND, UINT message, WPARAM wParam, LPARAM, bool&) {
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        SetFocus(sink);
    }
    return 0;
}

TEST_F(PageContainer, MayGiveTheFocusToAButtonThatNobodySees) {
    sink = CreateButton(dialog, {0, 0, 0, 0}, u"");
    SetWindowLongW(sink, GWL_STYLE, static_cast<LONG>(WindowStyle(sink) & ~uint32_t{WS_TABSTOP}));
    SetControlHandler(box, FocusSink);
    const HWND key = CreateButton(box, {10, 38, 38, 25}, u"7");
    const HWND field = Edit();
    SetFocus(key);
    EXPECT_TRUE(HasDefaultLook(key));
    PressKey(key, VK_RETURN);
    EXPECT_EQ(GetFocus(), sink);
    EXPECT_FALSE(HasDefaultLook(key));
    PressKey(sink, VK_TAB);
    EXPECT_EQ(GetFocus(), field);
    PressKey(field, VK_TAB);
    EXPECT_EQ(GetFocus(), key);
    PressKey(key, VK_TAB, VK_SHIFT);
    EXPECT_EQ(GetFocus(), field);
}

// A field whose Return is a click elsewhere, as that of a formula.
HWND equals = nullptr;

LRESULT HandleFormula(HWND field, UINT message, WPARAM wParam, LPARAM, bool& callDefault) {
    if (message == WM_CHAR && wParam == 13) {
        SendMessageW(equals, BM_CLICK, 0, 0);
        SetFocus(field);
        callDefault = false;
    }
    return 0;
}

// A field that shows and does not take: what a handler swallows of a result.
LRESULT HandleResult(HWND, UINT message, WPARAM wParam, LPARAM, bool& callDefault) {
    const bool edits = (message == WM_KEYDOWN && wParam == VK_DELETE) ||
                       (message == WM_CHAR && (wParam == 8 || wParam >= 32)) ||
                       message == WM_PASTE || message == WM_CLEAR;
    callDefault = !edits;
    return 0;
}

class PageFields : public testing_support::ToolkitTest {
protected:
    HWND Lines(const char16_t* text, WindowHandler handler) {
        const HWND field = CreateEdit(dialog, {10, 10, 300, 60}, text,
                                      ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL, 0);
        SetControlHandler(field, handler);
        SetFocus(field);
        return field;
    }

    // What the main loop does with a key.
    static void TypeKey(HWND control, WPARAM key) {
        PostMessageW(control, WM_KEYDOWN, key, 1);
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
};

TEST_F(PageFields, ReturnReachesTheHandlerOfAFieldThatDoesNotWantIt) {
    equals = Button(u"=");
    const HWND field = Lines(u"1+2", HandleFormula);
    TypeKey(field, VK_RETURN);
    EXPECT_EQ(heard.lastClicked, equals);
    EXPECT_EQ(heard.clicks, 1);
    EXPECT_EQ(GetFocus(), field);
    EXPECT_EQ(TextOf(field), "1+2");
    TypeKey(field, '7');
    EXPECT_EQ(TextOf(field), "71+2");
}

TEST_F(PageFields, AHandlerKeepsATextAsItIsAndLetsItBeSelected) {
    const HWND field = Lines(u"123", HandleResult);
    SendMessageW(field, EM_SETSEL, 0, 0);
    TypeKey(field, VK_DELETE);
    TypeKey(field, '7');
    TypeKey(field, VK_BACK);
    SendMessageW(field, WM_CLEAR, 0, 0);
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(field), "123");
    PressKey(field, VK_RIGHT, VK_SHIFT);
    EXPECT_EQ(SendMessageW(field, EM_GETSEL, 0, 0), MAKELONG(0, 1));
}

HWND fieldAskedFor = nullptr;

LRESULT ColourFields(HWND, UINT message, WPARAM, LPARAM lParam, bool& callDefault) {
    if (message == WM_CTLCOLOREDIT) {
        fieldAskedFor = reinterpret_cast<HWND>(lParam);
        callDefault = false;
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    }
    return 0;
}

TEST_F(PageFields, ADialogColoursItsFields) {
    const HWND page = CreateDialogWindow(nullptr, {300, 200}, u"", ColourFields, 0, 0);
    const HWND field = CreateEdit(page, {0, 0, 60, 20}, u"1", 0, 0);
    ShowWindow(page, SW_SHOWNORMAL);
    fieldAskedFor = nullptr;
    RedrawWindow(field, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(fieldAskedFor, field);
    EXPECT_EQ(SendMessageW(page, WM_CTLCOLOREDIT, 0, reinterpret_cast<LPARAM>(field)),
              reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW)));
    DestroyWindow(page);
}

int32_t selections = 0;

LRESULT HearSelections(HWND, UINT message, WPARAM wParam, LPARAM, bool&) {
    if (message == WM_COMMAND && HIWORD(wParam) == LBN_SELCHANGE) {
        selections++;
    }
    return 0;
}

TEST_F(PageFields, AListTellsWhatArrowsSelect) {
    const HWND page = CreateDialogWindow(nullptr, {300, 200}, u"", HearSelections, 0, 0);
    const HWND list = CreateControl(page, u"listbox", {10, 30, 120, 100}, nullptr,
                                    WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT);
    const HWND name = CreateEdit(page, {135, 30, 120, 20}, u"", ES_AUTOHSCROLL, 0);
    ShowWindow(page, SW_SHOWNORMAL);
    for (const char16_t* row : {u"var00", u"var01"}) {
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
    }
    SendMessageW(list, LB_SETCURSEL, 0, 0);
    selections = 0;
    SetFocus(list);
    PressKey(list, VK_DOWN);
    EXPECT_EQ(SendMessageW(list, LB_GETCURSEL, 0, 0), 1);
    EXPECT_EQ(selections, 1);
    PressKey(list, VK_TAB);
    EXPECT_EQ(GetFocus(), name);
    DestroyWindow(page);
}

}  // namespace
}  // namespace tallymere
