// Standard output, and the line of progress.
//
// Output is gathered and written by FlushOutput, from whatever thread. While a person waits, a line
// on standard error may say how far the work is; it goes before anything is written over it.
#pragma once

#include <string>
#include <string_view>

namespace tallymere {

/// Appends a text to the output. It is written at once when much has been gathered. Returns false
/// when something could not be written, now or before.
bool GatherOutput(std::string_view text);

/// Writes what was gathered. Returns false when something could not be written, now or before.
bool FlushOutput();

/// Whether nothing was appended yet, or a line end last.
bool OutputIsAtLineStart();

/// Shows a line of progress in place of the one before; an empty text takes it away. Shows nothing
/// unless standard error is a terminal, and nothing behind a line of output that has not ended yet
/// on the same terminal.
void ShowProgress(const std::string& line);

}  // namespace tallymere
