// The controls of Windows, each made by one function.
//
// Places are in logical units of the parent's client area. `text` is the control's first text; it
// is copied, and null means no text. Every control is a visible child and a control of the toolkit
// (see toolkit/control_data.h). Controls have no ids: a page knows a control by its window.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/dialog_window.h"
#include "toolkit/win32.h"

namespace tallymere {

/// The longest text that an edit control takes, in characters.
inline constexpr WPARAM EditTextLimit = 0x7FFFFFFE;

/// Makes a control of the class `className`. Only WS_CHILD and WS_VISIBLE are added to `style`.
/// `handler` may be null.
HWND CreateControl(HWND parent, const char16_t* className, const LayoutRect& place,
                   const char16_t* text, DWORD style, DWORD extendedStyle = 0,
                   WindowHandler handler = nullptr);

/// A push button, which is a tab stop. `style` may have BS_ bits that are not of the button type.
HWND CreateButton(HWND parent, const LayoutRect& place, const char16_t* text, DWORD style = 0);

/// Check boxes and radio buttons check themselves and are tab stops.
HWND CreateCheckBox(HWND parent, const LayoutRect& place, const char16_t* text);
HWND CreateRadioButton(HWND parent, const LayoutRect& place, const char16_t* text);

/// A drop-down list without rows. The height of its place is the height of the open list. The tab
/// stop is the list itself.
HWND CreateDropList(HWND parent, const LayoutRect& place);

/// A text. A type in `style` that is no type of text becomes SS_LEFT.
HWND CreateStatic(HWND parent, const LayoutRect& place, const char16_t* text, DWORD style = 0);

/// An edit control for texts of any length. It is a tab stop.
HWND CreateEdit(HWND parent, const LayoutRect& place, const char16_t* text, DWORD style,
                DWORD extendedStyle);

/// The upper edge and the height of all sliders.
inline constexpr int32_t TrackbarY = 15;
inline constexpr int32_t TrackbarHeight = 21;

/// A slider without ticks, at TrackbarY and TrackbarHeight high. It is no tab stop.
HWND CreateTrackbar(HWND parent, int32_t x, int32_t width);

/// A frame with a title. It is the parent of the controls inside it. `handler` gets the messages
/// that they send; it may be null.
HWND CreateGroupBox(HWND parent, const LayoutRect& place, const char16_t* text,
                    WindowHandler handler);

}  // namespace tallymere
