// What the window probe and the library that it has loaded into the program agree on.
#pragma once

#include <cstddef>

namespace tallymere {

/// A library in the folder of the probe, and in it the hook procedure that answers.
inline constexpr wchar_t WindowTellerLibrary[] = L"window_teller.dll";
inline constexpr char WindowTellerHook[] = "TellWindow";

/// A registered message: its window is asked for what the first argument says.
inline constexpr wchar_t WindowTellerMessage[] = L"TallymereTellWindow";

enum WindowTellerQuestion {
    TellMenu,   ///< the items of its menu
    TellTexts,  ///< the room that the texts of its controls need, and that they have
};

/// Shared memory for the answer, JSON that ends at a 0. What would not fit is not written.
inline constexpr wchar_t WindowTellerMemory[] = L"TallymereWindowText";
inline constexpr size_t WindowTellerBytes = 65536;

}  // namespace tallymere
