// The About window.
#pragma once

namespace tallymere {

/// Makes aboutWindow, hidden; it is run modally.
void CreateAboutWindow();

}  // namespace tallymere
