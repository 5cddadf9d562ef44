// A shallow well: what stands in front of it (the numeric meter) seems to be set into the surface. Main thread only.
#pragma once

#include "platform/View.h"

namespace QVM_NAMESPACE {

class QVMInsetShadowBox final : public View {
public:
    explicit QVMInsetShadowBox(const Rect& frame);
};

} // namespace QVM_NAMESPACE
