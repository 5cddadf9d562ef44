// A shallow well: what stands in front of it (the numeric meter) seems to be set into the surface. Main thread only.
#pragma once

#include "editor/surface/ThemedView.h"

#include <memory>

namespace QVM_NAMESPACE {

class ShapeLayer;

class QVMInsetShadowBox final : public ThemedView {
public:
    explicit QVMInsetShadowBox(const Rect& frame);

    void themeUpdated() override;
    void frameDidChange() override;

private:
    std::shared_ptr<ShapeLayer> rim_;
};

} // namespace QVM_NAMESPACE
