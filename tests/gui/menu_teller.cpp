// Tells the menu of a window. Menus can only be read within their own process, so this library is
// loaded into it as a hook, and answers there when the window gets MenuTellerMessage.
#include "gui/menu_teller.h"

#include <cstring>
#include <iterator>
#include <string>

#include "gui/json_text.h"
#include "toolkit/win32.h"

namespace tallymere {

namespace {

std::string ItemsOf(HWND window, HMENU menu);

std::string ItemJson(HWND window, HMENU menu, UINT position) {
    wchar_t caption[256] = {};
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
    info.dwTypeData = caption;
    info.cch = static_cast<UINT>(std::size(caption));
    GetMenuItemInfoW(menu, position, TRUE, &info);
    RECT rect = {};
    GetMenuItemRect(window, menu, position, &rect);

    JsonList place = JsonArray();
    for (const LONG number :
         {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top}) {
        place.Add(std::to_string(number));
    }
    JsonList item = JsonObject();
    item.Add("id", info.wID);
    item.Add("text", JsonText(std::wstring_view(caption)));
    item.Add("enabled", (info.fState & MFS_DISABLED) == 0);
    item.Add("rect", place.Text());
    item.Add("items", ItemsOf(window, info.hSubMenu));
    return item.Text();
}

std::string ItemsOf(HWND window, HMENU menu) {
    JsonList items = JsonArray();
    // -1 without a menu.
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; i++) {
        items.Add(ItemJson(window, menu, static_cast<UINT>(i)));
    }
    return items.Text();
}

void WriteAnswer(const std::string& text) {
    const HANDLE memory = OpenFileMappingW(FILE_MAP_WRITE, FALSE, MenuTellerMemory);
    void* view = MapViewOfFile(memory, FILE_MAP_WRITE, 0, 0, MenuTellerBytes);
    if (view != nullptr && text.size() < MenuTellerBytes) {
        std::memcpy(view, text.c_str(), text.size() + 1);
    }
    UnmapViewOfFile(view);
    CloseHandle(memory);
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK TellMenu(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent.message == RegisterWindowMessageW(MenuTellerMessage)) {
        WriteAnswer(ItemsOf(sent.hwnd, GetMenu(sent.hwnd)));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace tallymere
