// A folder of its own for each test of files, and the bytes in it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "shell/beside_path.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere::testing_support {

namespace fs = std::filesystem;

inline void PutBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}
inline std::string ContentOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}
/// The path as the program has it.
inline const char16_t* PathOf(const fs::path& path) {
    return FromWide(path.c_str());
}
/// Its folder has that file and no other.
inline void ExpectAlone(const fs::path& path) {
    for (const auto& entry : fs::directory_iterator(path.parent_path())) {
        EXPECT_EQ(entry.path(), path);
    }
}

/// A name for what belongs to this process alone, since test programs may run at the same time. One
/// that a death test starts has the name of the one that started it.
inline std::wstring NameOfProcess() {
    constexpr const wchar_t* Variable = L"TALLYMERE_TEST_FOLDER";
    wchar_t name[MAX_PATH];
    if (GetEnvironmentVariableW(Variable, name, MAX_PATH) == 0) {
        const std::wstring ours = L"tallymere test " + std::to_wstring(GetCurrentProcessId());
        SetEnvironmentVariableW(Variable, ours.c_str());
        return ours;
    }
    return name;
}

/// An empty folder, which goes with all that is in it.
class FolderOfTest {
public:
    FolderOfTest() {
        fs::remove_all(path);
        fs::create_directory(path);
    }
    ~FolderOfTest() { fs::remove_all(path); }
    FolderOfTest(const FolderOfTest&) = delete;
    FolderOfTest& operator=(const FolderOfTest&) = delete;

    const fs::path path = fs::temp_directory_path() / NameOfProcess();
};

class FileFolderTest : public ::testing::Test {
private:
    const FolderOfTest folder_;

protected:
    const fs::path& folder = folder_.path;
    const fs::path file = folder / "old.csv";
    const fs::path beside = folder / ToWide(BesideName);
};

/// Keeps others from a file, as far as `sharing` does not let them.
class HeldFile {
public:
    HeldFile(const fs::path& path, DWORD access, DWORD sharing)
        : handle_(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~HeldFile() { CloseHandle(handle_); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    HANDLE handle_;
};

}  // namespace tallymere::testing_support
