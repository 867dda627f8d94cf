// The way of a run's text to whoever shows it.
#pragma once

namespace tallymere {

/// Takes one piece of the text that a run shows: the next characters, not a line. Lines end with
/// "\r\n". The piece ends with a 0 and is there during the call alone. It is called on the thread
/// that runs.
using SendText = void (*)(const char16_t* text);

}  // namespace tallymere
