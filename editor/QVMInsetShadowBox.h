// A shallow well: what stands in front of it (the numeric meter) seems to be set into the surface. Main thread only.
#pragma once

#include "platform/View.h"

#include <memory>

namespace QVM_NAMESPACE {

class ShapeLayer;

class QVMInsetShadowBox final : public View {
public:
    explicit QVMInsetShadowBox(const Rect& frame);

    void frameDidChange() override;

private:
    std::shared_ptr<ShapeLayer> rim_;
};

} // namespace QVM_NAMESPACE
