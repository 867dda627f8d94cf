// The way of a run's text to whoever shows it: piece by piece, each made in one buffer.
#pragma once

#include <cstdint>

#include "core/scratch.h"
#include "shell/text_sink.h"

namespace tallymere {

/// Takes one piece of the text that a run shows: the next characters, not a line. Lines end with
/// "\r\n". The piece ends with a 0 and is there during the call alone. It is called on the thread
/// that runs.
using SendText = void (*)(const char16_t* text);

/// Makes the pieces of a run. Its numbers are BigUints of the width in force.
struct PieceWriter {
    SendText send;
    uint32_t printFlags;  ///< for numbers
    TextSink piece;       ///< the piece under way; formats may be written into it
    char16_t* number;     ///< room for the text of any number
};

/// A writer whose pieces have room for the longest number and some words beside it. The texts lie
/// in the scope.
PieceWriter MakePieceWriter(ScratchScope& scope, SendText send, uint32_t printFlags);

/// A number as the run writes it. The text is there until the next number is written.
const char16_t* PieceNumberText(PieceWriter& writer, const uint64_t* number);

/// Append to the piece under way.
void AddPieceText(PieceWriter& writer, const char16_t* text);
void AddPieceNumber(PieceWriter& writer, const uint64_t* number);

/// Sends the piece and begins the next one. A piece that does not fit ends with an ellipsis and
/// raises UiErrorTextOverflow.
void SendPiece(PieceWriter& writer);

}  // namespace tallymere
