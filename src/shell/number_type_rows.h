// The rows of the list with which a page's number type is chosen.
#pragma once

#include <array>

#include "core/number_context.h"
#include "layout/list_row.h"
#include "shell/ui_text.h"

namespace tallymere {

/// In the language of this run; the values are NumberTypes.
inline std::array<ListRow, 3> NumberTypeRows() {
    return {{{uiText.TextCtlRational, NumberTypeRational},
             {uiText.TextCtlReal, NumberTypeReal},
             {uiText.TextCtlComplex, NumberTypeComplex}}};
}

}  // namespace tallymere
