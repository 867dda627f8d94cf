// Tells of a window what only its own process can know: its menu, and how large its texts are, as
// fonts belong to a process. This library is loaded into it as a hook, and answers there when the
// window gets WindowTellerMessage.
#include "gui/window_teller.h"

#include <algorithm>
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

// A device to measure a control's texts on, with the font of the control.
class TextMeasure {
public:
    explicit TextMeasure(HWND control) : window(control), dc(GetDC(control)) {
        const auto font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
        fontBefore = SelectObject(dc, font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    }
    ~TextMeasure() {
        SelectObject(dc, fontBefore);
        ReleaseDC(window, dc);
    }
    TextMeasure(const TextMeasure&) = delete;
    TextMeasure& operator=(const TextMeasure&) = delete;

    // With DT_WORDBREAK its lines are broken at `width`.
    SIZE Size(const std::wstring& text, UINT format, LONG width = 0) const {
        RECT rect = {0, 0, width, 0};
        DrawTextW(dc, text.c_str(), -1, &rect, format | DT_CALCRECT);
        return {rect.right, rect.bottom};
    }

private:
    HWND window;
    HDC dc;
    HGDIOBJ fontBefore;
};

SIZE SizeOf(const RECT& rect) {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

SIZE ClientSizeOf(HWND window) {
    RECT rect = {};
    GetClientRect(window, &rect);
    return SizeOf(rect);
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::string Json(SIZE size) {
    return '[' + std::to_string(size.cx) + ", " + std::to_string(size.cy) + ']';
}

void AddText(JsonList& texts, HWND control, const std::wstring& text, SIZE needed, SIZE room) {
    JsonList entry = JsonObject();
    entry.Add("handle", std::to_string(reinterpret_cast<intptr_t>(control)));
    entry.Add("text", JsonText(std::wstring_view(text)));
    entry.Add("needed", Json(needed));
    entry.Add("room", Json(room));
    texts.Add(entry.Text());
}

void AddStaticText(JsonList& texts, HWND control) {
    const SIZE room = ClientSizeOf(control);
    const std::wstring text = TextOf(control);
    AddText(texts, control, text,
            TextMeasure(control).Size(text, DT_WORDBREAK | DT_EXPANDTABS, room.cx), room);
}

void AddButtonText(JsonList& texts, HWND button) {
    const SIZE room = ClientSizeOf(button);
    const std::wstring text = TextOf(button);
    const LONG type = GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK;
    if (type == BS_GROUPBOX) {
        // The title begins and ends that far from the corners.
        const LONG inset = GetSystemMetrics(SM_CXSMICON) / 2;
        SIZE needed = TextMeasure(button).Size(text, DT_SINGLELINE);
        needed.cx += 2 * inset;
        AddText(texts, button, text, needed, room);
    } else if (type != BS_OWNERDRAW) {
        // The button adds its margins or its mark; lines break at the width that it is given.
        SIZE needed = {room.cx, 0};
        SendMessageW(button, BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&needed));
        AddText(texts, button, text, needed, room);
    }
}

void AddListTexts(JsonList& texts, HWND list) {
    COMBOBOXINFO info = {};
    info.cbSize = sizeof info;
    GetComboBoxInfo(list, &info);
    const TextMeasure measure(list);
    const auto count = static_cast<WPARAM>(SendMessageW(list, CB_GETCOUNT, 0, 0));
    for (WPARAM row = 0; row < count; row++) {
        std::wstring text(static_cast<size_t>(SendMessageW(list, CB_GETLBTEXTLEN, row, 0)), L'\0');
        SendMessageW(list, CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(text.data()));
        AddText(texts, list, text, measure.Size(text, DT_SINGLELINE | DT_NOPREFIX),
                SizeOf(info.rcItem));
    }
}

// Tabs that do not fit side by side would be scrolled.
void AddTabTitles(JsonList& texts, HWND tabs) {
    const TextMeasure measure(tabs);
    const LONG end = ClientSizeOf(tabs).cx;
    const auto count = static_cast<WPARAM>(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0));
    for (WPARAM index = 0; index < count; index++) {
        wchar_t text[256] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = static_cast<int>(std::size(text));
        SendMessageW(tabs, TCM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
        RECT rect = {};
        SendMessageW(tabs, TCM_GETITEMRECT, index, reinterpret_cast<LPARAM>(&rect));
        rect.right = std::min(rect.right, end);
        AddText(texts, tabs, text, measure.Size(text, DT_SINGLELINE), SizeOf(rect));
    }
}

void AddTexts(JsonList& texts, HWND control) {
    wchar_t className[64] = {};
    GetClassNameW(control, className, static_cast<int>(std::size(className)));
    const auto is = [&className](const wchar_t* name) { return lstrcmpiW(className, name) == 0; };
    if (is(L"static")) {
        AddStaticText(texts, control);
    } else if (is(L"button")) {
        AddButtonText(texts, control);
    } else if (is(L"combobox")) {
        AddListTexts(texts, control);
    } else if (is(WC_TABCONTROLW)) {
        AddTabTitles(texts, control);
    }
}

std::string TextsOf(HWND window) {
    JsonList texts = JsonArray();
    EnumChildWindows(
        window,
        [](HWND control, LPARAM argument) -> BOOL {
            AddTexts(*reinterpret_cast<JsonList*>(argument), control);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&texts));
    return texts.Text();
}

void WriteAnswer(const std::string& text) {
    const HANDLE memory = OpenFileMappingW(FILE_MAP_WRITE, FALSE, WindowTellerMemory);
    void* view = MapViewOfFile(memory, FILE_MAP_WRITE, 0, 0, WindowTellerBytes);
    if (view != nullptr && text.size() < WindowTellerBytes) {
        std::memcpy(view, text.c_str(), text.size() + 1);
    }
    UnmapViewOfFile(view);
    CloseHandle(memory);
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK
    TellWindow(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent.message == RegisterWindowMessageW(WindowTellerMessage)) {
        WriteAnswer(sent.wParam == TellMenu ? ItemsOf(sent.hwnd, GetMenu(sent.hwnd))
                                            : TextsOf(sent.hwnd));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace tallymere
