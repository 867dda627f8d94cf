#include "shell/windows/settings_file.h"

#include <memory>
#include <utility>

#include "calculator/variable_settings.h"
#include "shell/new_block.h"
#include "shell/program_paths.h"
#include "shell/settings.h"
#include "shell/settings_bytes.h"
#include "shell/settings_walk.h"
#include "shell/ui_error.h"
#include "shell/windows/error_report.h"
#include "shell/windows/file_replacement.h"
#include "shell/windows/file_scope.h"
#include "shell/windows/page_run.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

#include <shlobj.h>

namespace tallymere {

namespace {

// A backup or a virus scanner holds a file for a moment.
constexpr DWORD WaitMilliseconds = 50;
constexpr DWORD PatienceMilliseconds = 2'000;

bool Wait(int32_t tries) {
    if (static_cast<DWORD>(tries) > PatienceMilliseconds / WaitMilliseconds) {
        return false;
    }
    Sleep(WaitMilliseconds);
    return true;
}

// Only one program of a session reads or replaces the file at a time. One that hangs meanwhile
// shuts nobody out for ever, and one that was ended leaves the turn to the next. Without the
// system's help nobody waits. A second session of the same user has turns of its own; there the
// file beside, which nobody shares, keeps the files whole.
class Turn {
public:
    Turn() {
        static const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Local\\TallymereSettings");
        mutex_ = mutex;
        const DWORD answer = WaitForSingleObject(mutex_, PatienceMilliseconds);
        isOurs_ = answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED;
    }
    ~Turn() {
        if (isOurs_) {
            ReleaseMutex(mutex_);
        }
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

private:
    HANDLE mutex_;
    bool isOurs_;
};

template <typename Item>
using Block = std::unique_ptr<Item[]>;

struct FileBytes {
    Block<uint8_t> bytes;
    int64_t count = 0;
    uint64_t lastWrite = 0;  // by the clock of the file system
};

enum class FileAnswer {
    Missing,  // or there is nothing to keep in it
    Read,
    Refused,  // there is a file, but not one of settings
    Held,     // it cannot be read now
};

// Whether the file at the path was read at the last look. Until it is kept under another name,
// nothing is written in its place.
bool isFileUnread = false;

// The last try to save failed.
bool saveFailed = false;

// The user was told of a failure, and nothing was saved since.
bool failureWasSaid = false;

// This program has written the file since it read it.
bool wasWritten = false;

char16_t settingsFolder[PathCapacity + 1] = u"";

bool IsFolder(const char16_t* path) {
    const DWORD attributes = GetFileAttributesW(ToWide(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void MakeFolder() {
    if (settingsFolder[0] != 0 &&
        GetFileAttributesW(ToWide(settingsFolder)) == INVALID_FILE_ATTRIBUTES) {
        CreateDirectoryW(ToWide(settingsFolder), nullptr);
    }
}

void FindSettingsPath(char16_t (&path)[PathCapacity + 1]) {
    char16_t userFolder[PathCapacity + 1];
    if (SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, ToWide(userFolder)) ==
        S_OK) {
        FormatSettingsFolder(settingsFolder, userFolder);
        MakeFolder();
    }
    FormatSettingsFile(path, settingsFolder);
}

FileAnswer AnswerOfFailedOpening(const char16_t* path) {
    const DWORD error = GetLastError();
    const bool isMissing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
    // A folder in the place of the file is not ours to move.
    return isMissing || IsFolder(path) ? FileAnswer::Missing : FileAnswer::Held;
}

FileAnswer ReadFileBytes(FileBytes& content, const char16_t* path) {
    const HANDLE file = CreateFileW(ToWide(path), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return AnswerOfFailedOpening(path);
    }
    const FileScope scope(file);
    LARGE_INTEGER size = {};
    FILETIME lastWrite = {};
    if (!GetFileSizeEx(file, &size) || !GetFileTime(file, nullptr, nullptr, &lastWrite)) {
        return FileAnswer::Held;
    }
    content.lastWrite = uint64_t{lastWrite.dwHighDateTime} << 32 | lastWrite.dwLowDateTime;
    if (size.QuadPart == 0 || size.QuadPart > MaxSettingsBytes) {
        return size.QuadPart == 0 ? FileAnswer::Missing : FileAnswer::Refused;
    }
    content.count = size.QuadPart;
    content.bytes = NewBlock<uint8_t>(content.count);
    DWORD read = 0;
    if (content.bytes == nullptr ||
        !ReadFile(file, content.bytes.get(), static_cast<DWORD>(content.count), &read, nullptr) ||
        read != content.count) {
        return FileAnswer::Held;
    }
    return HasByteOrderMark(content.bytes.get(), content.count) ? FileAnswer::Read
                                                                : FileAnswer::Refused;
}

FileAnswer ReadWithPatience(FileBytes& content, const char16_t* path) {
    FileAnswer answer = ReadFileBytes(content, path);
    for (int32_t tries = 1; answer == FileAnswer::Held && waitForFile(tries); tries++) {
        answer = ReadFileBytes(content, path);
    }
    return answer;
}

// Null without memory.
Block<char16_t> DecodedText(const FileBytes& content) {
    Block<char16_t> text = NewBlock<char16_t>(SettingsTextRoom(content.count));
    if (text != nullptr) {
        DecodeSettings(text.get(), content.bytes.get(), content.count);
    }
    return text;
}

// Without memory there are no bytes.
FileBytes EncodedSettings() {
    TextSink sink = {0, 0, nullptr};
    WriteSettings(sink, settings);
    const Block<char16_t> text = NewBlock<char16_t>(sink.count);
    FileBytes content;
    content.count = SettingsByteCount(sink.count);
    content.bytes = NewBlock<uint8_t>(content.count);
    if (text == nullptr || content.bytes == nullptr) {
        return {};
    }
    sink = {0, sink.count, text.get()};
    WriteSettings(sink, settings);
    EncodeSettings(content.bytes.get(), text.get(), sink.count);
    return content;
}

// Gives a file another name, one that no file has. One that is gone needs none.
bool KeepUnderOtherName(const char16_t* path) {
    char16_t kept[UnreadPathCapacity + 1];
    for (int32_t number = 1; number <= MaxUnreadFiles; number++) {
        FormatUnreadFile(kept, SettingsPath(), number);
        if (GetFileAttributesW(ToWide(kept)) == INVALID_FILE_ATTRIBUTES) {
            return MoveFileExW(ToWide(path), ToWide(kept), MOVEFILE_WRITE_THROUGH) != FALSE ||
                   GetLastError() == ERROR_FILE_NOT_FOUND;
        }
    }
    return false;
}

bool KeepUnreadFile() {
    isFileUnread = isFileUnread && !KeepUnderOtherName(SettingsPath());
    return !isFileUnread;
}

// Takes what a program that was ended left beside, if that is whole, and puts it into its place; a
// part of a file goes with the next writing. False where that does not work now: the content is
// taken all the same, and is to be written again.
bool TakeFileBeside(FileBytes& content, FileAnswer inPlace) {
    char16_t beside[BesidePathCapacity + 1];
    FormatBesidePath(beside, SettingsPath());
    FileBytes left;
    if (ReadWithPatience(left, beside) != FileAnswer::Read ||
        !IsWholeSettingsFile(left.bytes.get(), left.count)) {
        return true;
    }
    // The user changed the file since, or put another one back. Where the clock is wrong, it is the
    // one beside that is newer, so that one is kept.
    if (inPlace == FileAnswer::Read && content.lastWrite > left.lastWrite) {
        KeepUnderOtherName(beside);
        return true;
    }
    content = std::move(left);
    const auto putInPlace = [&beside] {
        return KeepUnreadFile() && PutInPlace(SettingsPath(), beside);
    };
    bool isInPlace = putInPlace();
    // A file that is held was waited for already.
    for (int32_t tries = 1; !isInPlace && inPlace != FileAnswer::Held && waitForFile(tries);
         tries++) {
        isInPlace = putInPlace();
    }
    return isInPlace;
}

bool ReplaceSettingsFile(const FileBytes& content) {
    MakeFolder();
    if (!KeepUnreadFile()) {
        return false;
    }
    FileReplacement replacement(SettingsPath());
    replacement.Write(content.bytes.get(), static_cast<uint32_t>(content.count));
    return replacement.Finish();
}

// What failed before is tried once, so that nobody waits again and again.
bool ReplaceWithPatience(const FileBytes& content) {
    const Turn turn;
    bool replaced = ReplaceSettingsFile(content);
    for (int32_t tries = 1; !replaced && !saveFailed && waitForFile(tries); tries++) {
        replaced = ReplaceSettingsFile(content);
    }
    return replaced;
}

}  // namespace

FileWaiter waitForFile = Wait;

const char16_t* SettingsPath() {
    static char16_t path[PathCapacity + 1] = u"";
    if (path[0] == 0) {
        FindSettingsPath(path);
    }
    return path;
}

void LoadSettings() {
    const Turn turn;
    FileBytes content;
    const FileAnswer answer = ReadWithPatience(content, SettingsPath());
    if (answer != FileAnswer::Read) {
        content = {};
    }
    isFileUnread = answer == FileAnswer::Held || answer == FileAnswer::Refused;
    const bool isInPlace = TakeFileBeside(content, answer);
    // Never freed.
    char16_t* text = nullptr;
    if (content.bytes != nullptr) {
        text = DecodedText(content).release();
        isFileUnread = isFileUnread || text == nullptr;
    }
    char16_t empty[] = u"";
    ReadSettings(settings, text == nullptr ? empty : text);
    settings.settingsDirty = !isInPlace;
    saveFailed = failureWasSaid = wasWritten = false;
}

bool SaveSettings() {
    StoreVariables(settings);
    if (!settings.settingsDirty) {
        return true;
    }
    const FileBytes content = EncodedSettings();
    saveFailed = content.bytes == nullptr || !ReplaceWithPatience(content);
    settings.settingsDirty = saveFailed;
    failureWasSaid = failureWasSaid && saveFailed;
    wasWritten = wasWritten || !saveFailed;
    return !saveFailed;
}

bool SaveSettingsOrReport() {
    const bool saved = SaveSettings();
    if (!saved && !failureWasSaid && !IsRunUnderWay()) {
        ReportUnsavedSettings();
    }
    return saved;
}

bool SaveSettingsAtEnd() {
    settings.settingsDirty = settings.settingsDirty || wasWritten;
    return SaveSettingsOrReport();
}

void ReportUnsavedSettings() {
    failureWasSaid = true;
    // What is pending has a box of its own.
    ReportUiError();
    SetUiError(UiErrorSettingsNotSaved, SettingsPath());
    ReportUiError();
}

}  // namespace tallymere
