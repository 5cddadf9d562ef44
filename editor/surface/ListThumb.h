// The thumb of a list that scrolls: how much of the list is seen, and where, at the right edge of the view; and what a
// press on that edge does. Hidden while all of the list is seen. Main thread only.
#pragma once

#include "platform/layer/Layer.h"

#include <memory>
#include <optional>

namespace QVM_NAMESPACE {

class ListThumb {
public:
    // Its layer stands above what the view has by then.
    explicit ListThumb(Layer& view);

    void setColor(Color color) { layer_->look().setBackgroundColor(color); }
    // For a list of a height of which this offset has gone above the view's top; points.
    void place(Size view, double listHeight, double offset);

    // A press in the view's coordinates: where it takes the list, or nothing for one beside the edge. A drag goes on
    // from where the thumb was grasped, until it is let go of.
    std::optional<double> press(Point at);
    std::optional<double> drag(Point at) const;
    void letGo() { grip_.reset(); }

private:
    double greatestOffset() const;

    std::shared_ptr<Layer> layer_;
    Size view_;
    double listHeight_ = 0;
    std::optional<double> grip_; // from the thumb's top to where it was grasped
};

} // namespace QVM_NAMESPACE
