// Tells what windows of a program are on the screen, for tests that run outside of Windows.
//
// Reads commands from standard input, one per line, and answers each with one line of JSON:
//
//   windows IMAGE     the windows of all processes of the program file IMAGE, such as
//                     "tallymere.exe", visible or not, each with its controls
//   window HANDLE     one of them, or one control, with all in it
//   menu HANDLE       the items of a window's menu, each with those of its drop-down menu
//   texts HANDLE      the texts of a window's controls, each with the room that it needs and that
//                     it has, as width and height
//   early ID MAIN TITLE
//                     chooses an item of the menu as soon as there is a window titled MAIN, and
//                     tells whether that was before the window titled TITLE was made; two strings
//                     of JSON
//   processes IMAGE   the ids of these processes
//   end ID            ends a process; whether that worked
//   browser PATH      makes a program the only one that opens web addresses; without PATH there is
//                     none; whether that worked
//   answers HANDLE    sends a window a hundred messages that do nothing; how many were answered,
//                     each before the next was sent
//   write HANDLE TEXT sets the text of a control, a string of JSON; whether it took it
//   clipboard TEXT    puts a text on the clipboard, a string of JSON; whether it took it
//   counts ID         what a process holds: handles of the system, objects to draw with, windows,
//                     threads, bytes of memory
//
// It ends with the input. All places are pixels of the screen: x, y, width, height.

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "gui/json_text.h"
#include "gui/window_teller.h"
#include "toolkit/gdi_objects.h"
#include "toolkit/win32.h"
// They need the headers of Windows before them.
#include <psapi.h>
#include <tlhelp32.h>
#include <winternl.h>

namespace tallymere {

namespace {

constexpr UINT AnswerMilliseconds = 5000;
constexpr DWORD StartMilliseconds = 60'000;

// A window whose thread does not answer gives `none`.
LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0, LRESULT none = 0) {
    DWORD_PTR result = 0;
    return SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG,
                               AnswerMilliseconds, &result) != 0
               ? static_cast<LRESULT>(result)
               : none;
}

std::wstring AskText(HWND window, UINT lengthMessage, UINT textMessage, WPARAM lengthArgument,
                     bool bufferSizeIsArgument) {
    const LRESULT length = Ask(window, lengthMessage, lengthArgument);
    if (length <= 0) {
        return {};
    }
    std::vector<wchar_t> text(static_cast<size_t>(length) + 1);
    const WPARAM argument = bufferSizeIsArgument ? text.size() : lengthArgument;
    Ask(window, textMessage, argument, reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

std::wstring WindowText(HWND window) {
    return AskText(window, WM_GETTEXTLENGTH, WM_GETTEXT, 0, true);
}

std::wstring ClassName(HWND window) {
    wchar_t name[256] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return name;
}

std::string Json(const std::wstring& text) {
    return JsonText(std::wstring_view(text));
}

std::string Json(const RECT& rect) {
    JsonList list = JsonArray();
    for (const LONG number :
         {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top}) {
        list.Add(std::to_string(number));
    }
    return list.Text();
}

std::string Json(HWND window) {
    return std::to_string(reinterpret_cast<intptr_t>(window));
}

RECT OnScreen(HWND window, RECT rect) {
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// Memory of another process, for messages that take a pointer there.
class RemoteMemory {
public:
    RemoteMemory(HWND window, size_t size) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
        address = VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE);
    }
    ~RemoteMemory() {
        VirtualFreeEx(process, address, 0, MEM_RELEASE);
        CloseHandle(process);
    }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    std::byte* Address() const { return static_cast<std::byte*>(address); }

    template <typename Record>
    void Write(const Record& record) {
        WriteProcessMemory(process, address, &record, sizeof record, nullptr);
    }

    template <typename Record>
    void Read(Record& record, size_t offset = 0) const {
        ReadProcessMemory(process, Address() + offset, &record, sizeof record, nullptr);
    }

private:
    HANDLE process;
    void* address;
};

std::string TabTitles(HWND tabControl) {
    struct Exchange {
        TCITEMW item;
        RECT rect;
        wchar_t text[256];
    };
    RemoteMemory memory(tabControl, sizeof(Exchange));
    JsonList tabs = JsonArray();
    const LRESULT count = Ask(tabControl, TCM_GETITEMCOUNT);
    for (LRESULT i = 0; i < count; i++) {
        Exchange exchange = {};
        exchange.item.mask = TCIF_TEXT;
        exchange.item.pszText =
            reinterpret_cast<wchar_t*>(memory.Address() + offsetof(Exchange, text));
        exchange.item.cchTextMax = static_cast<int>(std::size(exchange.text));
        memory.Write(exchange);
        const auto index = static_cast<WPARAM>(i);
        Ask(tabControl, TCM_GETITEMW, index, reinterpret_cast<LPARAM>(memory.Address()));
        Ask(tabControl, TCM_GETITEMRECT, index,
            reinterpret_cast<LPARAM>(memory.Address() + offsetof(Exchange, rect)));
        memory.Read(exchange);
        JsonList tab = JsonObject();
        tab.Add("text", Json(std::wstring(exchange.text)));
        tab.Add("rect", Json(OnScreen(tabControl, exchange.rect)));
        tabs.Add(tab.Text());
    }
    return tabs.Text();
}

// What only controls of certain classes have.
void AddClassMembers(JsonList& object, HWND window, const std::wstring& className) {
    if (lstrcmpiW(className.c_str(), L"button") == 0) {
        object.Add("checked", Ask(window, BM_GETCHECK) == BST_CHECKED);
    } else if (lstrcmpiW(className.c_str(), L"combobox") == 0) {
        JsonList rows = JsonArray();
        const LRESULT count = Ask(window, CB_GETCOUNT);
        for (LRESULT row = 0; row < count; row++) {
            rows.Add(Json(
                AskText(window, CB_GETLBTEXTLEN, CB_GETLBTEXT, static_cast<WPARAM>(row), false)));
        }
        object.Add("rows", rows.Text());
        object.Add("row", Ask(window, CB_GETCURSEL, 0, 0, CB_ERR));
        object.Add("dropped", Ask(window, CB_GETDROPPEDSTATE) != 0);
    } else if (lstrcmpiW(className.c_str(), L"listbox") == 0) {
        JsonList rows = JsonArray();
        const LRESULT count = Ask(window, LB_GETCOUNT);
        for (LRESULT row = 0; row < count; row++) {
            rows.Add(
                Json(AskText(window, LB_GETTEXTLEN, LB_GETTEXT, static_cast<WPARAM>(row), false)));
        }
        object.Add("rows", rows.Text());
        object.Add("row", Ask(window, LB_GETCURSEL, 0, 0, LB_ERR));
    } else if (lstrcmpiW(className.c_str(), L"edit") == 0) {
        DWORD from = 0;
        DWORD to = 0;
        Ask(window, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        JsonList selection = JsonArray();
        selection.Add(std::to_string(from));
        selection.Add(std::to_string(to));
        object.Add("selection", selection.Text());
    } else if (lstrcmpiW(className.c_str(), TRACKBAR_CLASSW) == 0) {
        object.Add("position", Ask(window, TBM_GETPOS, 0, 0, -1));
    } else if (lstrcmpiW(className.c_str(), WC_TABCONTROLW) == 0) {
        object.Add("tabs", TabTitles(window));
        object.Add("tab", Ask(window, TCM_GETCURSEL, 0, 0, -1));
    }
}

std::string Describe(HWND window) {
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(window, &process);
    GUITHREADINFO input = {};
    input.cbSize = sizeof input;
    GetGUIThreadInfo(thread, &input);
    RECT place = {};
    RECT client = {};
    GetWindowRect(window, &place);
    GetClientRect(window, &client);
    const std::wstring className = ClassName(window);

    JsonList object = JsonObject();
    object.Add("handle", Json(window));
    object.Add("process", process);
    object.Add("class", Json(className));
    object.Add("text", Json(WindowText(window)));
    object.Add("style", static_cast<uint32_t>(GetWindowLongW(window, GWL_STYLE)));
    object.Add("extended_style", static_cast<uint32_t>(GetWindowLongW(window, GWL_EXSTYLE)));
    object.Add("rect", Json(place));
    object.Add("client", Json(OnScreen(window, client)));
    object.Add("visible", IsWindowVisible(window) != 0);
    object.Add("enabled", IsWindowEnabled(window) != 0);
    object.Add("focused", input.hwndFocus == window);
    object.Add("minimised", IsIconic(window) != 0);
    object.Add("maximised", IsZoomed(window) != 0);
    object.Add("owner", Json(GetWindow(window, GW_OWNER)));
    // The id that Wine's display server knows the window by.
    object.Add("display_id", Json(static_cast<HWND>(GetPropW(window, L"__wine_x11_whole_window"))));
    AddClassMembers(object, window, className);
    JsonList children = JsonArray();
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        children.Add(Describe(child));
    }
    object.Add("children", children.Text());
    return object.Text();
}

std::vector<PROCESSENTRY32W> AllProcesses() {
    std::vector<PROCESSENTRY32W> processes;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more;
         more = Process32NextW(snapshot, &entry)) {
        processes.push_back(entry);
    }
    CloseHandle(snapshot);
    return processes;
}

std::vector<DWORD> ProcessesOf(const std::wstring& image) {
    std::vector<DWORD> processes;
    for (const PROCESSENTRY32W& entry : AllProcesses()) {
        if (lstrcmpiW(entry.szExeFile, image.c_str()) == 0) {
            processes.push_back(entry.th32ProcessID);
        }
    }
    return processes;
}

std::string AnswerProcesses(const std::wstring& image) {
    JsonList list = JsonArray();
    for (const DWORD process : ProcessesOf(image)) {
        list.Add(std::to_string(process));
    }
    return list.Text();
}

std::string AnswerWindows(const std::wstring& image) {
    struct Search {
        std::vector<DWORD> processes;
        std::vector<HWND> found;
    } search = {ProcessesOf(image), {}};
    EnumWindows(
        [](HWND window, LPARAM argument) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(argument);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            for (const DWORD process : wanted.processes) {
                if (process == owner) {
                    wanted.found.push_back(window);
                }
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    JsonList windows = JsonArray();
    for (const HWND window : search.found) {
        windows.Add(Describe(window));
    }
    JsonList answer = JsonObject();
    answer.Add("foreground", Json(GetForegroundWindow()));
    answer.Add("windows", windows.Text());
    return answer.Text();
}

// What the library answers within the process of the window.
std::string AskInside(HWND window, WindowTellerQuestion question) {
    const HANDLE memory = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                             WindowTellerBytes, WindowTellerMemory);
    auto* answer =
        static_cast<const char*>(MapViewOfFile(memory, FILE_MAP_READ, 0, 0, WindowTellerBytes));
    const HMODULE library = LoadLibraryW(WindowTellerLibrary);
    const auto hookProc = reinterpret_cast<HOOKPROC>(
        reinterpret_cast<void*>(GetProcAddress(library, WindowTellerHook)));
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, hookProc, library,
                                         GetWindowThreadProcessId(window, nullptr));
    Ask(window, RegisterWindowMessageW(WindowTellerMessage), question);
    UnhookWindowsHookEx(hook);
    // New shared memory is empty.
    const std::string text = *answer == 0 ? "null" : answer;
    UnmapViewOfFile(answer);
    CloseHandle(memory);
    return text;
}

std::string RegisterBrowser(const std::wstring& path) {
    // Wine looks at what all users have only.
    const std::wstring key = L"Software\\Classes\\http";
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
    if (path.empty()) {
        return "true";
    }
    const std::wstring command = L'"' + path + L"\" \"%1\"";
    const LSTATUS status = RegSetKeyValueW(
        HKEY_LOCAL_MACHINE, (key + L"\\shell\\open\\command").c_str(), nullptr, REG_SZ,
        command.c_str(), static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
    return status == ERROR_SUCCESS ? "true" : "false";
}

std::string EndProcess(DWORD id) {
    const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
    const bool ended = process != nullptr && TerminateProcess(process, 1) != 0 &&
                       WaitForSingleObject(process, AnswerMilliseconds) == WAIT_OBJECT_0;
    CloseHandle(process);
    return ended ? "true" : "false";
}

// What a string of JSON in ASCII says.
std::wstring TextOfJson(const std::string& json) {
    std::wstring text;
    for (size_t i = 1; i + 1 < json.size(); i++) {
        if (json[i] != '\\') {
            text += static_cast<wchar_t>(json[i]);
            continue;
        }
        const char escaped = json[++i];
        if (escaped == 'u') {
            const std::string code = json.substr(i + 1, 4);
            text += static_cast<wchar_t>(std::strtoul(code.c_str(), nullptr, 16));
            i += 4;
        } else {
            constexpr std::string_view Letters = "nrtbf";
            constexpr std::wstring_view Characters = L"\n\r\t\b\f";
            const size_t letter = Letters.find(escaped);
            text += letter == Letters.npos ? static_cast<wchar_t>(escaped) : Characters[letter];
        }
    }
    return text;
}

HWND WindowOf(const std::string& argument) {
    return reinterpret_cast<HWND>(std::strtoll(argument.c_str(), nullptr, 10));
}

HWND FindByTitle(const std::wstring& title) {
    return FindWindowW(L"cwl_DialogWindow", title.c_str());
}

// A window that is not there behind the choice was not there before it.
std::string ChooseEarly(WPARAM item, const std::wstring& mainTitle, const std::wstring& title) {
    const ULONGLONG end = GetTickCount64() + StartMilliseconds;
    HWND main = nullptr;
    while ((main = FindByTitle(mainTitle)) == nullptr && GetTickCount64() < end) {
        Sleep(1);
    }
    const bool isChosen = PostMessageW(main, WM_COMMAND, item, 0) != 0;
    return isChosen && FindByTitle(title) == nullptr ? "true" : "false";
}

std::string CountAnswers(HWND window) {
    constexpr int Messages = 100;
    int answered = 0;
    DWORD_PTR result = 0;
    while (answered < Messages && SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL,
                                                      AnswerMilliseconds, &result) != 0) {
        answered++;
    }
    return std::to_string(answered);
}

std::string WriteText(HWND window, const std::wstring& text) {
    return Ask(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str())) != 0 ? "true"
                                                                                   : "false";
}

bool PutOnClipboard(const std::wstring& text) {
    if (OpenClipboard(nullptr) == 0) {
        return false;
    }
    EmptyClipboard();
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    const bool taken = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    CloseClipboard();
    return taken;
}

// Windows of a process, all controls among them.
int64_t CountWindows(DWORD process) {
    struct Count {
        DWORD process;
        int64_t windows;
    } count = {process, 0};
    const auto add = [](HWND window, LPARAM argument) -> BOOL {
        auto& found = *reinterpret_cast<Count*>(argument);
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        found.windows += owner == found.process;
        return TRUE;
    };
    EnumChildWindows(GetDesktopWindow(), add, reinterpret_cast<LPARAM>(&count));
    return count.windows;
}

// Handles of the system. GetProcessHandleCount would tell them as well, but Wine always gives 0.
int64_t CountHandles(DWORD process) {
    struct Entry {
        void* object;
        ULONG_PTR process;
        ULONG_PTR handle;
        ULONG access;
        USHORT trace;
        USHORT type;
        ULONG attributes;
        ULONG reserved;
    };
    constexpr auto AllHandles = static_cast<SYSTEM_INFORMATION_CLASS>(64);
    std::vector<ULONG_PTR> table(1 << 20);
    ULONG size = 0;
    if (NtQuerySystemInformation(AllHandles, table.data(),
                                 static_cast<ULONG>(table.size() * sizeof(ULONG_PTR)), &size) < 0) {
        return -1;
    }
    const ULONG_PTR count = table[0];
    const auto* entries = reinterpret_cast<const Entry*>(&table[2]);
    return std::count_if(entries, entries + count,
                         [process](const Entry& entry) { return entry.process == process; });
}

int64_t CountThreads(DWORD process) {
    for (const PROCESSENTRY32W& entry : AllProcesses()) {
        if (entry.th32ProcessID == process) {
            return entry.cntThreads;
        }
    }
    return -1;
}

std::string CountResources(DWORD id) {
    const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id);
    PROCESS_MEMORY_COUNTERS memory = {};
    memory.cb = sizeof memory;
    K32GetProcessMemoryInfo(process, &memory, sizeof memory);
    JsonList counts = JsonObject();
    counts.Add("handles", CountHandles(id));
    counts.Add("gdi", testing_support::CountGdiObjects(process));
    counts.Add("windows", CountWindows(id));
    counts.Add("threads", CountThreads(id));
    counts.Add("committed", memory.PagefileUsage);
    counts.Add("resident", memory.WorkingSetSize);
    CloseHandle(process);
    return counts.Text();
}

std::string Answer(const std::string& line) {
    const size_t blank = line.find(' ');
    const std::string command = line.substr(0, blank);
    const std::string argument = blank == std::string::npos ? "" : line.substr(blank + 1);
    const std::wstring wide(argument.begin(), argument.end());
    if (command == "windows") {
        return AnswerWindows(wide);
    }
    if (command == "processes") {
        return AnswerProcesses(wide);
    }
    if (command == "end") {
        return EndProcess(static_cast<DWORD>(std::strtoul(argument.c_str(), nullptr, 10)));
    }
    if (command == "menu") {
        return AskInside(WindowOf(argument), TellMenu);
    }
    if (command == "texts") {
        return AskInside(WindowOf(argument), TellTexts);
    }
    if (command == "browser") {
        return RegisterBrowser(wide);
    }
    if (command == "answers") {
        return CountAnswers(WindowOf(argument));
    }
    if (command == "post") {
        const size_t message = argument.find(' ') + 1;
        const auto number = std::strtoul(argument.substr(message).c_str(), nullptr, 10);
        return PostMessageW(WindowOf(argument), static_cast<UINT>(number), 0, 0) != 0 ? "true"
                                                                                      : "false";
    }
    if (command == "write") {
        const size_t text = argument.find(' ') + 1;
        return WriteText(WindowOf(argument), TextOfJson(argument.substr(text)));
    }
    if (command == "window") {
        return Describe(WindowOf(argument));
    }
    if (command == "early") {
        const size_t main = argument.find(' ') + 1;
        const size_t title = argument.find("\" \"", main) + 2;
        return ChooseEarly(std::strtoul(argument.c_str(), nullptr, 10),
                           TextOfJson(argument.substr(main, title - 1 - main)),
                           TextOfJson(argument.substr(title)));
    }
    if (command == "clipboard") {
        return PutOnClipboard(TextOfJson(argument)) ? "true" : "false";
    }
    if (command == "counts") {
        return CountResources(static_cast<DWORD>(std::strtoul(argument.c_str(), nullptr, 10)));
    }
    return "null";
}

}  // namespace

}  // namespace tallymere

int main() {
    // Otherwise Windows would tell places as they were at 96 dots per inch.
    SetProcessDPIAware();
    std::string line;
    while (std::getline(std::cin, line)) {
        while (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        std::cout << tallymere::Answer(line) << std::endl;
    }
}
