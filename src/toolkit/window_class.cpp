#include "toolkit/window_class.h"

#include "toolkit/environment.h"
#include "toolkit/wide_text.h"

namespace tallymere {

void RegisterToolkitClass(ToolkitClass& toolkitClass) {
    if (toolkitClass.registered) {
        return;
    }
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = toolkitClass.style;
    windowClass.lpfnWndProc = toolkitClass.procedure;
    windowClass.cbWndExtra = toolkitClass.slots * static_cast<int32_t>(sizeof(LONG_PTR));
    windowClass.hInstance = programInstance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = ToWide(toolkitClass.name);
    toolkitClass.registered = RegisterClassExW(&windowClass) != 0;
}

HWND CreateOwnControl(HWND parent, ToolkitClass& toolkitClass, const LayoutRect& place,
                      DWORD style) {
    RegisterToolkitClass(toolkitClass);
    const LayoutRect pixels = ToScreenPixels(place);
    return CreateWindowExW(0, ToWide(toolkitClass.name), nullptr, style | WS_CHILD | WS_VISIBLE,
                           pixels.x, pixels.y, pixels.width, pixels.height, parent, nullptr,
                           programInstance, nullptr);
}

}  // namespace tallymere
