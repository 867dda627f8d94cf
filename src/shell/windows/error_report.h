// How an error reaches the user.
#pragma once

namespace tallymere {

/// Shows the pending error of uiError in a message box, unless there is none or it is
/// UiErrorStopped, and waits for the user. Everything is cleared first as ClearErrors does, so that
/// what goes on behind the box may raise an error of its own. UI thread only, and not while a page
/// calculates: the errors of its worker and a request to stop it would be gone.
void ReportUiError();

}  // namespace tallymere
