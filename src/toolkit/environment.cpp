#include "toolkit/environment.h"

namespace tallymere {

HINSTANCE programInstance = nullptr;
uint32_t osVersionCode = 0;
bool isWine = false;
int32_t screenDpi = LogicalDpi;
HFONT defaultGuiFont = nullptr;

LayoutRect PlaceInParent(HWND window) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    if ((GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0) {
        MapWindowPoints(HWND_DESKTOP, GetParent(window), reinterpret_cast<POINT*>(&rect), 2);
    }
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

LayoutSize ClientSize(HWND window) {
    RECT rect = {};
    GetClientRect(window, &rect);
    return {rect.right, rect.bottom};
}

LayoutSize LogicalClientSize(HWND window) {
    const LayoutSize pixels = ClientSize(window);
    return {FromScreenPixels(pixels.width), FromScreenPixels(pixels.height)};
}

}  // namespace tallymere
