#include "core/text_writer.h"

#include <algorithm>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/text_flags.h"

namespace tallymere {

char16_t* WriteReserve(TextWriter& writer, int64_t count) {
    TALLYMERE_REQUIRE(TextWriterIsConsistent(writer) && count >= 0);
    if (count > writer.capacity - writer.position) {
        writer.position = writer.capacity + 1;
        return nullptr;
    }
    char16_t* place = writer.buffer + writer.position;
    writer.position += count;
    return place;
}

void WriteChar(TextWriter& writer, char16_t c) {
    WriteRepeated(writer, c, 1);
}

void WriteChars(TextWriter& writer, const char16_t* text, int64_t count) {
    if (char16_t* place = WriteReserve(writer, count)) {
        std::copy_n(text, count, place);
    }
}

void WriteRepeated(TextWriter& writer, char16_t c, int64_t count) {
    if (char16_t* place = WriteReserve(writer, count)) {
        std::fill_n(place, count, c);
    }
}

int64_t FinishNumberText(TextWriter& writer, uint32_t flags) {
    TALLYMERE_REQUIRE(TextWriterIsConsistent(writer));
    if (WriterOverflowed(writer)) {
        SetCalcError(CalcErrorTextTooLong);
        writer.position = 0;
        if (writer.capacity >= 3) {
            WriteChars(writer, u"[$]", 3);
        }
    }
    if ((flags & TextNoTerminator) == 0) {
        writer.buffer[writer.position] = u'\0';
    }
    return writer.position;
}

}  // namespace tallymere
