// The key paths that animations can name, each with how to read and write it in a layer's presented values.
#pragma once

#include "platform/layer/Layer.h"

#include <string_view>

namespace QVM_NAMESPACE {

struct LayerKeyPath {
    const char* name;
    AnimatableValue (*read)(const PresentedLayer& layer);
    // A value of the wrong kind changes nothing.
    void (*write)(PresentedLayer& layer, const AnimatableValue& value);
};

// Null for a key path that no layer has.
const LayerKeyPath* layerKeyPath(std::string_view name);

} // namespace QVM_NAMESPACE
