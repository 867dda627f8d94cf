// Windows as plain records, for tests of what is decided about them.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "layout/default_look.h"
#include "layout/window_tree.h"

namespace tallymere::testing_support {

/// Traits of a model window, to be combined.
enum ModelTraits : unsigned {
    Plain = 0,
    Stop = 1,
    Hidden = 2,
    Disabled = 4,
    Radio = 8,
    Checked = 16,
    Push = 32,
};

struct ModelWindow {
    std::string name;
    unsigned traits = Plain;
    ModelWindow* parent = nullptr;
    std::vector<ModelWindow*> children;
};

/// A dialog and its windows; also the Tree of the walks and the Buttons of the default look.
class WindowModel {
public:
    using Window = ModelWindow*;

    WindowModel() { windows_.push_back({"dialog", Plain, nullptr, {}}); }
    WindowModel(const WindowModel&) = delete;

    Window Dialog() { return &windows_.front(); }
    size_t Size() const { return windows_.size(); }
    Window At(size_t index) { return &windows_[index]; }

    Window Add(Window parent, const std::string& name, unsigned traits = Stop) {
        windows_.push_back({name, traits, parent, {}});
        parent->children.push_back(&windows_.back());
        return &windows_.back();
    }

    Window Parent(Window window) const { return window->parent; }
    Window FirstChild(Window window) const {
        return window->children.empty() ? nullptr : window->children.front();
    }
    Window LastChild(Window window) const {
        return window->children.empty() ? nullptr : window->children.back();
    }
    Window NextSibling(Window window) const { return Sibling(window, 1); }
    Window PreviousSibling(Window window) const { return Sibling(window, -1); }

    bool IsTabStop(Window window) const {
        return Has(window, Stop) && !Has(window, Disabled) && IsVisible(window);
    }
    bool IsVisible(Window window) const {
        return window == nullptr || (!Has(window, Hidden) && IsVisible(window->parent));
    }
    bool IsRadioButton(Window window) const { return Has(window, Radio); }
    bool IsChecked(Window window) const { return Has(window, Checked); }
    bool IsPushButton(Window window) const { return Has(window, Push); }

private:
    static bool Has(Window window, ModelTraits trait) { return (window->traits & trait) != 0; }

    static Window Sibling(Window window, int step) {
        const std::vector<ModelWindow*>& siblings = window->parent->children;
        for (size_t i = 0; i < siblings.size(); i++) {
            if (siblings[i] == window) {
                const size_t other = i + static_cast<size_t>(step);
                return other < siblings.size() ? siblings[other] : nullptr;
            }
        }
        return nullptr;
    }

    std::deque<ModelWindow> windows_;
};

static_assert(WindowTree<WindowModel> && PushButtons<WindowModel>);

}  // namespace tallymere::testing_support
