// What the program says about itself.
#pragma once

namespace tallymere {

inline constexpr const char16_t* ProgramName = u"Tallymere";
inline constexpr const char16_t* ProgramVersion = u"3.9";

/// When this version was built: its date in the first ten characters, its year in the first four.
inline constexpr const char16_t* ProgramBuildTime = u"2025-02-02 08:14:15";

inline constexpr const char16_t* MakerName = u"The Tallymere Project";
inline constexpr const char16_t* MakerEMail = u"tallymere@example.org";
/// As it is shown, on a button with little room.
inline constexpr const char16_t* MakerWebAddress = u"tallymere.example";
inline constexpr const char16_t* MakerHomepage = u"https://tallymere.example";
inline constexpr const char16_t* DonationPage = u"https://tallymere.example/donate";

}  // namespace tallymere
