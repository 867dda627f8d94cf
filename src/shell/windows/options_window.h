// The Options window.
#pragma once

namespace tallymere {

/// Makes optionsWindow, hidden. It shows the settings each time that it is shown.
void CreateOptionsWindow();

}  // namespace tallymere
