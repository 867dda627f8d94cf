// The size and the place of a new dialog window. All lengths are pixels.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"

namespace tallymere {

/// What a dialog window can ask for. Both are bits of the window style that the system does not use
/// for windows without parent.
enum DialogStyle : uint32_t {
    DialogClientSize = 1,  ///< the size that is asked for is that of the client area
    DialogCentred = 2,     ///< the window goes to the middle of the screen
};

/// The size of a window whose client area has the size `client`. Frame and title need the
/// difference of `currentWindow` and `currentClient`.
constexpr LayoutSize WindowSizeForClient(LayoutSize client, LayoutSize currentWindow,
                                         LayoutSize currentClient) {
    return {client.width + currentWindow.width - currentClient.width,
            client.height + currentWindow.height - currentClient.height};
}

/// The upper left corner of a window in the middle of the screen. An odd pixel goes to the right
/// and to the bottom. A window larger than the screen begins outside it.
constexpr LayoutPoint CentredPosition(LayoutSize screen, LayoutSize window) {
    return {(screen.width - window.width) / 2, (screen.height - window.height) / 2};
}

}  // namespace tallymere
