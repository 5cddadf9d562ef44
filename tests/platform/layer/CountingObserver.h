// Counts what a layer tree tells of itself.
#pragma once

#include "platform/layer/LayerTree.h"

namespace QVM_NAMESPACE {

struct CountingObserver : LayerTreeObserver {
    int changes = 0, losses = 0;
    void layerTreeDidChange() override { ++changes; }
    void layerTreeDidLoseLayer() override { ++losses; }
};

} // namespace QVM_NAMESPACE
