// The help pages beside the program.
#pragma once

namespace tallymere {

/// Finds the folder of all help beside the program. One that is too long raises
/// UiErrorTextOverflow.
void FindHelpFolder();

/// Opens the first help page, in the language of this run, in the user's web browser. When it is
/// not there, UiErrorFileNotFound is reported.
void ShowHelp();

}  // namespace tallymere
