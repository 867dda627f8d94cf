// Room for texts on a ScratchStack.
#pragma once

#include "core/scratch.h"

namespace tallymere {

/// Words of a text of `characters` characters and its terminating 0.
constexpr int64_t TextWords(int64_t characters) {
    return characters / CharactersPerWord + 1;
}

/// Room for such a text, until the end of the scope or until the area is given back.
inline char16_t* TakeText(ScratchScope& scope, int64_t characters) {
    return reinterpret_cast<char16_t*>(scope.Take(TextWords(characters)));
}
inline char16_t* TakeText(ScratchArea& area, int64_t characters) {
    return reinterpret_cast<char16_t*>(ScratchTake(area, TextWords(characters)));
}

}  // namespace tallymere
