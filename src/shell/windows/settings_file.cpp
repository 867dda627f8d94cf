#include "shell/windows/settings_file.h"

#include <cstdint>
#include <cstdlib>

#include "calculator/variable_settings.h"
#include "shell/program_paths.h"
#include "shell/settings.h"
#include "shell/settings_bytes.h"
#include "shell/settings_walk.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

#include <shlobj.h>

namespace tallymere {

namespace {

// Closes a file and frees a block on every way out.
struct FileScope {
    HANDLE file;
    ~FileScope() { CloseHandle(file); }
};

struct BlockScope {
    void* block;
    ~BlockScope() { std::free(block); }
};

template <typename Item>
Item* AllocateItems(int64_t count) {
    return static_cast<Item*>(std::malloc(static_cast<size_t>(count) * sizeof(Item)));
}

void FindSettingsPath(char16_t (&path)[PathCapacity + 1]) {
    char16_t folder[PathCapacity + 1] = u"";
    char16_t userFolder[PathCapacity + 1];
    if (SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, ToWide(userFolder)) ==
        S_OK) {
        FormatSettingsFolder(folder, userFolder);
        if (GetFileAttributesW(ToWide(folder)) == INVALID_FILE_ATTRIBUTES) {
            CreateDirectoryW(ToWide(folder), nullptr);
        }
    }
    FormatSettingsFile(path, folder);
}

// The text of the file, which the caller owns; null for a file that cannot be read.
char16_t* ReadSettingsText() {
    const FileScope scope = {CreateFileW(ToWide(SettingsPath()), GENERIC_READ, FILE_SHARE_READ,
                                         nullptr, OPEN_EXISTING, 0, nullptr)};
    if (scope.file == INVALID_HANDLE_VALUE) {
        return nullptr;
    }
    const DWORD size = GetFileSize(scope.file, nullptr);
    if (size == INVALID_FILE_SIZE) {
        return nullptr;
    }
    const BlockScope bytes = {AllocateItems<uint8_t>(size)};
    DWORD read = 0;
    if (bytes.block == nullptr || !ReadFile(scope.file, bytes.block, size, &read, nullptr) ||
        read != size) {
        return nullptr;
    }
    auto* text = AllocateItems<char16_t>(SettingsTextRoom(size));
    if (text != nullptr) {
        DecodeSettings(text, static_cast<const uint8_t*>(bytes.block), size);
    }
    return text;
}

}  // namespace

const char16_t* SettingsPath() {
    static char16_t path[PathCapacity + 1] = u"";
    if (path[0] == 0) {
        FindSettingsPath(path);
    }
    return path;
}

void LoadSettings() {
    char16_t* text = ReadSettingsText();
    char16_t empty[] = u"";
    ReadSettings(settings, text == nullptr ? empty : text);
}

void SaveSettings() {
    StoreVariables(settings);
    if (!settings.settingsDirty) {
        return;
    }
    TextSink sink = {0, 0, nullptr};
    WriteSettings(sink, settings);
    const int64_t characters = sink.count;
    const int64_t byteCount = SettingsByteCount(characters);
    const BlockScope text = {AllocateItems<char16_t>(characters)};
    const BlockScope bytes = {AllocateItems<uint8_t>(byteCount)};
    if (text.block == nullptr || bytes.block == nullptr) {
        return;
    }
    sink = {0, characters, static_cast<char16_t*>(text.block)};
    WriteSettings(sink, settings);
    EncodeSettings(static_cast<uint8_t*>(bytes.block), sink.text, characters);

    // Opening empties the file, so everything that can go wrong before stands above.
    const FileScope scope = {
        CreateFileW(ToWide(SettingsPath()), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr)};
    if (scope.file != INVALID_HANDLE_VALUE) {
        DWORD written = 0;
        WriteFile(scope.file, bytes.block, static_cast<DWORD>(byteCount), &written, nullptr);
        settings.settingsDirty = false;
    }
}

}  // namespace tallymere
