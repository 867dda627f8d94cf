// A page that has a form: when its messages are handled, and where its clicks go.
#include "shell/windows/form_page.h"

#include <iterator>
#include <vector>

#include "shell_windows/page_window_testing.h"

namespace tallymere::testing_support {
namespace {

enum SmallControl { SmallStart, SmallOther, SmallClose, SmallControlCount };

constexpr FormControl SmallForm[] = {
    {FormWindow, FormPushButton, {10, 10, 60, 20}, nullptr, u"start"},
    {FormWindow, FormPushButton, {80, 10, 60, 20}, nullptr, u"other"},
    {FormWindow, FormPushButton, {150, 10, 60, 20}, nullptr, u"close"},
};
static_assert(std::size(SmallForm) == SmallControlCount);

FormPage small;
std::vector<HWND> clicked;
int layouts;
bool clickedWhileMade;

// Close stands at the right edge.
LayoutRect PlaceSmallControl(int32_t control, LayoutSize client) {
    layouts++;
    LayoutRect place = SmallForm[control].place;
    place.x = control == SmallClose ? client.width - place.width : place.x;
    return place;
}

void NoteClick(HWND button) {
    clicked.push_back(button);
}

constexpr FormPageKind SmallKind = {.index = PageLinearSystems,
                                    .title = &UiText::TextBtnStart,
                                    .size = {300, 100},
                                    .form = SmallForm,
                                    .count = SmallControlCount,
                                    .place = PlaceSmallControl,
                                    .close = SmallClose,
                                    .click = NoteClick};

LRESULT SmallPageProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    return HandleFormPage(small, SmallKind, message, wParam, lParam, callDefault);
}

void Press(int32_t control) {
    SendMessageW(small.controls[control], BM_CLICK, 0, 0);
}

void CreateSmallPage() {
    small = {};
    clicked.clear();
    layouts = 0;
    CreateFormPage(small, SmallKind, SmallPageProc);
    if (clickedWhileMade) {
        ShowWindow(small.run.page, SW_SHOW);
        for (int32_t control = 0; control < SmallControlCount; control++) {
            Press(control);
        }
        SendMessageW(small.run.page, WM_SIZE, SIZE_RESTORED, 0);
        EXPECT_EQ(layouts, 0);
        EXPECT_TRUE(IsWindowVisible(small.run.page)) << "Close was heard";
    }
    small.run.controls = {.startButton = small.controls[SmallStart],
                          .startCaption = &UiText::TextBtnStart};
    CompleteFormPage(small, SmallKind);
}

class FormPageTest : public PageWindowTest {
protected:
    FormPageTest() : PageWindowTest({{PageLinearSystems, CreateSmallPage, &small}}) {
        clickedWhileMade = false;
    }
};

TEST_F(FormPageTest, IsMadeOfItsForm) {
    EXPECT_EQ(pageWindows[PageLinearSystems], small.window);
    EXPECT_EQ(TextOf(small.window), "Start");
    EXPECT_EQ(LogicalClientSize(small.window), SmallKind.size);
    for (int32_t control = 0; control < SmallControlCount; control++) {
        EXPECT_EQ(GetParent(small.controls[control]), small.window);
    }
    EXPECT_EQ(PlaceInParent(small.controls[SmallClose]), (LayoutRect{240, 10, 60, 20}));
    Resize(small, {400, 100});
    EXPECT_EQ(PlaceInParent(small.controls[SmallClose]), (LayoutRect{340, 10, 60, 20}));
}

TEST_F(FormPageTest, DoesWhatAllPagesDo) {
    ExpectNotToBeLaidOutWhileMinimised(small, small.controls[SmallClose]);
    ExpectCloseToHide(small, small.controls[SmallClose]);
    ExpectToBeResizableAndInTheMiddle();
    MakeAgain(LanguageEnglish);
    ExpectToBeGoneWithItsWindow();
}

TEST_F(FormPageTest, HandsOnTheClicksThatAreOfNoneElse) {
    for (int32_t control = 0; control < SmallControlCount; control++) {
        Press(control);
    }
    EXPECT_EQ(clicked, std::vector<HWND>{small.controls[SmallOther]});
    // From another source than a control, such as a menu, or another news than a click.
    SendMessageW(small.window, WM_COMMAND, 7, 0);
    SendMessageW(small.window, WM_COMMAND, MAKEWPARAM(0, BN_SETFOCUS),
                 reinterpret_cast<LPARAM>(small.controls[SmallOther]));
    EXPECT_EQ(clicked.size(), 1u);
}

TEST_F(FormPageTest, HandlesNothingBeforeItIsComplete) {
    clickedWhileMade = true;
    MakeAgain(LanguageEnglish);
    EXPECT_TRUE(clicked.empty());
    Press(SmallOther);
    EXPECT_EQ(clicked.size(), 1u);
}

}  // namespace
}  // namespace tallymere::testing_support
