// The ends of a list that scrolls, drawn as a fade into its ground where there is more beyond. Main thread only.
#pragma once

#include "platform/layer/Layer.h"

#include <memory>

namespace QVM_NAMESPACE {

class EdgeFades {
public:
    static constexpr double height = 18; // points

    // Above the sublayers that `parent` has now, over the ends of its `bounds`.
    EdgeFades(Layer& parent, const Rect& bounds);

    // What the list stands on.
    void setGround(Color color);
    // How much of the list is beyond either end, points: a fade comes with the first few.
    void update(double above, double below);

    const std::shared_ptr<Layer>& top() const { return top_; }
    const std::shared_ptr<Layer>& bottom() const { return bottom_; }

private:
    std::shared_ptr<Layer> top_, bottom_;
};

} // namespace QVM_NAMESPACE
