// What happens to the other windows when the main window is minimised. They are hidden with it.
// When it is restored, they are shown again as they were.
#pragma once

#include <cstdint>

namespace tallymere {

/// How a window is shown. The values are those of the system; other values do not matter here.
enum WindowShowState : uint32_t {
    WindowHidden = 0,
    WindowNormal = 1,
    WindowMaximised = 3,
};

/// How many windows a list can hold. Further windows stay as they are.
inline constexpr int32_t WindowStateCapacity = 100;

/// A window and how it was shown when the main window was minimised. The type Window names a window
/// and has ==.
template <typename Window>
struct WindowState {
    Window window;
    uint32_t showState;
};

/// The noted windows, in the order in which they were noted; 0 <= count <= WindowStateCapacity.
template <typename Window>
struct WindowStateList {
    WindowState<Window> states[WindowStateCapacity] = {};
    int32_t count = 0;
};

/// Appends a window and its state to the list; a window that is not visible has the state
/// WindowHidden. A full list stays as it is. Returns true when the list has room for another
/// window.
///
/// Older entries of the list stay, because they may still be needed. A maximised main window can be
/// minimised and go back to maximised. The system sends no message then that it was restored, so
/// the windows of that time are still hidden. The next restore must show them.
template <typename Window>
bool NoteWindowState(WindowStateList<Window>& list, Window window, bool isVisible,
                     uint32_t showState) {
    if (list.count < WindowStateCapacity) {
        list.states[list.count++] = {window, isVisible ? showState : uint32_t{WindowHidden}};
    }
    return list.count < WindowStateCapacity;
}

/// True for a noted window that is hidden when the main window is minimised, and shown in its state
/// when the main window is restored. A window that is minimised itself stays as it is.
template <typename Window>
bool FollowsMainWindow(const WindowState<Window>& state, Window mainWindow) {
    return state.window != mainWindow &&
           (state.showState == WindowNormal || state.showState == WindowMaximised);
}

}  // namespace tallymere
