#include "platform/layer/LayerTree.h"

#include "platform/layer/Layer.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

LayerTree::~LayerTree() {
    for (const auto& sublayer : sublayers_)
        sublayer->tree().superlayer_ = nullptr;
}

void LayerTree::add(std::shared_ptr<Layer> sublayer) {
    insert(std::move(sublayer), sublayers_.size());
}

void LayerTree::insert(std::shared_ptr<Layer> sublayer, std::size_t index) {
    for (const Layer* above = &layer_; above; above = above->tree().superlayer_) {
        if (above == sublayer.get()) return;
    }
    if (!sublayer) return;
    sublayer->tree().removeFromSuperlayer();
    sublayer->tree().superlayer_ = &layer_;
    sublayer->look().inheritContentsScale(layer_.look().contentsScale());
    const auto at = sublayers_.begin() + static_cast<std::ptrdiff_t>(std::min(index, sublayers_.size()));
    sublayers_.insert(at, std::move(sublayer));
    didChange();
}

void LayerTree::removeFromSuperlayer() {
    if (!superlayer_) return;
    const auto alive = layer_.weak_from_this().lock(); // the superlayer may be its only owner
    LayerTree& above = std::exchange(superlayer_, nullptr)->tree();
    std::erase_if(above.sublayers_, [this](const auto& sublayer) { return sublayer.get() == &layer_; });
    if (LayerTreeObserver* const observer = above.rootObserver()) observer->layerTreeDidLoseLayer();
    above.didChange();
}

void LayerTree::didChange() const {
    if (LayerTreeObserver* const observer = rootObserver()) observer->layerTreeDidChange();
}

LayerTreeObserver* LayerTree::rootObserver() const {
    const LayerTree* root = this;
    while (root->superlayer_)
        root = &root->superlayer_->tree();
    return root->observer_;
}

} // namespace QVM_NAMESPACE
