// The list with which an output base is chosen, and its label.
#pragma once

#include <cstdint>

#include "layout/number_base_layout.h"
#include "toolkit/win32.h"

namespace tallymere {

inline constexpr const char16_t* NumberBaseClass = u"NumberBaseControl";

/// Told when the list closes with a row selected, changed or not.
using NumberBaseChosen = void (*)(int32_t base);

/// Nothing is selected at first and nobody is told. Position in logical units; `style` of
/// NumberBaseStyle.
HWND CreateNumberBaseControl(HWND parent, int32_t x, int32_t y, uint32_t style);

/// Null for nobody.
void SetNumberBaseChosen(HWND control, NumberBaseChosen chosen);

/// Sets the label's text and puts label and list in their places.
void SetNumberBaseLabel(HWND control, const char16_t* text);

/// Selects the row of a base; a negative one clears the selection, and with a base that is not
/// offered the selection stays. Nobody is told.
void SelectNumberBase(HWND control, int32_t base);

/// The selected base, 0 for none.
int32_t SelectedNumberBase(HWND control);

/// The children.
HWND NumberBaseLabel(HWND control);
HWND NumberBaseList(HWND control);

}  // namespace tallymere
