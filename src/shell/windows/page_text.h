// How the text of a run gets from its thread to the output of its page, see shell/page_text.h.
//
// The thread of the run gathers it by SendPageText. The page kit shows what was gathered by a timer
// while the run is on, and at the end of the run before anything else. So the output shows
// everything in the right order, and a thread that writes faster than the control shows waits for
// it. It is a timer since that comes after keys, clicks and painting: a message of the thread would
// come before them, one after the other, and the window would not answer.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// From the UI thread: a run of a page begins. What an earlier run has left is forgotten.
void BeginPageText(HWND page);

/// From the work of a run: sends the next characters of its text. `text` may change as soon as the
/// call is back. The call comes back at once, or if there is no room, when the page shows what was
/// gathered. Must not be called with a lock held that the UI thread may want.
void SendPageText(const char16_t* text);

/// From the UI thread: shows what was gathered; without output, which is null, forgets it. When the
/// control cannot take it, raises UiErrorTextOverflow, so that the run ends and the user is told;
/// what comes later in the run is forgotten, so that the output has no hole in its midst. Returns
/// whether the thread of the run waited for room, so that there is more to show soon.
bool ShowPageText(HWND output);

/// From the UI thread: puts a text at the end of a field of CreateLongTextField, and scrolls there.
/// Returns false and raises UiErrorTextOverflow when the field cannot take it; the text is as
/// before then.
bool AppendPageText(HWND output, const char16_t* text);

}  // namespace tallymere
