// A layer's place in the tree: what it is in, what is in it, and who hears of a change below the root.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class Layer;

// Told of every change below a root layer, so that a frame can be asked for. Borrowed by the root layer.
class LayerTreeObserver {
public:
    virtual ~LayerTreeObserver() = default;
    virtual void layerTreeDidChange() = 0;
    // A layer was taken out somewhere below the root; it may be on its way to another place in the tree.
    virtual void layerTreeDidLoseLayer() {}
};

// Belongs to its layer, and owns the sublayers together with whoever else holds them. A layer has at most one
// superlayer. Main thread only.
class LayerTree {
public:
    explicit LayerTree(Layer& layer) : layer_(layer) {}
    ~LayerTree(); // what was in it is in no layer then
    LayerTree(const LayerTree&) = delete;
    LayerTree& operator=(const LayerTree&) = delete;

    Layer* superlayer() const { return superlayer_; }
    // Lowest first.
    const std::vector<std::shared_ptr<Layer>>& sublayers() const { return sublayers_; }
    // Above all others, or below the one at the index. Takes the layer away from where it is first; null, the layer
    // itself and what it is in are left alone.
    void add(std::shared_ptr<Layer> sublayer);
    void insert(std::shared_ptr<Layer> sublayer, std::size_t index);
    void removeFromSuperlayer();

    // On a root layer.
    void setObserver(LayerTreeObserver* observer) { observer_ = observer; }
    LayerTreeObserver* observer() const { return observer_; }
    // Something of the layer is to be seen in another way: tells the root's observer.
    void didChange() const;

private:
    LayerTreeObserver* rootObserver() const;

    Layer& layer_;
    Layer* superlayer_ = nullptr;
    std::vector<std::shared_ptr<Layer>> sublayers_;
    LayerTreeObserver* observer_ = nullptr;
};

} // namespace QVM_NAMESPACE
