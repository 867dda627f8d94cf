// Room for texts on a ScratchStack.
#pragma once

#include "core/scratch.h"

namespace tallymere {

/// Room for a text of `characters` characters and its terminating 0.
inline char16_t* TakeText(ScratchScope& scope, int64_t characters) {
    return reinterpret_cast<char16_t*>(scope.Take(characters / CharactersPerWord + 1));
}

}  // namespace tallymere
