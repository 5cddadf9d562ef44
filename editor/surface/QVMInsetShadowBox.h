// A shallow well: what stands in front of it (the numeric meter) seems to be set into the surface. Main thread only.
#pragma once

#include "editor/surface/ThemedView.h"

#include <memory>

namespace QVM_NAMESPACE {

class ShapeLayer;

class QVMInsetShadowBox final : public ThemedView {
public:
    // Stands below what it is the well of, as a view beside it: `frame` is in the coordinates of the view around both.
    explicit QVMInsetShadowBox(const Rect& frame);

    void themeUpdated() override;
    void frameDidChange() override;

private:
    std::shared_ptr<ShapeLayer> rim_; // outside of what is seen; its shadow is
};

} // namespace QVM_NAMESPACE
