// What the user's locale says to the program.
#pragma once

#include <cstdint>

namespace tallymere {

/// Puts the separators of the settings into NumberContext, the automatic ones from the user's
/// locale; see ApplySeparators in shell/separators.h.
void ApplyUserSeparators();

/// The system's identifier of the user's language, for ChooseLanguage.
uint32_t UserLanguageId();

}  // namespace tallymere
