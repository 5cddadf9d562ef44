// A walk over views of a window that may leave it meanwhile. For the window's own sources.
#pragma once

#include "platform/view/Window.h"

#include <memory>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

// Calls each view in turn but those that left the window after the walk began.
class Window::Walk {
public:
    Walk(Window& window, std::vector<View*> views)
        : window_(window), alive_(window.alive_), views_(std::move(views)), outer_(std::exchange(window.walks_, this)) {
    }
    ~Walk() {
        if (!alive_.expired()) window_.walks_ = outer_;
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    // Until one answers true; whether one did.
    template <class Function>
    bool until(Function&& function) {
        for (std::size_t i = 0; i < views_.size() && !alive_.expired(); ++i) {
            if (views_[i] && function(*views_[i])) return true;
        }
        return false;
    }
    void forget(const View& gone) {
        for (View*& view : views_) {
            if (view && view->isDescendantOf(gone)) view = nullptr;
        }
        if (outer_) outer_->forget(gone);
    }

private:
    Window& window_;
    const std::weak_ptr<const bool> alive_;
    std::vector<View*> views_;
    Walk* const outer_;
};

enum class Include : unsigned char { all, visible };

// The view, then all that is in it.
inline void collect(View& view, Include include, std::vector<View*>& found) {
    if (include == Include::visible && view.isHidden()) return;
    found.push_back(&view);
    for (const auto& subview : view.subviews())
        collect(*subview, include, found);
}

inline std::vector<View*> treeOf(View* root, Include include) {
    std::vector<View*> found;
    if (root) collect(*root, include, found);
    return found;
}

} // namespace QVM_NAMESPACE
