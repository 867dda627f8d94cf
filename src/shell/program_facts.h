// What the program says about itself.
#pragma once

namespace tallymere {

inline constexpr const char16_t* ProgramName = u"Tallymere";

/// The version of the project in CMakeLists.txt.
extern const char16_t* const ProgramVersion;

/// When this version was built, YYYY-MM-DD hh:mm:ss: its date in the first ten characters, its year
/// in the first four. An input of the build, see cmake/program_build.cmake.
extern const char16_t* const ProgramBuildTime;

inline constexpr const char16_t* MakerName = u"The Tallymere Project";
inline constexpr const char16_t* MakerEMail = u"tallymere@example.org";
/// As it is shown, on a button with little room.
inline constexpr const char16_t* MakerWebAddress = u"tallymere.example";
inline constexpr const char16_t* MakerHomepage = u"https://tallymere.example";
inline constexpr const char16_t* DonationPage = u"https://tallymere.example/donate";

}  // namespace tallymere
