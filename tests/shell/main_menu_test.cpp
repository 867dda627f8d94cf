#include "shell/main_menu.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tallymere {
namespace {

class MainMenuTest : public ::testing::Test {
protected:
    void SetUp() override { saved_ = uiText; }
    void TearDown() override { uiText = saved_; }

private:
    UiText saved_;
};

TEST_F(MainMenuTest, HasThreeDropDownMenusInOrder) {
    struct Expected {
        int32_t id;
        const char16_t* english;
        const char16_t* german;
    };
    const std::vector<Expected> expected = {
        {100, u"Application", u"Applikation"},
        {101, u"Options", u"Optionen"},
        {102, u"Exit", u"Beenden"},
        {200, u"Algebra", u"Algebra"},
        {201, u"Scientific Calculator", u"Wissenschaftlicher Rechner"},
        {202, u"Algebraic Equations", u"Algebraische Gleichungen"},
        {203, u"Systems of Linear Equations", u"Lineare Gleichungssysteme"},
        {204, u"Polynomial Calculation", u"Polynomberechnung"},
        {205, u"Prime Numbers", u"Primzahlen"},
        {206, u"Prime Factors && Divisors", u"Primfaktoren && Teiler"},
        {300, u"Help", u"Hilfe"},
        {301, u"Show Help", u"Hilfe anzeigen"},
        {302, u"Info ...", u"Info ..."},
    };
    ASSERT_EQ(std::size(MainMenu), expected.size());
    for (size_t i = 0; i < expected.size(); i++) {
        EXPECT_EQ(MainMenu[i].id, expected[i].id);
        EXPECT_EQ(MainMenu[i].IsBarItem(), expected[i].id % 100 == 0);
        FillUiTextEnglish();
        EXPECT_EQ(std::u16string(uiText.*MainMenu[i].caption), expected[i].english);
        FillUiTextGerman();
        EXPECT_EQ(std::u16string(uiText.*MainMenu[i].caption), expected[i].german);
    }
}

TEST_F(MainMenuTest, ItemsLieInTheMenuOfTheBarItemBeforeThem) {
    int32_t bar = 0;
    for (const MenuItem& item : MainMenu) {
        if (item.IsBarItem()) {
            bar = item.id;
        }
        EXPECT_EQ(item.id / 100 * 100, bar);
    }
}

TEST_F(MainMenuTest, EachPageIsShownByItsItem) {
    const PageIndex pages[] = {PageCalculator,    PageAlgebraicEquations,
                               PageLinearSystems, PagePolynomialCalculation,
                               PagePrimeNumbers,  PagePrimeFactors};
    static_assert(std::size(pages) == PageCount, "a PageIndex is missing in this list");
    for (int64_t i = 0; i < PageCount; i++) {
        const MenuCommand command = CommandOfMenu(201 + i, 0);
        EXPECT_EQ(command.action, MenuShowsPage);
        EXPECT_EQ(command.page, pages[i]);
    }
}

TEST_F(MainMenuTest, OnlyItemsOfPagesThatAreNotThereAreGrey) {
    for (int32_t missing = 0; missing < PageCount; missing++) {
        bool hasPage[PageCount];
        std::fill_n(hasPage, PageCount, true);
        hasPage[missing] = false;
        for (const MenuItem& item : MainMenu) {
            EXPECT_EQ(IsMenuItemEnabled(item, hasPage), item.id != 201 + missing) << item.id;
        }
    }
    for (const MenuItem& item : MainMenu) {
        const bool isPage = item.id >= 201 && item.id <= 206;
        EXPECT_EQ(IsMenuItemEnabled(item, {}), !isPage) << item.id;
    }
}

TEST_F(MainMenuTest, TheOtherItemsHaveTheirActions) {
    EXPECT_EQ(CommandOfMenu(101, 0).action, MenuShowsOptions);
    EXPECT_EQ(CommandOfMenu(102, 0).action, MenuClosesProgram);
    EXPECT_EQ(CommandOfMenu(301, 0).action, MenuOpensHelp);
    EXPECT_EQ(CommandOfMenu(302, 0).action, MenuRunsAbout);
}

TEST_F(MainMenuTest, AllOtherIdsDoNothing) {
    for (int64_t id = -10; id < 70000; id++) {
        const bool isItem =
            id == 101 || id == 102 || (id >= 201 && id <= 206) || id == 301 || id == 302;
        ASSERT_EQ(CommandOfMenu(id, 0).action != MenuDoesNothing, isItem) << id;
    }
    EXPECT_EQ(CommandOfMenu((int64_t{1} << 32) + 101, 0).action, MenuDoesNothing);
}

TEST_F(MainMenuTest, ACommandOfAControlIsNotListenedTo) {
    for (const MenuItem& item : MainMenu) {
        EXPECT_EQ(CommandOfMenu(item.id, 1).action, MenuDoesNothing);
        EXPECT_EQ(CommandOfMenu(item.id, -1).action, MenuDoesNothing);
    }
}

}  // namespace
}  // namespace tallymere
