#include "toolkit/tab_page.h"

#include "toolkit/control_data.h"
#include "toolkit/environment.h"
#include "toolkit/standard_controls.h"
#include "toolkit/wide_text.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

constexpr const char16_t* TabControlClass = u"SysTabControl32";
constexpr const char16_t* TabPageClass = u"cwl_TabPage";

HWND PageOfTab(HWND tabControl, WPARAM index) {
    TCITEMW item = {};
    item.mask = TCIF_PARAM;
    SendMessageW(tabControl, TCM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
    return reinterpret_cast<HWND>(item.lParam);
}

void SetTabTitle(HWND page, LPARAM text) {
    const HWND tabControl = GetParent(page);
    const auto count = static_cast<WPARAM>(SendMessageW(tabControl, TCM_GETITEMCOUNT, 0, 0));
    for (WPARAM index = 0; index < count; index++) {
        if (PageOfTab(tabControl, index) == page) {
            TCITEMW item = {};
            item.mask = TCIF_TEXT;
            item.pszText = reinterpret_cast<wchar_t*>(text);
            SendMessageW(tabControl, TCM_SETITEMW, index, reinterpret_cast<LPARAM>(&item));
            return;
        }
    }
}

LRESULT CALLBACK TabPageProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETTEXT) {
        SetTabTitle(window, lParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

ToolkitClass tabPageClass = {TabPageClass, TabPageProc, CS_HREDRAW | CS_VREDRAW, 0, false};

HWND CreatePageWindow(HWND tabControl) {
    RegisterToolkitClass(tabPageClass);
    RECT area = {};
    GetClientRect(tabControl, &area);
    SendMessageW(tabControl, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    const HWND page =
        CreateWindowExW(0, ToWide(TabPageClass), nullptr, WS_CHILD | WS_VISIBLE, area.left,
                        area.top, area.right - area.left, area.bottom - area.top, tabControl,
                        nullptr, programInstance, nullptr);
    AttachControlData(page, nullptr);
    return page;
}

}  // namespace

HWND CreateTabControl(HWND parent, const LayoutRect& place) {
    return CreateControl(parent, TabControlClass, place, nullptr, WS_TABSTOP | WS_CLIPSIBLINGS);
}

HWND AddTabPage(HWND tabControl, const char16_t* text) {
    // An index behind all tabs adds at the end.
    TCITEMW item = {};
    const LRESULT index =
        SendMessageW(tabControl, TCM_INSERTITEMW, INT32_MAX, reinterpret_cast<LPARAM>(&item));
    if (index < 0) {
        return nullptr;
    }
    const HWND page = CreatePageWindow(tabControl);
    if (SendMessageW(tabControl, TCM_GETCURSEL, 0, 0) != index) {
        ShowControl(page, false);
    }
    item.mask = TCIF_PARAM;
    item.lParam = reinterpret_cast<LPARAM>(page);
    SendMessageW(tabControl, TCM_SETITEMW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
    SetWindowTextW(page, ToWide(text));
    return page;
}

HWND CurrentTabPage(HWND tabControl) {
    const LRESULT index = SendMessageW(tabControl, TCM_GETCURSEL, 0, 0);
    return index < 0 ? nullptr : PageOfTab(tabControl, static_cast<WPARAM>(index));
}

}  // namespace tallymere
