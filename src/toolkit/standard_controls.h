// The controls of Windows, each made by one function.
//
// Places are in logical units of the parent's client area. `text` is the control's first text and
// is copied; null makes none. Every control is a visible child and a control of the toolkit (see
// toolkit/control_data.h). None has an id: a page knows a control by its window.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "toolkit/dialog_window.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Any control, of a class by name: WS_CHILD and WS_VISIBLE are added to `style`, and nothing else.
/// `handler` may be null.
HWND CreateControl(HWND parent, const char16_t* className, const LayoutRect& place,
                   const char16_t* text, DWORD style, DWORD extendedStyle = 0,
                   WindowHandler handler = nullptr);

/// A push button and tab stop. `style` may hold BS_ bits beside those of the type.
HWND CreateButton(HWND parent, const LayoutRect& place, const char16_t* text, DWORD style = 0);

/// Check boxes and radio buttons check themselves and are tab stops.
HWND CreateCheckBox(HWND parent, const LayoutRect& place, const char16_t* text);
HWND CreateRadioButton(HWND parent, const LayoutRect& place, const char16_t* text);

/// A list that drops down, without rows; the height of its place is that of the open list. The tab
/// stop lies on the list itself.
HWND CreateDropList(HWND parent, const LayoutRect& place);

/// A text. Of the types in `style` only those of text are taken, any other becomes SS_LEFT.
HWND CreateStatic(HWND parent, const LayoutRect& place, const char16_t* text, DWORD style = 0);

/// An edit control and tab stop, for texts of any length.
HWND CreateEdit(HWND parent, const LayoutRect& place, const char16_t* text, DWORD style,
                DWORD extendedStyle);

/// The row in which all sliders stand.
inline constexpr int32_t TrackbarY = 15;
inline constexpr int32_t TrackbarHeight = 21;

/// A slider without ticks and tab stop, at TrackbarY and TrackbarHeight high.
HWND CreateTrackbar(HWND parent, int32_t x, int32_t width);

/// A frame with a title, which is the parent of the controls inside; `handler`, which may be null,
/// sees what they tell.
HWND CreateGroupBox(HWND parent, const LayoutRect& place, const char16_t* text,
                    WindowHandler handler);

}  // namespace tallymere
