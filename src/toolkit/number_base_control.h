// A list of output bases, and its label.
#pragma once

#include <cstdint>

#include "layout/number_base_layout.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* NumberBaseClass = u"NumberBaseControl";

/// Called when the list closes with a row selected, whether or not it is another row.
using NumberBaseChosen = void (*)(int32_t base);

/// Makes the control. No row is selected at first, and no function is called. The position is in
/// logical units. `style` has bits of NumberBaseStyle.
HWND CreateNumberBaseControl(HWND parent, int32_t x, int32_t y, uint32_t style);

/// Sets the function that is called; null for none.
void SetNumberBaseChosen(HWND control, NumberBaseChosen chosen);

/// Sets the text of the label and puts label and list in their places.
void SetNumberBaseLabel(HWND control, const char16_t* text);

/// Selects the row of a base. A negative base clears the selection. A base that is not in the list
/// changes nothing. Calls no function.
void SelectNumberBase(HWND control, int32_t base);

/// The selected base, 0 for none.
int32_t SelectedNumberBase(HWND control);

/// The children.
HWND NumberBaseLabel(HWND control);
HWND NumberBaseList(HWND control);

}  // namespace tallymere
