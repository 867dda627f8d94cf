#include "prime_pages/page_output.h"

#include "exact/big_uint_text.h"
#include "shell/scratch_text.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

// Room in a piece beside the longest number, for the words of a header, of a test's result and of a
// last line.
constexpr int64_t WordCharacters = 100;

}  // namespace

PieceWriter MakePieceWriter(ScratchScope& scope, SendText send, uint32_t printFlags) {
    const int64_t longest = BigUintTextLength(printFlags);
    const int64_t room = longest + WordCharacters;
    return {.send = send,
            .printFlags = printFlags,
            .piece = {0, room, TakeText(scope, room)},
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
