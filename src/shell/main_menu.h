// The menu of the main window and what its items do.
#pragma once

#include <cstdint>

#include "shell/form_control.h"

namespace tallymere {

/// The windows that the Algebra menu shows, in its order.
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

/// The id of PageCalculator; the other pages follow in their order.
inline constexpr int32_t MenuFirstPage = 201;

/// An item of the bar, whose id is a multiple of 100, or of the drop-down menu of the bar item
/// before it.
struct MenuItem {
    int32_t id;
    UiTextEntry caption;

    constexpr bool IsBarItem() const { return id % 100 == 0; }
};

inline constexpr MenuItem MainMenu[] = {
    {MenuApplication, &UiText::TextMenuApplication},
    {MenuOptions, &UiText::TextMenuOptions},
    {MenuExit, &UiText::TextMenuExit},
    {MenuAlgebra, &UiText::TextMenuAlgebra},
    {MenuFirstPage + PageCalculator, &UiText::TextMenuScientificCalculator},
    {MenuFirstPage + PageAlgebraicEquations, &UiText::TextMenuAlgebraicEquations},
    {MenuFirstPage + PageLinearSystems, &UiText::TextMenuSystemsLinearEquations},
    {MenuFirstPage + PagePolynomialCalculation, &UiText::TextMenuPolynomialCalculation},
    {MenuFirstPage + PagePrimeNumbers, &UiText::TextMenuPrimeNumbers},
    {MenuFirstPage + PagePrimeFactors, &UiText::TextMenuPrimeFactorsDivisors},
    {MenuHelp, &UiText::TextMenuHelp},
    {MenuShowHelp, &UiText::TextMenuShowHelp},
    {MenuInfo, &UiText::TextMenuInfo},
};

enum MenuAction {
    MenuDoesNothing,
    MenuShowsOptions,
    MenuClosesProgram,
    MenuShowsPage,
    MenuOpensHelp,
    MenuRunsAbout,
};

struct MenuCommand {
    MenuAction action;
    PageIndex page;  ///< with MenuShowsPage
};

/// What a command message does. `sender` is the message's second argument: 0 comes from a menu,
/// anything else is the window of a control, which is not listened to.
MenuCommand CommandOfMenu(int64_t id, int64_t sender);

}  // namespace tallymere
