// Keyboard walks over a tree of windows: tab order and radio groups.
//
// The walks see windows only through a small record that answers questions about them, so that the
// same code runs over real windows and over plain records.
#pragma once

#include <concepts>
#include <cstdint>

namespace tallymere {

/// What the walks ask about windows. Tree::Window names a window and is compared with ==; the
/// value-initialised one is none. Siblings are asked for only where there is a parent.
///
/// Parent(window)            none for the root of the tree, the dialog, even if that has an owner
/// FirstChild, LastChild     none without children; children are in the order of their creation
/// NextSibling, PreviousSibling    none at the ends
/// IsTabStop(window)         whether the Tab key may stop there, see CanTakeFocus
/// IsVisible(window)         whether it is shown, with everything that it lies in
/// IsRadioButton(window)
/// IsChecked(window)         of a radio button
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

/// The direction of a walk: that of Tab and of the arrows right and down, or that of Shift+Tab and
/// of the arrows left and up.
enum WalkDirection { WalkForward, WalkBackward };

/// The last window of the tree below `window`, itself if it has no children.
template <WindowTree Tree>
typename Tree::Window LastDescendant(const Tree& tree, typename Tree::Window window) {
    for (auto child = tree.LastChild(window); child != typename Tree::Window{};
         child = tree.LastChild(window)) {
        window = child;
    }
    return window;
}

/// The neighbour in the circle of all windows of the tree, each before its children; behind the
/// last one comes the root.
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

/// The next window that is a tab stop, going around the tree from `start`; `start` itself when
/// there is no other, even if it is none. From the dialog forward this is the control that takes
/// the focus first.
template <WindowTree Tree>
typename Tree::Window NextTabStop(const Tree& tree, typename Tree::Window start,
                                  WalkDirection direction) {
    auto window = WindowBeside(tree, start, direction);
    while (window != start && !tree.IsTabStop(window)) {
        window = WindowBeside(tree, window, direction);
    }
    return window;
}

/// The sibling in a direction if it is a radio button, visible or not, else none: a radio group is
/// a run of siblings that are radio buttons.
template <WindowTree Tree>
typename Tree::Window RadioButtonBeside(const Tree& tree, typename Tree::Window button,
                                        WalkDirection direction) {
    using Window = typename Tree::Window;
    const Window sibling =
        direction == WalkForward ? tree.NextSibling(button) : tree.PreviousSibling(button);
    return sibling != Window{} && tree.IsRadioButton(sibling) ? sibling : Window{};
}

/// The last visible radio button of the group of `button` in a direction; `button` itself when no
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

/// The radio button that an arrow key leads to: the nearest visible one of the group in the
/// direction, none at the end.
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
    bool check;  ///< whether the radio button is to be checked first
};

/// The window that takes the focus in place of `control`: for a radio button the visible, checked
/// one of its group, looked for backward from it and then forward; with none checked, the first
/// visible one, which is then checked. Any other control takes the focus itself.
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

/// Where the Tab key leads from `control`: a radio group is left as a whole and entered at its
/// selected button.
template <WindowTree Tree>
FocusTarget<typename Tree::Window> TabTargetOf(const Tree& tree, typename Tree::Window control,
                                               WalkDirection direction) {
    const auto start =
        tree.IsRadioButton(control) ? RadioGroupEnd(tree, control, direction) : control;
    return FocusTargetOf(tree, NextTabStop(tree, start, direction));
}

}  // namespace tallymere
