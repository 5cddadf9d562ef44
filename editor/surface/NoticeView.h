// A remark that the editor makes over everything else, and takes back by itself after a few seconds: why a thing that
// was asked for did not happen. Main thread only.
#pragma once

#include "editor/surface/ThemedView.h"
#include "platform/runloop/DelayedCall.h"

#include <memory>
#include <string>

namespace QVM_NAMESPACE {

class TextLayer;

class NoticeView final : public ThemedView {
public:
    static constexpr double shownSeconds = 4, fadeSeconds = 0.3; // the fade comes after

    // Hidden at first.
    NoticeView();

    // What happened, and a line that says why. What was shown before goes at once, and the time begins anew.
    void show(std::string what, std::string why);
    const std::string& why() const { return why_; }
    // Stands near the upper edge of a place in its superview, as wide as its text but never wider than the place.
    void placeIn(const Rect& place);

    void themeUpdated() override;
    // Takes no clicks.
    View* hitTest(Point) override { return nullptr; }

private:
    void layOut();

    std::shared_ptr<TextLayer> head_, line_;
    std::string what_, why_;
    Rect place_;
    DelayedCall end_;
};

} // namespace QVM_NAMESPACE
