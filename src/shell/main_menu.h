// The menu of the main window and what its items do.
#pragma once

#include <cstdint>

#include "shell/ui_text.h"

namespace tallymere {

/// The pages that the Algebra menu shows, in its order.
enum PageIndex : int32_t {
    PageCalculator,
    PageAlgebraicEquations,
    PageLinearSystems,
    PagePolynomialCalculation,
    PagePrimeNumbers,
    PagePrimeFactors,
    PageCount,
};

enum MenuId : int32_t {
    MenuApplication = 100,
    MenuOptions = 101,
    MenuExit = 102,
    MenuAlgebra = 200,
    MenuHelp = 300,
    MenuShowHelp = 301,
    MenuInfo = 302,
};

/// The id of PageCalculator. The ids of the other pages follow in their order.
inline constexpr int32_t MenuFirstPage = 201;

enum MenuAction {
    MenuDoesNothing,
    MenuShowsOptions,
    MenuClosesProgram,
    MenuShowsPage,
    MenuOpensHelp,
    MenuRunsAbout,
};

struct MenuCommand {
    MenuAction action = MenuDoesNothing;
    PageIndex page = {};  ///< with MenuShowsPage
};

/// An item of the menu. An id that is a multiple of 100 is an item of the bar. Any other item
/// belongs to the drop-down menu of the bar item before it.
struct MenuItem {
    int32_t id;
    UiTextEntry caption;
    MenuCommand command = {};  ///< MenuDoesNothing for an item of the bar

    constexpr bool IsBarItem() const { return id % 100 == 0; }
};

constexpr MenuItem PageItem(PageIndex page, UiTextEntry caption) {
    return {MenuFirstPage + page, caption, {MenuShowsPage, page}};
}

inline constexpr MenuItem MainMenu[] = {
    {MenuApplication, &UiText::TextMenuApplication},
    {MenuOptions, &UiText::TextMenuOptions, {MenuShowsOptions}},
    {MenuExit, &UiText::TextMenuExit, {MenuClosesProgram}},
    {MenuAlgebra, &UiText::TextMenuAlgebra},
    PageItem(PageCalculator, &UiText::TextMenuScientificCalculator),
    PageItem(PageAlgebraicEquations, &UiText::TextMenuAlgebraicEquations),
    PageItem(PageLinearSystems, &UiText::TextMenuSystemsLinearEquations),
    PageItem(PagePolynomialCalculation, &UiText::TextMenuPolynomialCalculation),
    PageItem(PagePrimeNumbers, &UiText::TextMenuPrimeNumbers),
    PageItem(PagePrimeFactors, &UiText::TextMenuPrimeFactorsDivisors),
    {MenuHelp, &UiText::TextMenuHelp},
    {MenuShowHelp, &UiText::TextMenuShowHelp, {MenuOpensHelp}},
    {MenuInfo, &UiText::TextMenuInfo, {MenuRunsAbout}},
};

/// What a command message does. `sender` is the second argument of the message: 0 for a menu,
/// otherwise the window of a control. A message of a control, and an id that is not in the menu, do
/// nothing.
MenuCommand CommandOfMenu(int64_t id, int64_t sender);

/// Whether a user can choose the item. An item that shows a page is grey while that page is
/// missing; `hasPage` says for each page whether the program has it.
bool IsMenuItemEnabled(const MenuItem& item, const bool (&hasPage)[PageCount]);

}  // namespace tallymere
