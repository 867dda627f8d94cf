// A list of number types, for a page on which the user chooses one.
#pragma once

#include <cstdint>
#include <span>

#include "layout/list_row.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* NumberTypeClass = u"NumberTypeControl";

/// Called when the user selects another row. `type` is a NumberType; 0 for none.
using NumberTypeChosen = void (*)(HWND control, int32_t type);

/// Makes the control with these rows; their values are NumberTypes. No row is selected at first,
/// and no function is called. `x` is in logical units.
HWND CreateNumberTypeControl(HWND parent, int32_t x, std::span<const ListRow> rows);

/// Sets the function that is called; null for none.
void SetNumberTypeChosen(HWND control, NumberTypeChosen chosen);

/// Selects the row of a NumberType that the list has. Calls no function.
void SelectNumberType(HWND control, int32_t type);

/// The NumberType of the selected row, 0 for none.
int32_t SelectedNumberType(HWND control);

/// The child.
HWND NumberTypeList(HWND control);

}  // namespace tallymere
