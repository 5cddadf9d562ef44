// A remark that the editor makes over everything else, and takes back by itself after a few seconds: why a thing that
// was asked for did not happen. Main thread only.
#pragma once

#include "editor/surface/ThemedView.h"
#include "platform/runloop/DelayedCall.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>

namespace QVM_NAMESPACE {

class TextLayer;

class NoticeView final : public ThemedView {
public:
    static constexpr double shownSeconds = 4, fadeSeconds = 0.3; // the fade comes after
    static constexpr double furtherSeconds = 3;                  // for each line but the first

    // Hidden at first.
    NoticeView();

    // What happened, and why or what to do, in as many lines as it takes up to three. What was shown before goes at
    // once, and the time begins anew: more of it for more lines.
    void show(std::string what, std::string why);
    const std::string& what() const { return what_; }
    const std::string& why() const { return why_; }
    // Stands near the upper edge of a place in its superview, as wide as its text but never wider than the place.
    void placeIn(const Rect& place);

    void themeUpdated() override;
    // Takes no clicks.
    View* hitTest(Point) override { return nullptr; }

private:
    void layOut();

    static constexpr std::size_t mostLines = 3;

    std::shared_ptr<TextLayer> head_;
    std::array<std::shared_ptr<TextLayer>, mostLines> lines_;
    std::size_t shownLines_ = 1;
    std::string what_, why_;
    Rect place_;
    DelayedCall end_;
};

} // namespace QVM_NAMESPACE
