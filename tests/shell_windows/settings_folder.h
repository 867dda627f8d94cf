// The folder of the settings, empty for each test. It is one of the process: the settings of the
// user are out of reach of all that includes this.
#pragma once

#include <gtest/gtest.h>

#include <shlobj.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "shell/settings.h"
#include "shell/settings_bytes.h"
#include "shell/ui_error.h"
#include "shell/windows/settings_file.h"
#include "shell_windows/file_folder.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere::testing_support {

/// Where the program finds the user's folder.
extern "C" void* __imp_SHGetFolderPathW;

/// The user's folder for the data of programs, as the program finds it in this process.
inline fs::path UserFolder() {
    return fs::temp_directory_path() / (NameOfProcess() + L" user");
}

/// Gives the program that folder, from the start of the process to its end.
class UserFolderOfProcess {
public:
    UserFolderOfProcess() {
        DWORD access = 0;
        VirtualProtect(&__imp_SHGetFolderPathW, sizeof(void*), PAGE_READWRITE, &access);
        __imp_SHGetFolderPathW = reinterpret_cast<void*>(Find);
        VirtualProtect(&__imp_SHGetFolderPathW, sizeof(void*), access, &access);
        fs::create_directory(UserFolder());
    }
    ~UserFolderOfProcess() {
        if (isFirst_) {
            fs::remove_all(UserFolder());
        }
    }
    UserFolderOfProcess(const UserFolderOfProcess&) = delete;
    UserFolderOfProcess& operator=(const UserFolderOfProcess&) = delete;

private:
    static HRESULT WINAPI Find(HWND, int folder, HANDLE, DWORD, LPWSTR path) {
        EXPECT_EQ(folder, CSIDL_APPDATA);
        wcscpy(path, UserFolder().c_str());
        return S_OK;
    }

    // A process that a death test starts has the folder of the one that started it.
    const bool isFirst_ = !fs::exists(UserFolder());
};

inline const UserFolderOfProcess userFolderOfProcess;

using Bytes = std::vector<uint8_t>;

/// What a settings file with that text holds.
inline Bytes FileBytes(std::u16string_view text) {
    const auto count = static_cast<int64_t>(text.size());
    Bytes bytes(static_cast<size_t>(SettingsByteCount(count)));
    EncodeSettings(bytes.data(), text.data(), count);
    return bytes;
}

/// The file in its empty folder, and initial settings. Nobody waits for a file.
class SettingsFolder {
public:
    SettingsFolder() {
        folder = UserFolder() / "Tallymere";
        fs::remove_all(folder);
        file = ToWide(SettingsPath());
        static const bool isThereAfterFirstCall = fs::is_directory(folder);
        wasMade = isThereAfterFirstCall;
        fs::create_directory(folder);
        settings = Settings{};
        waitForFile = [](int32_t) { return false; };
    }
    ~SettingsFolder() {
        settings = settingsBefore_;
        waitForFile = waiterBefore_;
    }
    SettingsFolder(const SettingsFolder&) = delete;
    SettingsFolder& operator=(const SettingsFolder&) = delete;

    static void Put(const Bytes& bytes) { Put(file, bytes); }
    static void Put(const fs::path& place, const Bytes& bytes) {
        PutBytes(place, {bytes.begin(), bytes.end()});
    }
    static Bytes Content() { return Content(file); }
    static Bytes Content(const fs::path& place) {
        EXPECT_TRUE(fs::exists(place));
        const std::string content = ContentOf(place);
        return {content.begin(), content.end()};
    }

    static inline fs::path folder;
    static inline fs::path file;
    static fs::path Beside() { return folder / ToWide(BesideName); }
    /// Whether the first call of SettingsPath in this process made the folder.
    static inline bool wasMade = false;

private:
    const Settings settingsBefore_ = settings;
    const FileWaiter waiterBefore_ = waitForFile;
};

class SettingsFolderTest : public ::testing::Test, protected SettingsFolder {
protected:
    SettingsFolderTest() { ClearErrors(); }
    ~SettingsFolderTest() override { ClearErrors(); }
};

}  // namespace tallymere::testing_support
