// The controls of the About window.
#pragma once

#include <iterator>

#include "shell/form_control.h"

namespace tallymere {

/// The client area.
inline constexpr LayoutSize AboutSize = {410, 295};

/// Where the icon is drawn: pixels at any resolution.
inline constexpr LayoutRect AboutIconPixels = {15, 13, 48, 48};

enum AboutControl : int32_t {
    AboutTitle,  ///< the program's name and version
    AboutNotice,
    AboutDate,
    AboutHolder,
    AboutEMail,
    AboutHomepage,
    AboutDonate,
    AboutClose,
    AboutControlCount,
};

// Each row: the parent, the kind, the place in the parent, the text. The notice reaches behind the
// lines below it; its text is shorter than its place.
inline constexpr FormControl AboutForm[] = {
    {FormWindow, FormStatic, {80, 25, AboutSize.width - 80, 40}, nullptr},
    {FormWindow,
     FormStatic,
     {15, 75, AboutSize.width - 30, 180},
     &UiText::TextAboutFreewareYouCanUse},
    {FormWindow, FormStatic, {15, 165, 350, 20}, &UiText::TextAboutCreationDate},
    {FormWindow, FormStatic, {15, 190, AboutSize.width, 20}, &UiText::TextAbout},
    {FormWindow, FormStatic, {15, 215, AboutSize.width, 20}, &UiText::TextAboutEMail},
    {FormWindow,
     FormMultilineButton,
     {10, AboutSize.height - 55, 105, 47},
     &UiText::TextAboutHomepage},
    {FormWindow,
     FormOwnerDrawnButton,
     {(AboutSize.width - 92) / 2, AboutSize.height - 55, 92, 47},
     &UiText::TextAboutDonate},
    {FormWindow, FormPushButton, {295, AboutSize.height - 55, 105, 47}, &UiText::TextBtnOK},
};
static_assert(std::size(AboutForm) == AboutControlCount);

}  // namespace tallymere
