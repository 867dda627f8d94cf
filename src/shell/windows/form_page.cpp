#include "shell/windows/form_page.h"

#include "core/contract.h"
#include "shell/windows/program_windows.h"

namespace tallymere {

namespace {

void LayOutPage(const FormPage& page, const FormPageKind& kind) {
    PlaceFormControls(page.window, {page.controls, static_cast<size_t>(kind.count)}, kind.place);
}

void HandleClick(const FormPage& page, const FormPageKind& kind, HWND button) {
    if (button == page.controls[kind.close]) {
        SendMessageW(page.window, WM_CLOSE, 0, 0);
    } else if (kind.click != nullptr) {
        kind.click(button);
    }
}

}  // namespace

void CreateFormPage(FormPage& page, const FormPageKind& kind, WindowHandler handler) {
    TALLYMERE_REQUIRE(kind.count <= MaxPageControls);
    TALLYMERE_REQUIRE(page.window == nullptr);
    page.run.page = CreatePageWindow(kind.size, uiText.*kind.title, handler);
    CreateFormControls(page.run.page, kind.form, kind.count, page.controls);
}

void CompleteFormPage(FormPage& page, const FormPageKind& kind) {
    page.window = page.run.page;
    LayOutPage(page, kind);
    pageWindows[kind.index] = page.window;
}

LRESULT HandleFormPage(FormPage& page, const FormPageKind& kind, UINT message, WPARAM wParam,
                       LPARAM lParam, bool& callDefault) {
    if (page.window == nullptr || HandlePageRun(page.run, message, wParam, lParam, callDefault)) {
        return 0;
    }
    switch (message) {
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) {
                LayOutPage(page, kind);
            }
            break;
        case WM_COMMAND:
            if (lParam != 0 && HIWORD(wParam) == BN_CLICKED) {
                HandleClick(page, kind, reinterpret_cast<HWND>(lParam));
            }
            break;
        case WM_NCDESTROY:
            page.window = nullptr;
            break;
        default:
            break;
    }
    return 0;
}

}  // namespace tallymere
