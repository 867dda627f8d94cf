// The form of the page of linear systems: what stands where.
#include "algebra_pages/system_form.h"

#include <gtest/gtest.h>

#include <string>

#include "shell/languages.h"

namespace tallymere {
namespace {

LayoutRect Place(SystemControl control, int32_t width, int32_t height) {
    return PlaceSystemControl(control, {width, height});
}

TEST(SystemForm, HasItsControlsInPlace) {
    EXPECT_EQ(SystemForm[SystemCountLabel].place, (LayoutRect{10, 10, 150, 20}));
    EXPECT_EQ(SystemForm[SystemCount].place, (LayoutRect{10, 30, 40, 20}));
    EXPECT_EQ(SystemForm[SystemCount].kind, FormNumericUpDown);
    EXPECT_EQ(SystemForm[SystemTypeLabel].place, (LayoutRect{140, 10, 95, 20}));
    EXPECT_EQ(SystemForm[SystemType].place, (LayoutRect{140, 29, 70, 23}));
    EXPECT_EQ(SystemForm[SystemType].kind, FormNumberType);
    EXPECT_EQ(SystemForm[SystemPrecisionLabel].place, (LayoutRect{240, 10, 100, 20}));
    EXPECT_EQ(SystemForm[SystemPrecision].place, (LayoutRect{240, 30, 55, 20}));
    EXPECT_EQ(SystemForm[SystemPrecision].kind, FormNumericUpDown);
    EXPECT_EQ(SystemForm[SystemGrid].kind, FormGrid);
    EXPECT_EQ(SystemForm[SystemOutput].kind, FormUnbrokenField);
}

TEST(SystemForm, HasItsTexts) {
    InstallLanguage(LanguageEnglish);
    const auto text = [](SystemControl control) {
        return std::u16string(FormText(SystemForm[control]));
    };
    EXPECT_EQ(text(SystemCountLabel), u"Equation count");
    EXPECT_EQ(text(SystemTypeLabel), u"Number type");
    EXPECT_EQ(text(SystemPrecisionLabel), u"Precision");
    EXPECT_EQ(text(SystemHint),
              u"Enter the coefficients ai and the number b for all equations "
              u"a1*x1 + a2*x2 + ... = b into the data grid. Empty text cells are read as 0.");
    EXPECT_EQ(text(SystemSolve), u"Solve");
    EXPECT_EQ(text(SystemClear), u"Clear");
    EXPECT_EQ(text(SystemLoad), u"Load");
    EXPECT_EQ(text(SystemSaveAs), u"Save as");
    EXPECT_EQ(text(SystemClose), u"Close");
}

// Grid and result share the height between hint and buttons.
TEST(SystemForm, FillsTheWindow) {
    EXPECT_EQ(Place(SystemHint, 600, 540), (LayoutRect{10, 62, 580, 40}));
    EXPECT_EQ(Place(SystemGrid, 600, 540), (LayoutRect{10, 102, 580, 194}));
    EXPECT_EQ(Place(SystemOutput, 600, 540), (LayoutRect{10, 301, 580, 194}));
    EXPECT_EQ(Place(SystemSolve, 600, 540), (LayoutRect{10, 507, 75, 25}));
    EXPECT_EQ(Place(SystemClear, 600, 540), (LayoutRect{90, 507, 75, 25}));
    EXPECT_EQ(Place(SystemLoad, 600, 540), (LayoutRect{170, 507, 75, 25}));
    EXPECT_EQ(Place(SystemSaveAs, 600, 540), (LayoutRect{250, 507, 80, 25}));
    EXPECT_EQ(Place(SystemClose, 600, 540), (LayoutRect{515, 507, 75, 25}));
    EXPECT_EQ(Place(SystemGrid, 901, 701), (LayoutRect{10, 102, 881, 274}));
    EXPECT_EQ(Place(SystemOutput, 901, 701), (LayoutRect{10, 381, 881, 274}));
    EXPECT_EQ(Place(SystemSolve, 901, 701), (LayoutRect{10, 668, 75, 25}));
    EXPECT_EQ(Place(SystemClose, 901, 701), (LayoutRect{816, 668, 75, 25}));
    EXPECT_EQ(Place(SystemCount, 901, 701), SystemForm[SystemCount].place);
}

}  // namespace
}  // namespace tallymere
