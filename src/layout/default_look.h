// Which push button has the look of the default button.
//
// A push button that has the focus has this look. While any other control has the focus, the
// dialog's own default button has it.
#pragma once

#include <concepts>
#include <cstdint>

namespace tallymere {

/// What the functions below ask about windows. The type Buttons::Window names a window; its
/// value-initialised value means no window, and is never passed to IsPushButton. See IsPushButton
/// in layout/control_kinds.h.
template <typename Buttons>
concept PushButtons = requires(const Buttons& buttons, typename Buttons::Window window) {
    requires std::regular<typename Buttons::Window>;
    { buttons.IsPushButton(window) } -> std::same_as<bool>;
};

template <typename Window>
struct LookChange {
    Window button;
    bool isDefault;  ///< it gets the look of the default button, else the plain look

    bool operator==(const LookChange&) const = default;
};

/// At most three changes of look. They are made in this order.
template <typename Window>
struct LookChanges {
    LookChange<Window> changes[3] = {};
    int32_t count = 0;

    void Add(Window button, bool isDefault) { changes[count++] = {button, isDefault}; }
    const LookChange<Window>* begin() const { return changes; }
    const LookChange<Window>* end() const { return changes + count; }
};

/// The changes when `control` takes the focus. `last` is the control that had the focus before, and
/// `defaultButton` is the dialog's default button. Both may be no window.
template <PushButtons Buttons>
LookChanges<typename Buttons::Window> LooksAfterFocus(const Buttons& buttons,
                                                      typename Buttons::Window control,
                                                      typename Buttons::Window last,
                                                      typename Buttons::Window defaultButton) {
    using Window = typename Buttons::Window;
    const auto isPushButton = [&buttons](Window window) {
        return window != Window{} && buttons.IsPushButton(window);
    };
    LookChanges<Window> changes;
    if (isPushButton(control)) {
        if (isPushButton(last)) {
            changes.Add(last, false);
        }
        if (defaultButton != control && isPushButton(defaultButton)) {
            changes.Add(defaultButton, false);
        }
        changes.Add(control, true);
        return changes;
    }
    if (last != defaultButton && isPushButton(last)) {
        changes.Add(last, false);
    }
    if (isPushButton(defaultButton)) {
        changes.Add(defaultButton, true);
    }
    return changes;
}

/// The changes when the push button `button` becomes the dialog's default button. `previous` is the
/// default button until then; it may be no window.
template <PushButtons Buttons>
LookChanges<typename Buttons::Window> LooksAfterNewDefault(const Buttons& buttons,
                                                           typename Buttons::Window previous,
                                                           typename Buttons::Window button) {
    using Window = typename Buttons::Window;
    LookChanges<Window> changes;
    if (previous != Window{} && buttons.IsPushButton(previous)) {
        changes.Add(previous, false);
    }
    changes.Add(button, true);
    return changes;
}

}  // namespace tallymere
