// The texts of the About window: entries of the text table with what the program is put into them.
#pragma once

#include <cstdint>

#include "shell/about_form.h"

namespace tallymere {

/// Writes the title of the window into a buffer of capacity + 1 characters and ends it with a 0.
/// Like every text here, one that is too long ends in an ellipsis and raises UiErrorTextOverflow.
void FormatAboutCaption(char16_t* buffer, int64_t capacity);

/// Writes the text of a control likewise.
void FormatAboutText(char16_t* buffer, int64_t capacity, AboutControl control);

}  // namespace tallymere
