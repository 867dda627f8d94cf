// Where a dialog window goes when it is made. All lengths are pixels.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"

namespace tallymere {

/// Requests to the class of dialog windows, in two bits of the window style that mean nothing to a
/// window without parent.
enum DialogStyle : uint32_t {
    DialogClientSize = 1,  ///< the size that is asked for is that of the client area
    DialogCentred = 2,     ///< the window goes to the middle of the screen
};

/// The size of a window whose client area shall be `client`: what frame and title now take, which
/// is the difference of `currentWindow` and `currentClient`, is added.
constexpr LayoutSize WindowSizeForClient(LayoutSize client, LayoutSize currentWindow,
                                         LayoutSize currentClient) {
    return {client.width + currentWindow.width - currentClient.width,
            client.height + currentWindow.height - currentClient.height};
}

/// Where the upper left corner of a window goes that stands in the middle of the screen; an odd
/// pixel is right of it and below. A window larger than the screen begins outside of it.
constexpr LayoutPoint CentredPosition(LayoutSize screen, LayoutSize window) {
    return {(screen.width - window.width) / 2, (screen.height - window.height) / 2};
}

}  // namespace tallymere
