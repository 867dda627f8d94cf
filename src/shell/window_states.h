// The windows of the program while its main window is minimised: hidden with it, and shown again as
// they were when it is restored.
#pragma once

#include <cstdint>

namespace tallymere {

/// How a window is shown, with the values that the system gives them; others do not matter here.
enum WindowShowState : uint32_t {
    WindowHidden = 0,
    WindowNormal = 1,
    WindowMaximised = 3,
};

/// Windows beyond these are left as they are.
inline constexpr int32_t WindowStateCapacity = 100;

/// A window and how it was shown when the main window was minimised. Window names a window and is
/// compared with ==.
template <typename Window>
struct WindowState {
    Window window;
    uint32_t showState;
};

/// Noted windows in the order of their noting; 0 <= count <= WindowStateCapacity.
template <typename Window>
struct WindowStateList {
    WindowState<Window> states[WindowStateCapacity] = {};
    int32_t count = 0;
};

/// Notes a window with its state, WindowHidden for one that is not visible, and returns whether
/// there is room for another. A window in a list that is full already is not noted. Noting
/// continues behind what is in the list: if the main window, once maximised, goes from minimised
/// back to maximised, no restoring is told, and the states of that time still count.
template <typename Window>
bool NoteWindowState(WindowStateList<Window>& list, Window window, bool isVisible,
                     uint32_t showState) {
    if (list.count < WindowStateCapacity) {
        list.states[list.count++] = {window, isVisible ? showState : uint32_t{WindowHidden}};
    }
    return list.count < WindowStateCapacity;
}

/// Whether a noted window is hidden when the main window is minimised and shown with its state when
/// that is restored. A window that is minimised itself stays as it is.
template <typename Window>
bool FollowsMainWindow(const WindowState<Window>& state, Window mainWindow) {
    return state.window != mainWindow &&
           (state.showState == WindowNormal || state.showState == WindowMaximised);
}

}  // namespace tallymere
