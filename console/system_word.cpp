#include "console/system_word.h"

#include <array>
#include <cstdio>

#include "algebra_pages/csv_text.h"
#include "algebra_pages/system_run.h"
#include "console/console_setup_scope.h"
#include "console/ending.h"
#include "console/option_usage.h"
#include "console/platform.h"
#include "console/utf8.h"
#include "console/word_kit.h"
#include "core/stop_request.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

// What stands in braces is replaced by what the tables of the program say.
constexpr std::string_view UsageForm =
    R"(usage: tallymere-console system [options] FILE.csv

Finds the unknowns of {least} to {most} linear equations a1*x1 + a2*x2 + ... = b.
The file has the names of the columns in its first line, such as a1;a2;b, and
the coefficients of one equation in each further line. Each of them is a
formula; an empty one is 0, and so is one that is missing. A last line counts
only with a line end behind it.

{--type}the numbers of coefficients and unknowns ({type})
  --digits N                    digits of the unknowns, {fewest} to {digits most};
                                rat is exact ({digits})
{options of every word}
What fails is answered by a line of its own, "error CODE: MESSAGE".

Exit status: 0 when the system was solved or found to be unsolvable, 1 when it
failed or output broke, 2 for bad options, 130 after Ctrl+C.
)";

// The options of the word.
struct SystemWord {
    TextOptions text;
    NumberType type = NumberTypeReal;
    int64_t digits = DefaultDigits;
};

std::string Usage() {
    return FillInUsage(UsageForm, {{"{least}", std::to_string(MinEquationCount)},
                                   {"{most}", std::to_string(MaxEquationCount)},
                                   {"{--type}", UsageOfChoices("--type", NumberTypeChoices())},
                                   {"{type}", SpellingOf(NumberTypeChoices(), SystemWord().type)},
                                   {"{fewest}", std::to_string(MinSystemDigits)},
                                   {"{digits most}", std::to_string(MaxSystemDigits)},
                                   {"{digits}", std::to_string(DefaultDigits)},
                                   {"{options of every word}", WordOptionUsage()}});
}

// What the file says: the texts of the grid's cells, as far as there are any.
struct SystemCells {
    int32_t count = 0;
    std::array<std::array<std::u16string, SystemColumnCount>, MaxEquationCount> rows;
};

CsvReceiver ReceiverOf(SystemCells& cells) {
    return {&cells,
            [](void* context, int32_t count) { static_cast<SystemCells*>(context)->count = count; },
            [](void* context, int32_t row, int32_t column, const char16_t* text) {
                auto& rows = static_cast<SystemCells*>(context)->rows;
                rows[static_cast<size_t>(row)][static_cast<size_t>(column)] = text;
            }};
}

// The path as text for an error, which stands in one line.
std::u16string PathText(const std::string& path) {
    std::u16string text = DecodeUtf8(path).text;
    BlankControlCharacters(text);
    return text;
}

// Reads blocks until the system is complete, the file ends or a stop is asked for. False when the
// file cannot be read.
bool ReadBlocks(CsvReader& reader, std::FILE* file) {
    std::array<uint8_t, 4096> block;
    size_t count = block.size();
    while (count != 0 && !StopRequested() && reader.progress != CsvProgress::Complete &&
           reader.progress != CsvProgress::WrongCount) {
        count = std::fread(block.data(), 1, block.size(), file);
        ReadCsvBytes(reader, block.data(), static_cast<int64_t>(count));
    }
    return std::ferror(file) == 0;
}

// An error is pending at the end where there is one.
void ReadCells(SystemCells& cells, const std::string& path) {
    const OpenedFile opened = OpenFileForReading(path);
    if (opened.file == nullptr) {
        SetUiError(opened.isMissing ? UiErrorFileNotFound : UiErrorFileAccess,
                   PathText(path).c_str());
        return;
    }
    CsvReader reader = {.receiver = ReceiverOf(cells)};
    if (!ReadBlocks(reader, opened.file)) {
        SetUiError(UiErrorFileAccess, PathText(path).c_str());
    } else if (!StopRequested() && EndCsv(reader) == CsvProgress::WrongCount) {
        RaiseEquationCount();
    }
    std::fclose(opened.file);
}

void CopyCell(void* context, int32_t row, int32_t column, char16_t* text) {
    const auto& cells = *static_cast<const SystemCells*>(context);
    const int32_t place = GridColumnOfSystem(column, cells.count);
    const auto& cell = cells.rows[static_cast<size_t>(row)][static_cast<size_t>(place)];
    text[cell.copy(text, CoefficientCharacters + 1)] = 0;
}

void AnswerSystem(const SystemWord& word, const std::string& path) {
    SystemCells cells;
    ReadCells(cells, path);
    if (RunShouldEnd()) {
        return;
    }
    const SystemRequest request = {.count = cells.count,
                                   .type = word.type,
                                   .digits = word.digits,
                                   .grouped = word.text.groupDigits,
                                   .readCell = CopyCell,
                                   .context = &cells};
    RunSystem(
        request, [](void*, const char16_t* text) { SendToOutput(text); }, nullptr);
}

std::string DescribeProgress() {
    return "solving the system";
}

}  // namespace

ExitStatus RunSystemWord(const std::vector<std::string>& arguments) {
    SystemWord word;
    const WordReading reading =
        ReadWord({ChoiceOption("--type", NumberTypeChoices(), word.type),
                  NumberOption("--digits", MinSystemDigits, MaxSystemDigits, word.digits)},
                 word.text, arguments, Usage());
    if (reading.ending.has_value()) {
        return *reading.ending;
    }
    if (reading.operands.size() != 1) {
        return ReportBadOptions(
            std::string(reading.operands.empty() ? "no file" : "more than one file") +
            "; allowed: one FILE.csv");
    }
    const ConsoleSetupScope console(word.text);
    return AnswerByOneRun(DescribeProgress, [&] { AnswerSystem(word, reading.operands[0]); });
}

}  // namespace tallymere
