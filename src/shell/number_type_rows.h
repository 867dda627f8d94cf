// The rows of the list with which a page's number type is chosen.
#pragma once

#include <cstdint>

#include "core/number_context.h"
#include "shell/ui_text.h"

namespace tallymere {

struct NumberTypeRow {
    UiTextEntry text;
    NumberType type;  ///< also the value that the row carries and the page is told
};

inline constexpr NumberTypeRow NumberTypeRows[] = {
    {&UiText::TextCtlRational, NumberTypeRational},
    {&UiText::TextCtlReal, NumberTypeReal},
    {&UiText::TextCtlComplex, NumberTypeComplex},
};

}  // namespace tallymere
