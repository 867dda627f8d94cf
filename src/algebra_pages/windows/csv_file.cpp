#include "algebra_pages/windows/csv_file.h"

#include <string_view>

#include "shell/new_block.h"
#include "shell/ui_error.h"
#include "shell/windows/file_replacement.h"
#include "shell/windows/file_scope.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere {

namespace {

constexpr DWORD BlockBytes = 65'536;

UiErrorCode CodeOfOpening(DWORD systemError) {
    return systemError == ERROR_FILE_NOT_FOUND || systemError == ERROR_PATH_NOT_FOUND
               ? UiErrorFileNotFound
               : UiErrorFileAccess;
}

// Writes a cell by one call of the system, so that nothing but a cell can be missing.
bool WriteCell(FileReplacement& replacement, std::u16string_view text, bool endsLine) {
    const auto bytes = NewBlock<uint8_t>(CsvCellBytes(std::ssize(text)));
    if (bytes == nullptr) {
        SetUiError(UiErrorInternal);
        return false;
    }
    const int64_t count = WriteCsvCell(bytes.get(), text, endsLine);
    return replacement.Write(bytes.get(), static_cast<uint32_t>(count));
}

bool WriteNames(FileReplacement& replacement, int32_t count) {
    for (int32_t column = 0; column <= count; column++) {
        const SystemColumnName name = NameOfSystemColumn(GridColumnOfSystem(column, count));
        if (!WriteCell(replacement, name.text, column == count)) {
            return false;
        }
    }
    return true;
}

bool WriteRow(FileReplacement& replacement, int32_t row, int32_t count, CsvCellText cellText) {
    for (int32_t column = 0; column <= count; column++) {
        const HeapText text = cellText(row, GridColumnOfSystem(column, count));
        if (!text.IsThere()) {
            SetUiError(UiErrorInternal);
            return false;
        }
        if (!WriteCell(replacement, text.View(), column == count)) {
            return false;
        }
    }
    return true;
}

bool WriteLines(FileReplacement& replacement, int32_t count, CsvCellText cellText) {
    if (!WriteNames(replacement, count)) {
        return false;
    }
    for (int32_t row = 0; row < count; row++) {
        if (!WriteRow(replacement, row, count, cellText)) {
            return false;
        }
    }
    return true;
}

}  // namespace

void ReadCsvFile(const char16_t* path, const CsvReceiver& receiver) {
    const FileScope scope(CreateFileW(ToWide(path), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (scope.file == INVALID_HANDLE_VALUE) {
        SetUiError(CodeOfOpening(GetLastError()), path);
        return;
    }
    CsvReader reader = {.receiver = receiver};
    uint8_t block[BlockBytes];
    DWORD read = 0;
    do {
        if (!ReadFile(scope.file, block, BlockBytes, &read, nullptr)) {
            SetUiError(UiErrorFileAccess, path);
            return;
        }
        ReadCsvBytes(reader, block, read);
    } while (read > 0 && reader.progress != CsvProgress::Complete &&
             reader.progress != CsvProgress::WrongCount);
    if (EndCsv(reader) == CsvProgress::WrongCount) {
        RaiseEquationCount();
    }
}

void WriteCsvFile(const char16_t* path, int32_t count, CsvCellText cellText) {
    FileReplacement replacement(path);
    if (!WriteLines(replacement, count, cellText) || !replacement.Finish()) {
        SetUiError(UiErrorFileAccess, path);
    }
}

}  // namespace tallymere
