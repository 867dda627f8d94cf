// The controls of Windows as the toolkit makes them.
#include "toolkit/standard_controls.h"

#include "toolkit/tab_page.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::HasClass;
using testing_support::heard;
using testing_support::TextOf;

constexpr uint32_t ShownChild = WS_CHILD | WS_VISIBLE;

class StandardControls : public testing_support::ToolkitTest {
protected:
    static bool IsControl(HWND window) {
        return GetPropW(window, ToWide(ControlDataProperty)) != nullptr;
    }

    // The style without what the system adds by itself.
    static uint32_t StyleOf(HWND window) {
        return WindowStyle(window) & ~uint32_t{WS_CLIPSIBLINGS | WS_BORDER};
    }
};

TEST_F(StandardControls, AButtonIsAlwaysAPushButton) {
    const HWND button = CreateButton(dialog, {1, 2, 30, 40}, u"text", 0x2300 | BS_AUTOCHECKBOX);
    EXPECT_TRUE(HasClass(button, u"button"));
    EXPECT_EQ(StyleOf(button), ShownChild | WS_TABSTOP | 0x2300);
    EXPECT_EQ(TextOf(button), "text");
    EXPECT_EQ(PlaceInParent(button), (LayoutRect{1, 2, 30, 40}));
    EXPECT_EQ(GetWindowLongPtrW(button, GWLP_ID), 0);
    EXPECT_TRUE(IsControl(button));
}

TEST_F(StandardControls, CheckBoxesAndRadioButtonsCheckThemselves) {
    const HWND box = CreateCheckBox(dialog, {0, 0, 30, 20}, u"box");
    EXPECT_EQ(StyleOf(box), ShownChild | WS_TABSTOP | BS_AUTOCHECKBOX);
    const HWND radio = CreateRadioButton(dialog, {0, 0, 30, 20}, u"radio");
    EXPECT_EQ(StyleOf(radio), ShownChild | WS_TABSTOP | BS_AUTORADIOBUTTON);
    EXPECT_EQ(TextOf(box) + TextOf(radio), "boxradio");
    EXPECT_TRUE(IsControl(box) && IsControl(radio));
}

TEST_F(StandardControls, TheTabStopOfADropListLiesOnTheListItself) {
    const HWND list = CreateDropList(dialog, {0, 0, 60, 100});
    EXPECT_TRUE(HasClass(list, u"combobox"));
    EXPECT_EQ(StyleOf(list) & (ShownChild | WS_TABSTOP | CBS_DROPDOWNLIST),
              ShownChild | WS_TABSTOP | CBS_DROPDOWNLIST);
    EXPECT_EQ(NextTabStop(dialog, true), list);
    EXPECT_TRUE(IsControl(list));
}

TEST_F(StandardControls, AStaticShowsText) {
    const HWND icon = CreateStatic(dialog, {0, 0, 30, 20}, u"text", SS_ICON | SS_SUNKEN);
    EXPECT_EQ(StyleOf(icon), ShownChild | SS_LEFT | SS_SUNKEN);
    EXPECT_EQ(TextOf(icon), "text");
    const HWND right = CreateStatic(dialog, {0, 0, 30, 20}, u"text", SS_RIGHT);
    EXPECT_EQ(StyleOf(right), ShownChild | SS_RIGHT);
    EXPECT_TRUE(IsControl(icon));
}

TEST_F(StandardControls, AnEditTakesTextsOfAnyLength) {
    const HWND edit = CreateEdit(dialog, {0, 0, 30, 20}, u"12", ES_RIGHT, WS_EX_CLIENTEDGE);
    EXPECT_EQ(StyleOf(edit), ShownChild | WS_TABSTOP | ES_RIGHT);
    EXPECT_NE(GetWindowLongPtrW(edit, GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0);
    EXPECT_EQ(SendMessageW(edit, EM_GETLIMITTEXT, 0, 0), 0x7FFFFFFE);
    EXPECT_EQ(TextOf(edit), "12");
    EXPECT_TRUE(IsControl(edit));
}

TEST_F(StandardControls, ATrackbarStandsInItsRow) {
    const HWND bar = CreateTrackbar(dialog, 7, 90);
    EXPECT_TRUE(HasClass(bar, u"msctls_trackbar32"));
    EXPECT_EQ(StyleOf(bar) & 0xFFFFFF, WS_TABSTOP | TBS_BOTH | TBS_NOTICKS);
    EXPECT_EQ(PlaceInParent(bar), (LayoutRect{7, 15, 90, 21}));
    EXPECT_TRUE(IsControl(bar));
}

TEST_F(StandardControls, EachNumberOfAPlaceIsScaledByItself) {
    screenDpi = 120;
    EXPECT_EQ(PlaceInParent(CreateButton(dialog, {1, 2, 3, 5}, u"")), (LayoutRect{1, 3, 4, 6}));
    EXPECT_EQ(PlaceInParent(CreateStatic(dialog, {-2, -6, 10, 10}, u"")),
              (LayoutRect{-3, -8, 13, 13}));
}

TEST_F(StandardControls, AGroupBoxHearsTheControlsInside) {
    const HWND group =
        CreateGroupBox(dialog, {5, 6, 100, 90}, u"group", testing_support::HearCommands);
    EXPECT_TRUE(HasClass(group, u"button"));
    EXPECT_EQ(StyleOf(group), ShownChild | BS_GROUPBOX);
    const HWND box = CreateCheckBox(group, {5, 20, 60, 20}, u"box");
    EXPECT_EQ(GetParent(box), group);
    SendMessageW(box, BM_CLICK, 0, 0);
    EXPECT_EQ(heard.lastClicked, box);
    EXPECT_EQ(heard.clicks, 1);
    EXPECT_TRUE(testing_support::IsChecked(box));
}

TEST_F(StandardControls, AGroupBoxOfAnOldSystemHasItsFrameInside) {
    osVersionCode = 0x0501;
    const HWND group =
        CreateGroupBox(dialog, {5, 6, 100, 90}, u"group", testing_support::HearCommands);
    EXPECT_TRUE(HasClass(group, u"cwl_WinXpGroupBox"));
    EXPECT_EQ(GetClassLongPtrW(group, GCL_CBWNDEXTRA), 8u);
    EXPECT_EQ(GetClassLongPtrW(group, GCL_STYLE), ULONG_PTR{CS_HREDRAW | CS_VREDRAW});
    const HWND frame = GetWindow(group, GW_CHILD);
    EXPECT_EQ(StyleOf(frame), ShownChild | BS_GROUPBOX);
    EXPECT_EQ(PlaceInParent(frame), (LayoutRect{0, 0, 100, 90}));
    EXPECT_EQ(TextOf(frame), "group");
    SetWindowTextW(group, L"other");
    EXPECT_EQ(TextOf(frame), "other");
    const HWND box = CreateCheckBox(group, {5, 20, 60, 20}, u"box");
    SendMessageW(box, BM_CLICK, 0, 0);
    EXPECT_EQ(heard.lastClicked, box);
}

TEST_F(StandardControls, VistaIsTheFirstSystemWithAGroupBoxOfItsOwn) {
    osVersionCode = 0x0600;
    EXPECT_TRUE(HasClass(CreateGroupBox(dialog, {5, 6, 100, 90}, u"new", nullptr), u"button"));
    osVersionCode = 0x05FF;
    EXPECT_FALSE(HasClass(CreateGroupBox(dialog, {5, 6, 100, 90}, u"old", nullptr), u"button"));
}

TEST_F(StandardControls, AGroupBoxOfAnOldSystemPassesItsFontOn) {
    osVersionCode = 0x0501;
    LOGFONTW description = {};
    description.lfHeight = 16;
    const HFONT font = CreateFontIndirectW(&description);
    defaultGuiFont = font;
    const HWND group = CreateGroupBox(dialog, {5, 6, 100, 90}, u"group", nullptr);
    defaultGuiFont = nullptr;
    EXPECT_EQ(SendMessageW(GetWindow(group, GW_CHILD), WM_GETFONT, 0, 0),
              reinterpret_cast<LRESULT>(font));
    DestroyWindow(group);
    DeleteObject(font);
}

std::string TitleOfTab(HWND tabControl, WPARAM index) {
    wchar_t text[64] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 64;
    SendMessageW(tabControl, TCM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
    return {item.pszText, item.pszText + wcslen(item.pszText)};
}

class TabPages : public testing_support::ToolkitTest {
protected:
    TabPages() {
        tabs = CreateTabControl(dialog, {5, 8, 300, 200});
        first = AddTabPage(tabs, u"First");
        second = AddTabPage(tabs, u"Second");
    }

    HWND tabs;
    HWND first;
    HWND second;
};

TEST_F(TabPages, OnlyThePageOfTheCurrentTabIsShown) {
    EXPECT_EQ(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0), 2);
    EXPECT_TRUE(IsWindowVisible(first));
    EXPECT_FALSE(IsWindowVisible(second));
    EXPECT_EQ(CurrentTabPage(tabs), first);
    SendMessageW(tabs, TCM_SETCURSEL, 1, 0);
    EXPECT_EQ(CurrentTabPage(tabs), second);
}

TEST_F(TabPages, APageFillsWhatTheTabsLeave) {
    RECT area = {0, 0, 300, 200};
    SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    const LayoutRect expected = {area.left, area.top, area.right - area.left,
                                 area.bottom - area.top};
    EXPECT_EQ(PlaceInParent(first), expected);
    EXPECT_EQ(PlaceInParent(second), expected);
    EXPECT_EQ(GetParent(first), tabs);
    EXPECT_TRUE(HasClass(first, u"cwl_TabPage"));
    EXPECT_EQ(GetClassLongPtrW(first, GCL_STYLE), ULONG_PTR{CS_HREDRAW | CS_VREDRAW});
    EXPECT_NE(GetPropW(first, ToWide(ControlDataProperty)), nullptr);
}

TEST_F(TabPages, TheTitleIsAlwaysThePagesText) {
    EXPECT_EQ(TitleOfTab(tabs, 0), "First");
    EXPECT_EQ(TitleOfTab(tabs, 1), "Second");
    SetWindowTextW(second, L"Another");
    EXPECT_EQ(TitleOfTab(tabs, 0), "First");
    EXPECT_EQ(TitleOfTab(tabs, 1), "Another");
    EXPECT_EQ(TextOf(second), "Another");
}

TEST_F(TabPages, WithoutTabsThereIsNoPage) {
    EXPECT_EQ(CurrentTabPage(CreateTabControl(dialog, {0, 0, 60, 60})), nullptr);
}

}  // namespace
}  // namespace tallymere
