// The user's web browser.
#pragma once

namespace tallymere {

/// Starts the program that is registered for "http" with an argument, one text as a command line
/// has it. With no such program nothing happens. The browser is started itself because a "file:"
/// address that is handed to the shell goes elsewhere.
void OpenInBrowser(const char16_t* argument);

}  // namespace tallymere
