// Pages that are made from a form: the window with its controls, and the messages that all of them
// handle alike. A page says in a FormPageKind what it is, and its record is a FormPage and what
// else it needs:
//
//     struct RootsPage : FormPage {
//         int32_t degree = 0;
//     };
//     RootsPage rootsPage;
//
//     constexpr FormPageKind Kind = {.index = PageRoots, ..., .click = HandleClick};
//
//     LRESULT RootsPageProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
//         return HandleFormPage(rootsPage, Kind, message, wParam, lParam, callDefault);
//     }
//
//     void CreateRootsPage() {
//         rootsPage = {};
//         CreateFormPage(rootsPage, Kind, RootsPageProc);
//         ...  // fills the controls and says in rootsPage.run how it calculates
//         CompleteFormPage(rootsPage, Kind);
//     }
#pragma once

#include <cstdint>

#include "shell/form_control.h"
#include "shell/main_menu.h"
#include "shell/windows/form_windows.h"
#include "shell/windows/page_run.h"
#include "toolkit/win32.h"

namespace tallymere {

/// The most controls of a page.
inline constexpr int32_t MaxPageControls = 24;

/// What a page is. Controls are named by their index in the form.
struct FormPageKind {
    PageIndex index;
    UiTextEntry title;
    LayoutSize size;  ///< of the client area as it is made
    const FormControl* form;
    int32_t count;  ///< of controls, up to MaxPageControls
    FormPlacer place;
    int32_t close;  ///< the button that closes the page
    /// Called for every button that is clicked but `close` and those of PageRunControls. May be
    /// null.
    void (*click)(HWND button);
};

struct FormPage {
    HWND window = nullptr;  ///< null before the page is complete and after its end
    HWND controls[MaxPageControls] = {};
    PageRun run;
};

/// Makes the window, hidden, and its controls. `page` is empty and lives as long as the window. The
/// window's handler passes every message on to HandleFormPage, which handles none of them yet.
void CreateFormPage(FormPage& page, const FormPageKind& kind, WindowHandler handler);

/// The controls are filled, and all is said in page.run but run.page, which is there since the
/// window is: lays the page out, puts it into pageWindows, and has its messages handled.
void CompleteFormPage(FormPage& page, const FormPageKind& kind);

/// Handles what concerns a page as such: its runs, its size, Close, its other buttons. The result
/// is that of the message.
LRESULT HandleFormPage(FormPage& page, const FormPageKind& kind, UINT message, WPARAM wParam,
                       LPARAM lParam, bool& callDefault);

}  // namespace tallymere
