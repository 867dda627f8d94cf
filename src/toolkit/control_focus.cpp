#include "toolkit/control_focus.h"

#include "layout/default_look.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

constexpr WindowsTree windowsTree;

WalkDirection DirectionOf(bool forward) {
    return forward ? WalkForward : WalkBackward;
}

void TakeFocus(const FocusTarget<HWND>& target) {
    if (target.check) {
        SendMessageW(target.window, BM_SETCHECK, BST_CHECKED, 0);
    }
    SetFocus(target.window);
}

}  // namespace

static_assert(WindowTree<WindowsTree> && PushButtons<WindowsTree>);

WindowClassName::WindowClassName(HWND window) {
    text[0] = 0;
    GetClassNameW(window, ToWide(text), ClassNameCapacity);
}

uint32_t WindowStyle(HWND window) {
    return static_cast<uint32_t>(GetWindowLongPtrW(window, GWL_STYLE));
}

bool IsPushButton(HWND window) {
    return IsPushButton(WindowClassName(window).text, WindowStyle(window));
}

bool IsRadioButton(HWND window) {
    return IsRadioButton(WindowClassName(window).text, WindowStyle(window));
}

bool WantsReturn(HWND control) {
    const WindowClassName name(control);
    const HWND parent = windowsTree.Parent(control);
    const WindowClassName parentName(parent);
    HWND comboBox = nullptr;
    if (IsSameClassName(name.text, ComboBoxClass)) {
        comboBox = control;
    } else if (IsSameClassName(parentName.text, ComboBoxClass)) {
        comboBox = parent;
    }
    return WantsReturn({.className = name.text,
                        .style = WindowStyle(control),
                        .parentClassName = parentName.text,
                        .isListDropped = comboBox != nullptr &&
                                         SendMessageW(comboBox, CB_GETDROPPEDSTATE, 0, 0) != 0});
}

bool WantsAllKeys(HWND control) {
    const LRESULT wanted = SendMessageW(control, WM_GETDLGCODE, 0, 0);
    return (wanted & (DLGC_WANTALLKEYS | DLGC_HASSETSEL)) == DLGC_WANTALLKEYS;
}

HWND WindowsTree::Parent(HWND window) const {
    return (WindowStyle(window) & WS_CHILD) != 0 ? GetParent(window) : nullptr;
}

HWND WindowsTree::FirstChild(HWND window) const {
    return GetWindow(window, GW_CHILD);
}

HWND WindowsTree::LastChild(HWND window) const {
    const HWND first = FirstChild(window);
    return first == nullptr ? nullptr : GetWindow(first, GW_HWNDLAST);
}

HWND WindowsTree::NextSibling(HWND window) const {
    return GetWindow(window, GW_HWNDNEXT);
}

HWND WindowsTree::PreviousSibling(HWND window) const {
    return GetWindow(window, GW_HWNDPREV);
}

bool WindowsTree::IsTabStop(HWND window) const {
    return CanTakeFocus(WindowStyle(window), IsVisible(window));
}

bool WindowsTree::IsVisible(HWND window) const {
    return IsWindowVisible(window) != FALSE;
}

bool WindowsTree::IsRadioButton(HWND window) const {
    return tallymere::IsRadioButton(window);
}

bool WindowsTree::IsChecked(HWND button) const {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

bool WindowsTree::IsPushButton(HWND window) const {
    return tallymere::IsPushButton(window);
}

HWND NextTabStop(HWND control, bool forward) {
    return NextTabStop(windowsTree, control, DirectionOf(forward));
}

HWND RadioGroupEnd(HWND control, bool forward) {
    return RadioGroupEnd(windowsTree, control, DirectionOf(forward));
}

void FocusControl(HWND control) {
    TakeFocus(FocusTargetOf(windowsTree, control));
}

HWND FocusNextControl(HWND control, bool forward) {
    const auto target = TabTargetOf(windowsTree, control, DirectionOf(forward));
    TakeFocus(target);
    return target.window;
}

void ShowFocusRectangle(HWND control) {
    SendMessageW(control, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
}

}  // namespace tallymere
