#include "prime_pages/page_output.h"

#include "exact/big_uint_text.h"
#include "shell/scratch_text.h"
#include "shell/ui_error.h"

namespace tallymere {

PieceWriter MakePieceWriter(ScratchScope& scope, SendText send, uint32_t printFlags, int64_t more) {
    const int64_t longest = BigUintTextLength(printFlags);
    return {.send = send,
            .printFlags = printFlags,
            .piece = {0, longest + more, TakeText(scope, longest + more)},
            .number = TakeText(scope, longest)};
}

const char16_t* PieceNumberText(PieceWriter& writer, const uint64_t* number) {
    BigUintToText(writer.number, BigUintTextLength(writer.printFlags), number, writer.printFlags);
    return writer.number;
}

void AddPieceText(PieceWriter& writer, const char16_t* text) {
    SinkText(writer.piece, text);
}

void AddPieceNumber(PieceWriter& writer, const uint64_t* number) {
    SinkText(writer.piece, PieceNumberText(writer, number));
}

void SendPiece(PieceWriter& writer) {
    EndSinkText(writer.piece);
    writer.send(writer.piece.text);
    if (SinkOverflowed(writer.piece)) {
        SetUiError(UiErrorTextOverflow);
    }
    writer.piece.count = 0;
}

}  // namespace tallymere
