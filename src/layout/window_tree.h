// Where the keyboard leads in a tree of windows: tab order and radio groups.
//
// The functions see windows only through a small record that answers questions about them. So the
// same code runs over real windows and over the plain records of tests.
#pragma once

#include <concepts>
#include <cstdint>

namespace tallymere {

/// What the functions ask about windows. The type Tree::Window names a window and has ==; its
/// value-initialised value means no window, "none" below. Siblings are asked for only if there is a
/// parent.
///
/// - Parent: none for the dialog, which is the root, even if the dialog has an owner.
/// - FirstChild, LastChild: none without children. Children are in the order of their creation.
/// - NextSibling, PreviousSibling: none at the ends.
/// - IsTabStop: the Tab key may stop there, see CanTakeFocus.
/// - IsVisible: the window and all its parents are shown.
/// - IsChecked: asked only of a radio button.
template <typename Tree>
concept WindowTree = requires(const Tree& tree, typename Tree::Window window) {
    requires std::regular<typename Tree::Window>;
    { tree.Parent(window) } -> std::same_as<typename Tree::Window>;
    { tree.FirstChild(window) } -> std::same_as<typename Tree::Window>;
    { tree.LastChild(window) } -> std::same_as<typename Tree::Window>;
    { tree.NextSibling(window) } -> std::same_as<typename Tree::Window>;
    { tree.PreviousSibling(window) } -> std::same_as<typename Tree::Window>;
    { tree.IsTabStop(window) } -> std::same_as<bool>;
    { tree.IsVisible(window) } -> std::same_as<bool>;
    { tree.IsRadioButton(window) } -> std::same_as<bool>;
    { tree.IsChecked(window) } -> std::same_as<bool>;
};

/// Forward is the direction of Tab and of the arrows right and down. Backward is that of Shift+Tab
/// and of the arrows left and up.
enum WalkDirection { WalkForward, WalkBackward };

/// The last window of the tree below `window`; `window` itself if it has no children.
template <WindowTree Tree>
typename Tree::Window LastDescendant(const Tree& tree, typename Tree::Window window) {
    for (auto child = tree.LastChild(window); child != typename Tree::Window{};
         child = tree.LastChild(window)) {
        window = child;
    }
    return window;
}

/// The next window in the circle of all windows of the tree. Each window comes before its children.
/// After the last one comes the root.
template <WindowTree Tree>
typename Tree::Window WindowBeside(const Tree& tree, typename Tree::Window window,
                                   WalkDirection direction) {
    using Window = typename Tree::Window;
    if (direction == WalkBackward) {
        const Window parent = tree.Parent(window);
        if (parent == Window{}) {
            return LastDescendant(tree, window);
        }
        const Window previous = tree.PreviousSibling(window);
        return previous == Window{} ? parent : LastDescendant(tree, previous);
    }
    if (const Window child = tree.FirstChild(window); child != Window{}) {
        return child;
    }
    for (Window parent = tree.Parent(window); parent != Window{}; parent = tree.Parent(window)) {
        if (const Window next = tree.NextSibling(window); next != Window{}) {
            return next;
        }
        window = parent;
    }
    return window;
}

/// The next tab stop in the circle, from `start` on. `start` itself when there is no other, even if
/// `start` is no tab stop. Forward from the dialog it is the control that has the focus first.
template <WindowTree Tree>
typename Tree::Window NextTabStop(const Tree& tree, typename Tree::Window start,
                                  WalkDirection direction) {
    auto window = WindowBeside(tree, start, direction);
    while (window != start && !tree.IsTabStop(window)) {
        window = WindowBeside(tree, window, direction);
    }
    return window;
}

/// The next sibling in a direction if it is a radio button, visible or not; else none. A radio
/// group consists of neighbouring siblings that are radio buttons.
template <WindowTree Tree>
typename Tree::Window RadioButtonBeside(const Tree& tree, typename Tree::Window button,
                                        WalkDirection direction) {
    using Window = typename Tree::Window;
    const Window sibling =
        direction == WalkForward ? tree.NextSibling(button) : tree.PreviousSibling(button);
    return sibling != Window{} && tree.IsRadioButton(sibling) ? sibling : Window{};
}

/// The last visible radio button in a direction, in the group of `button`. `button` itself when no
/// other is visible there.
template <WindowTree Tree>
typename Tree::Window RadioGroupEnd(const Tree& tree, typename Tree::Window button,
                                    WalkDirection direction) {
    using Window = typename Tree::Window;
    Window end = button;
    for (Window other = RadioButtonBeside(tree, button, direction); other != Window{};
         other = RadioButtonBeside(tree, other, direction)) {
        if (tree.IsVisible(other)) {
            end = other;
        }
    }
    return end;
}

/// The radio button that an arrow key leads to: the nearest visible one in the direction, in the
/// group of `button`. None at the end of the group.
template <WindowTree Tree>
typename Tree::Window RadioArrowTarget(const Tree& tree, typename Tree::Window button,
                                       WalkDirection direction) {
    using Window = typename Tree::Window;
    Window other = RadioButtonBeside(tree, button, direction);
    while (other != Window{} && !tree.IsVisible(other)) {
        other = RadioButtonBeside(tree, other, direction);
    }
    return other;
}

/// Where the focus goes.
template <typename Window>
struct FocusTarget {
    Window window;
    bool check;  ///< check the radio button first
};

/// The window that takes the focus when `control` should have it. For a radio button it is the
/// visible, checked button of its group; the search goes backward from the button first, then
/// forward. When none is checked, the first visible button of the group takes the focus and is
/// checked. Any other control takes the focus itself.
template <WindowTree Tree>
FocusTarget<typename Tree::Window> FocusTargetOf(const Tree& tree, typename Tree::Window control) {
    using Window = typename Tree::Window;
    if (!tree.IsRadioButton(control)) {
        return {control, false};
    }
    const auto isSelected = [&tree](Window button) {
        return tree.IsVisible(button) && tree.IsChecked(button);
    };
    for (Window button = control; button != Window{};
         button = RadioButtonBeside(tree, button, WalkBackward)) {
        if (isSelected(button)) {
            return {button, false};
        }
    }
    for (Window button = RadioButtonBeside(tree, control, WalkForward); button != Window{};
         button = RadioButtonBeside(tree, button, WalkForward)) {
        if (isSelected(button)) {
            return {button, false};
        }
    }
    return {RadioGroupEnd(tree, control, WalkBackward), true};
}

/// Where the Tab key leads from `control`. It leaves a radio group as a whole, and enters one at
/// its checked button.
template <WindowTree Tree>
FocusTarget<typename Tree::Window> TabTargetOf(const Tree& tree, typename Tree::Window control,
                                               WalkDirection direction) {
    const auto start =
        tree.IsRadioButton(control) ? RadioGroupEnd(tree, control, direction) : control;
    return FocusTargetOf(tree, NextTabStop(tree, start, direction));
}

}  // namespace tallymere
