#include "algebra_pages/csv_text.h"

#include <algorithm>

#include "core/contract.h"
#include "core/text_writer.h"
#include "layout/decimal_text.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

constexpr uint8_t Separator = ';';
constexpr uint8_t LineFeed = '\n';
constexpr uint8_t CarriageReturn = '\r';

// Stands for a byte 0, which would end the text of its cell. No formula has it, so that a file of
// other bytes, such as one of 16-bit characters, is not solved as something else.
constexpr char16_t ReplacementCharacter = 0xFFFD;

// Of the first line only the separators count: what the columns are called means nothing.
void ReadFirstLine(CsvReader& reader, uint8_t byte) {
    if (byte == LineFeed) {
        if (reader.separators < MinEquationCount || reader.separators > MaxEquationCount) {
            reader.progress = CsvProgress::WrongCount;
            return;
        }
        reader.progress = CsvProgress::Cells;
        reader.equationCount = static_cast<int32_t>(reader.separators);
        reader.receiver.takeCount(reader.receiver.context, reader.equationCount);
        return;
    }
    reader.separators += byte == Separator ? 1 : 0;
    reader.firstLineBytes++;
    if (reader.firstLineBytes > CsvFirstLineBytes) {
        reader.progress = CsvProgress::WrongCount;
    }
}

// Cells behind the right side go to the columns that the grid does not show. They show up there
// when a user raises the count of equations. None of them takes the place of the right side.
void HandOverCell(CsvReader& reader) {
    if (reader.column <= reader.equationCount || reader.column < RightSideColumn) {
        reader.cell[reader.length] = 0;
        reader.receiver.takeCell(reader.receiver.context, reader.row,
                                 GridColumnOfSystem(reader.column, reader.equationCount),
                                 reader.cell);
    }
    reader.length = 0;
}

void ReadCellByte(CsvReader& reader, uint8_t byte) {
    switch (byte) {
        case CarriageReturn:
            return;
        case Separator:
            HandOverCell(reader);
            reader.column = std::min(reader.column + 1, SystemColumnCount);
            return;
        case LineFeed:
            HandOverCell(reader);
            reader.column = 0;
            reader.row++;
            if (reader.row == reader.equationCount) {
                reader.progress = CsvProgress::Complete;
            }
            return;
        default:
            break;
    }
    if (reader.length < CoefficientCharacters) {
        reader.cell[reader.length] = byte != 0 ? char16_t{byte} : ReplacementCharacter;
        reader.length++;
    } else {
        reader.cell[CoefficientCharacters - 1] = Ellipsis;
    }
}

}  // namespace

CsvProgress ReadCsvBytes(CsvReader& reader, const uint8_t* bytes, int64_t count) {
    TALLYMERE_REQUIRE(count >= 0);
    for (int64_t i = 0; i < count; i++) {
        switch (reader.progress) {
            case CsvProgress::FirstLine:
                ReadFirstLine(reader, bytes[i]);
                break;
            case CsvProgress::Cells:
                ReadCellByte(reader, bytes[i]);
                break;
            case CsvProgress::Complete:
            case CsvProgress::WrongCount:
                return reader.progress;
        }
    }
    return reader.progress;
}

CsvProgress EndCsv(CsvReader& reader) {
    if (reader.progress == CsvProgress::FirstLine) {
        reader.progress = CsvProgress::WrongCount;
    }
    return reader.progress;
}

void RaiseEquationCount() {
    SetUiError(UiErrorEquationCount, DecimalTextOf(MaxEquationCount).text);
}

int64_t WriteCsvCell(uint8_t* bytes, std::u16string_view text, bool endsLine) {
    constexpr char16_t FirstOther = 128;
    int64_t written = 0;
    for (const char16_t c : text) {
        bytes[written] = c < FirstOther ? static_cast<uint8_t>(c) : uint8_t{'?'};
        written++;
    }
    if (endsLine) {
        bytes[written] = CarriageReturn;
        bytes[written + 1] = LineFeed;
        return written + 2;
    }
    bytes[written] = Separator;
    return written + 1;
}

}  // namespace tallymere
