// The folder of the settings, empty for each test. What lies there is put aside meanwhile.
#pragma once

#include <gtest/gtest.h>

#include <shlobj.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <vector>

#include "shell/settings.h"
#include "shell/settings_bytes.h"
#include "shell/ui_error.h"
#include "shell/windows/settings_file.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere::testing_support {

namespace fs = std::filesystem;

using Bytes = std::vector<uint8_t>;

inline fs::path UserFolder() {
    wchar_t folder[MAX_PATH];
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 0, folder), S_OK);
    return folder;
}

/// What a settings file with that text holds.
inline Bytes FileBytes(std::u16string_view text) {
    const auto count = static_cast<int64_t>(text.size());
    Bytes bytes(static_cast<size_t>(SettingsByteCount(count)));
    EncodeSettings(bytes.data(), text.data(), count);
    return bytes;
}

class SettingsFolderTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = UserFolder() / "Tallymere";
        // Where the aside is there already, what is in the folder is left from a test that broke.
        if (fs::exists(folder) && !fs::exists(Aside())) {
            fs::rename(folder, Aside());
        }
        fs::remove_all(folder);
        file = ToWide(SettingsPath());
        static const bool isThereAfterFirstCall = fs::is_directory(folder);
        folderWasMade = isThereAfterFirstCall;
    }
    static void TearDownTestSuite() {
        fs::remove_all(folder);
        if (fs::exists(Aside())) {
            fs::rename(Aside(), folder);
        }
    }

    SettingsFolderTest() {
        fs::remove_all(folder);
        fs::create_directory(folder);
        settings = Settings{};
        ClearErrors();
    }
    ~SettingsFolderTest() override {
        settings = Settings{};
        ClearErrors();
    }

    static fs::path Aside() { return folder.parent_path() / "Tallymere put aside by a test"; }

    static void Put(const Bytes& bytes) {
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }
    static Bytes Content() {
        std::ifstream stream(file, std::ios::binary);
        EXPECT_TRUE(stream.is_open());
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    static inline fs::path folder;
    static inline fs::path file;
    /// Whether the first call of SettingsPath in this process made the folder.
    static inline bool folderWasMade = false;
};

}  // namespace tallymere::testing_support
