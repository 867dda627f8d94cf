// The help pages, and what else the program shows in the user's web browser.
#pragma once

namespace tallymere {

/// Starts the program that is registered for "http" with an argument, one text as a command line
/// has it. With no such program nothing happens. The browser is started itself because a "file:"
/// address that is handed to the shell goes elsewhere.
void OpenInBrowser(const char16_t* argument);

/// Finds the folder of all help beside the program. One that is too long raises
/// UiErrorTextOverflow.
void FindHelpFolder();

/// Opens the first help page in the language of this run. When it is not there,
/// UiErrorFileNotFound is reported.
void ShowHelp();

}  // namespace tallymere
