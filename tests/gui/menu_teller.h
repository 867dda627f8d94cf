// What the window probe and the library that it has loaded into the program agree on.
#pragma once

#include <cstddef>

namespace tallymere {

/// A library in the folder of the probe, and in it the hook procedure that tells menus.
inline constexpr wchar_t MenuTellerLibrary[] = L"menu_teller.dll";
inline constexpr char MenuTellerHook[] = "TellMenu";

/// A registered message: its window is asked for its menu.
inline constexpr wchar_t MenuTellerMessage[] = L"TallymereTellMenu";

/// Shared memory for the answer, JSON that ends at a 0. What would not fit is not written.
inline constexpr wchar_t MenuTellerMemory[] = L"TallymereMenuText";
inline constexpr size_t MenuTellerBytes = 65536;

}  // namespace tallymere
