#include "toolkit/splitter_control.h"

#include "toolkit/environment.h"
#include "toolkit/wide_text.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

// Only one bar is dragged at a time.
SplitterDrag drag;

SplitterOrientation OrientationOf(HWND splitter) {
    return static_cast<SplitterOrientation>(
        reinterpret_cast<intptr_t>(GetPropW(splitter, ToWide(SplitterOrientationProperty))));
}

void ShowDragCursor(HWND splitter) {
    const bool isSideways = OrientationOf(splitter) == SplitterLeftAndRight;
    SetCursor(LoadCursorW(nullptr, isSideways ? IDC_SIZEWE : IDC_SIZENS));
}

LayoutPoint MouseInParent(HWND splitter, LPARAM position) {
    POINT point = {static_cast<int16_t>(LOWORD(position)), static_cast<int16_t>(HIWORD(position))};
    MapWindowPoints(splitter, GetParent(splitter), &point, 1);
    return {point.x, point.y};
}

bool AllowsMove(HWND splitter, int32_t difference) {
    const auto moving =
        reinterpret_cast<SplitterMovingEvent>(GetPropW(splitter, ToWide(SplitterMovingProperty)));
    return moving != nullptr && moving(splitter, difference);
}

void Drag(HWND splitter, LayoutPoint mouse) {
    const int32_t difference = TrackSplitter(drag, mouse);
    if (difference == 0 || !AllowsMove(splitter, difference)) {
        return;
    }
    const LayoutRect place = PlaceInParent(splitter);
    const LayoutPoint moved = MovedSplitter(drag.orientation, {place.x, place.y}, difference);
    SetWindowPos(splitter, nullptr, moved.x, moved.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CALLBACK SplitterProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETCURSOR:
            // Otherwise the class sets its arrow before each move of the mouse: the cursor
            // flickers.
            ShowDragCursor(window);
            return TRUE;
        case WM_LBUTTONDOWN:
            ShowDragCursor(window);
            SetCapture(window);
            drag = {OrientationOf(window), MouseInParent(window, lParam)};
            break;
        case WM_MOUSEMOVE:
            ShowDragCursor(window);
            if (GetCapture() == window) {
                Drag(window, MouseInParent(window, lParam));
            }
            break;
        case WM_LBUTTONUP:
            ReleaseCapture();
            break;
        case WM_MOUSELEAVE:
            SetCursor(LoadCursorW(nullptr, IDC_ARROW));
            ReleaseCapture();
            break;
        case WM_NCDESTROY:
            RemovePropW(window, ToWide(SplitterOrientationProperty));
            RemovePropW(window, ToWide(SplitterMovingProperty));
            break;
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

ToolkitClass splitterClass = {SplitterClass, SplitterProc, 0, 0, false};

}  // namespace

HWND CreateSplitter(HWND parent, const LayoutRect& place, SplitterOrientation orientation,
                    SplitterMovingEvent moving) {
    const HWND splitter = CreateOwnControl(parent, splitterClass, place);
    SetPropW(splitter, ToWide(SplitterOrientationProperty),
             reinterpret_cast<HANDLE>(static_cast<intptr_t>(orientation)));
    SetSplitterMoving(splitter, moving);
    return splitter;
}

void SetSplitterMoving(HWND splitter, SplitterMovingEvent moving) {
    SetPropW(splitter, ToWide(SplitterMovingProperty), reinterpret_cast<HANDLE>(moving));
}

}  // namespace tallymere
