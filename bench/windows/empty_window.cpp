// The least that a program with a window can be: what tallymere.exe is measured beside.
#include "toolkit/win32.h"

namespace {

LRESULT CALLBACK EmptyWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = EmptyWindowProc;
    windowClass.hInstance = instance;
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = L"EmptyWindow";
    RegisterClassW(&windowClass);
    CreateWindowExW(0, windowClass.lpszClassName, L"Empty", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                    CW_USEDEFAULT, CW_USEDEFAULT, 370, 100, nullptr, nullptr, instance, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    return 0;
}
