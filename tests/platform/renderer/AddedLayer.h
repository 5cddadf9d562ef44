// A layer with something to draw, for the tests' trees.
#pragma once

#include "platform/layer/Layer.h"

#include <memory>

namespace QVM_NAMESPACE {

// Grey, on top of what the parent has.
inline std::shared_ptr<Layer> added(Layer& parent, const char* name, const Rect& frame) {
    auto layer = std::make_shared<Layer>();
    layer->setName(name);
    layer->setFrame(frame);
    layer->look().setBackgroundColor(Color::white(0.5f));
    parent.tree().add(layer);
    return layer;
}

} // namespace QVM_NAMESPACE
