#include "platform/renderer/LayerRenderer.h"

#include "platform/renderer/LayerPlacer.h"
#include "platform/renderer/PlacementDiff.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

using Step = Placement::Step;
bool isVisibleAt(const Layer& layer, double time) {
    if (layer.isHidden()) return false;
    if (layer.animations().isEmpty()) return layer.opacity() > 0;
    return layer.presentation(time).opacity > 0 || layer.animations().isRunning("opacity");
}

// A repeating animation of what can't be seen needs no frames; one that ends needs them for its end.
bool needsFrames(const Layer& layer, double time, bool isOuterVisible) {
    const bool isVisible = isOuterVisible && isVisibleAt(layer, time);
    if (isVisible ? layer.animations().isRunning() : layer.animations().hasEnding()) return true;
    return std::any_of(layer.tree().sublayers().begin(), layer.tree().sublayers().end(),
                       [&](const auto& sublayer) { return needsFrames(*sublayer, time, isVisible); });
}

void collectAnimating(const std::shared_ptr<Layer>& layer, std::vector<std::shared_ptr<Layer>>& found) {
    if (layer->animations().isRunning()) found.push_back(layer);
    for (const auto& sublayer : layer->tree().sublayers())
        collectAnimating(sublayer, found);
}

} // namespace

LayerRenderer::LayerRenderer(RasterBackend& backend) : cache_(backend) {}

LayerRenderer::~LayerRenderer() {
    if (root_) root_->tree().setObserver(nullptr);
}

void LayerRenderer::setRootLayer(std::shared_ptr<Layer> root) {
    if (root_) root_->tree().setObserver(nullptr);
    root_ = std::move(root);
    cache_.keepOnly(root_.get());
    everythingDamaged_ = true;
    if (!root_) return;
    root_->tree().setObserver(this);
    layerTreeDidChange();
}

void LayerRenderer::setScale(double devicePixelsPerPoint) {
    if (devicePixelsPerPoint == scale()) return;
    cache_.setScale(devicePixelsPerPoint);
    everythingDamaged_ = true;
    layerTreeDidChange();
}

void LayerRenderer::layerTreeDidChange() {
    if (std::exchange(changed_, true)) return;
    if (changeHandler_) changeHandler_();
}

const RenderStatistics& LayerRenderer::update(double time) {
    statistics_.rasterised.clear();
    statistics_.damage.clear();
    if (!changed_ && !animating_ && !everythingDamaged_) return statistics_;

    changed_ = true; // what completions change is part of this update
    finishAnimations(time);
    changed_ = false;
    if (std::exchange(lostLayers_, false)) cache_.keepOnly(root_.get());

    const Rect rootBefore = rootPixels_;
    previous_.swap(placements_);
    placements_.clear();
    rootPixels_ = root_ ? LayerPlacer(cache_, placements_, statistics_.rasterised).place(*root_, time) : Rect();
    DamageRegion damage;
    if (std::exchange(everythingDamaged_, false) || rootBefore != rootPixels_) {
        damage.add(rootBefore.unionWith(rootPixels_));
    } else {
        addDifferences(previous_, placements_, damage);
    }
    previous_.clear();
    statistics_.damage = damage.rects();
    animating_ = root_ && needsFrames(*root_, time, true);
    return statistics_;
}

void LayerRenderer::finishAnimations(double time) {
    if (!root_) return;
    std::vector<std::shared_ptr<Layer>> animated; // completions may change the tree
    collectAnimating(root_, animated);
    for (const auto& layer : animated)
        layer->animations().finish(time);
}

void LayerRenderer::compose(RasterTarget& target, const Rect& deviceClip) const {
    for (std::size_t i = 0; i < placements_.size(); ++i) {
        const Placement& p = placements_[i];
        const bool isPop = !p.isLeaf() && !p.isPush();
        if (!isPop && !p.bounds.intersects(deviceClip)) {
            if (p.isPush()) i = p.pop; // what is inside touches no more than the push does
            continue;
        }
        switch (p.step) {
        case Step::draw:
            target.draw(*p.raster, p.transform, p.opacity);
            break;
        case Step::fill:
            target.fill(p.rect, p.color);
            break;
        case Step::pushClip:
            target.pushClip(p.rect, p.cornerRadius, p.transform);
            break;
        case Step::popClip:
            target.popClip();
            break;
        case Step::pushGroup:
            target.pushGroup(p.bounds, p.opacity);
            break;
        case Step::popGroup:
            target.popGroup();
            break;
        }
    }
}

} // namespace QVM_NAMESPACE
