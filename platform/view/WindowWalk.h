// A walk over views of a window that may leave it meanwhile. For the window's own sources.
//
// What a walk calls is the views' own code, which may take views out, begin another walk or destroy the window itself.
// So the window knows the walks under way and strikes out of them what leaves. Main thread; a walk lives on the stack
// of who walks, walks end in the opposite order of their beginnings.
#pragma once

#include "platform/view/Window.h"

#include <algorithm>
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
    // The window says that a view leaves it: neither it nor what is in it is called any more, by this walk or those
    // around it.
    void forget(const View& gone) {
        for (View*& view : views_) {
            if (view && view->isDescendantOf(gone)) view = nullptr;
        }
        if (outer_) outer_->forget(gone);
    }

private:
    Window& window_;
    const std::weak_ptr<const bool> alive_; // expired: the window was destroyed meanwhile
    std::vector<View*> views_;              // null where one left
    Walk* const outer_;                     // the walk that this one interrupts, or null
};

// Whether a hidden view, and with it all that it hides, is part of a tree.
enum class Include : unsigned char { all, visible };

// The view, then all that is in it.
inline void collect(View& view, Include include, std::vector<View*>& found) {
    if (include == Include::visible && view.isHidden()) return;
    found.push_back(&view);
    for (const auto& subview : view.subviews())
        collect(*subview, include, found);
}

// None for no root. The pointers are good until a view leaves: a walk is what keeps them so.
inline std::vector<View*> treeOf(View* root, Include include) {
    std::vector<View*> found;
    if (root) collect(*root, include, found);
    return found;
}

// Outermost first, `view` itself last.
inline std::vector<View*> withSuperviews(View* view) {
    std::vector<View*> path;
    for (; view; view = view->superview())
        path.push_back(view);
    std::reverse(path.begin(), path.end());
    return path;
}

} // namespace QVM_NAMESPACE
