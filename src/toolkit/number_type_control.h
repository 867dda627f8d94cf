// The list with which a page's number type is chosen.
#pragma once

#include <cstdint>
#include <span>

#include "layout/list_row.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* NumberTypeClass = u"NumberTypeControl";

/// Told when another row is selected; `type` is a NumberType, 0 for none.
using NumberTypeChosen = void (*)(HWND control, int32_t type);

/// The list holds these rows, whose values are NumberTypes; nothing is selected at first and nobody
/// is told. `x` in logical units.
HWND CreateNumberTypeControl(HWND parent, int32_t x, std::span<const ListRow> rows);

/// Null for nobody.
void SetNumberTypeChosen(HWND control, NumberTypeChosen chosen);

/// Selects the row of a NumberType, one that the list has. Nobody is told.
void SelectNumberType(HWND control, int32_t type);

/// The NumberType of the selected row, 0 for none.
int32_t SelectedNumberType(HWND control);

/// The child.
HWND NumberTypeList(HWND control);

}  // namespace tallymere
