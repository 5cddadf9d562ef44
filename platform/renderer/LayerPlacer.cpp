#include "platform/renderer/LayerPlacer.h"

#include "platform/layer/LayerGeometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

using Step = Placement::Step;
constexpr double dashSteps = 4; // a pixel

double toWholePixel(double x) {
    return std::floor(x + 0.5);
}

// Of something `length` pixels long that starts at `start`: whole, and never nothing. Boxes end where their neighbour
// starts; lines have no neighbour to meet, but other lines to look like: their thickness is the same wherever they are.
double wholeLength(double start, double length) {
    constexpr double thickestLine = 3; // pixels
    if (!(length > 0)) return 0;
    const double whole =
        length < thickestLine ? toWholePixel(length) : toWholePixel(start + length) - toWholePixel(start);
    return std::max(1.0, whole);
}

} // namespace

struct LayerPlacer::Space {
    AffineTransform toDevice; // from the layer's box, points, to device pixels
    bool isRigid = true;      // neither scaled nor turned: the box starts at a whole pixel
    Point start;              // when rigid, where the box would start were it not for that
    YAxis axis = YAxis::down; // of the layer
    Rect bounds;              // of the layer, own coordinates
    Rect clip;                // device pixels, whole: nothing shows beyond
};

struct LayerPlacer::Legible {
    const Layer* layer;
    PresentedLayer presented;
    Space outer;
    double opacity;
};

LayerPlacer::LayerPlacer(RasterCache& cache, std::vector<Placement>& placements, std::vector<std::string>& rasterised)
    : cache_(cache), placements_(placements), rasterised_(rasterised) {}

LayerPlacer::~LayerPlacer() = default;

Rect LayerPlacer::place(const Layer& root, double time) {
    time_ = time;
    const PresentedLayer presented = root.presentation(time);
    Space window;
    window.toDevice = AffineTransform::scale(cache_.scale(), cache_.scale());
    const AffineTransform toDevice =
        boxToSuperBox(presented, root.anchorPoint(), window.axis, window.bounds).then(window.toDevice);
    window.clip = touchedPixels(toDevice.apply(Rect{0, 0, presented.bounds.width, presented.bounds.height}));
    visit(root, window);
    linkPushes();
    return window.clip;
}

// Places a layer with all that is in it and returns the pixels that can be touched.
Rect LayerPlacer::visit(const Layer& layer, const Space& outer) {
    if (layer.isHidden()) return {};
    const PresentedLayer presented = layer.presentation(time_);
    const double opacity = std::min(presented.opacity, 1.0);
    if (!(opacity > 0)) return {};
    const double least = groupOpacity_ < 1 ? layer.leastOpacity() : 0;
    if (least == 0) return visitShown(layer, presented, outer, opacity);
    legible_.push_back({&layer, presented, outer, std::max(groupOpacity_ * opacity, least)});
    return {};
}

Rect LayerPlacer::placeLegible() {
    Rect touched;
    for (const Legible& each : std::exchange(legible_, {}))
        touched = touched.unionWith(visitShown(*each.layer, each.presented, each.outer, each.opacity));
    return touched;
}

Rect LayerPlacer::visitShown(const Layer& layer, PresentedLayer presented, const Space& outer, double opacity) {
    // Dashes march by steps too small to be seen, so that not every frame needs a raster of its own.
    presented.lineDashPhase =
        toWholePixel(presented.lineDashPhase * dashSteps * cache_.scale()) / (dashSteps * cache_.scale());
    const AffineTransform toOuter = boxToSuperBox(presented, layer.anchorPoint(), outer.axis, outer.bounds);
    Space own{toOuter.then(outer.toDevice),
              outer.isRigid && toOuter.isTranslation(),
              {},
              layer.yAxis(),
              presented.bounds,
              outer.clip};
    if (own.toDevice.a * own.toDevice.d == own.toDevice.b * own.toDevice.c) return {}; // flat: it has no inside
    own.start = {own.toDevice.tx, own.toDevice.ty};
    if (own.isRigid) {
        // Sublayers start from here, so that what belongs together moves by the same pixels.
        own.toDevice.tx = toWholePixel(own.start.x);
        own.toDevice.ty = toWholePixel(own.start.y);
    }

    const std::size_t first = placements_.size(), leavesBefore = leaves_;
    const bool isGroup = opacity < 1 && !layer.tree().sublayers().empty();
    const double groupOpacity = groupOpacity_;
    if (isGroup) {
        Placement& group = placements_.emplace_back();
        group.step = Step::pushGroup;
        group.layer = &layer;
        group.opacity = opacity;
        groupOpacity_ *= opacity;
    }
    const std::size_t inner = placements_.size();
    if (layer.masksToBounds()) {
        pushClip(layer, presented, own);
        own.clip = own.clip.intersectionWith(placements_.back().bounds);
    }
    Rect touched = placeLook(layer, presented, own, isGroup ? 1 : opacity);
    for (const auto& sublayer : layer.tree().sublayers())
        touched = touched.unionWith(visit(*sublayer, own));
    if (layer.masksToBounds()) closePush(inner, leavesBefore, touched);
    if (isGroup) closePush(first, leavesBefore, touched);
    groupOpacity_ = groupOpacity;
    return groupOpacity_ == 1 && !legible_.empty() ? touched.unionWith(placeLegible()) : touched;
}

Rect LayerPlacer::placeLook(const Layer& layer, const PresentedLayer& presented, const Space& own, double opacity) {
    if (!layer.hasLook(presented)) return {};
    Placement leaf;
    leaf.layer = &layer;
    const AffineTransform& toDevice = own.toDevice;
    const Rect box{0, 0, presented.bounds.width, presented.bounds.height};
    if (layer.isPlainRectangle(presented) && toDevice.b == 0 && toDevice.c == 0) {
        leaf.step = Step::fill;
        leaf.rect = toDevice.apply(box);
        if (own.isRigid) {
            leaf.rect.width = wholeLength(own.start.x, leaf.rect.width);
            leaf.rect.height = wholeLength(own.start.y, leaf.rect.height);
        }
        leaf.bounds = touchedPixels(leaf.rect).intersectionWith(own.clip);
        leaf.color = presented.backgroundColor.withAlpha(presented.backgroundColor.a * static_cast<float>(opacity));
    } else {
        RasterCache::Entry& entry = cache_.find(layer, presented);
        leaf.transform = AffineTransform::translation(entry.pixels.x, entry.pixels.y);
        const double points = 1 / cache_.scale();
        leaf.transform = own.isRigid ? leaf.transform.then(AffineTransform::translation(toDevice.tx, toDevice.ty))
                                     : leaf.transform.then(AffineTransform::scale(points, points)).then(toDevice);
        const Rect pixels = touchedPixels(leaf.transform.apply(Rect{0, 0, entry.pixels.width, entry.pixels.height}));
        // Resampling touches the pixels next to the edge.
        leaf.bounds = (own.isRigid ? pixels : pixels.insetBy(-1, -1)).intersectionWith(own.clip);
        leaf.opacity = opacity;
        if (entry.pixels.isEmpty() || leaf.bounds.isEmpty()) return {};
        if (cache_.rasterise(entry, layer, presented))
            rasterised_.push_back(layer.name().empty() ? layer.kind() : layer.name());
        leaf.raster = entry.raster;
        if (!leaf.raster) return {};
    }
    if (leaf.bounds.isEmpty()) return {};
    ++leaves_;
    placements_.push_back(std::move(leaf));
    return placements_.back().bounds;
}

// The clip's bounds are its own until it is closed.
void LayerPlacer::pushClip(const Layer& layer, const PresentedLayer& presented, const Space& own) {
    Placement& clip = placements_.emplace_back();
    clip.step = Step::pushClip;
    clip.layer = &layer;
    clip.rect = {0, 0, presented.bounds.width, presented.bounds.height};
    clip.cornerRadius = presented.cornerRadius;
    clip.transform = own.toDevice;
    if (own.isRigid) {
        clip.rect = {own.toDevice.tx, own.toDevice.ty, wholeLength(own.start.x, clip.rect.width * cache_.scale()),
                     wholeLength(own.start.y, clip.rect.height * cache_.scale())};
        clip.cornerRadius *= cache_.scale();
        clip.transform = {};
    }
    clip.bounds = touchedPixels(clip.transform.apply(clip.rect));
}

// Ends a push with a pop, or takes the push back when there is nothing in it or, for a group, one thing only, which
// then takes the group's opacity itself.
void LayerPlacer::closePush(std::size_t push, std::size_t leavesBefore, const Rect& touched) {
    const bool isGroup = placements_[push].step == Step::pushGroup;
    const std::size_t inside = leaves_ - leavesBefore;
    if (inside == 0 || (isGroup && inside == 1)) {
        const auto at = placements_.begin() + static_cast<std::ptrdiff_t>(push);
        const double opacity = at->opacity;
        const auto rest = placements_.erase(at);
        const auto only = std::find_if(rest, placements_.end(), [](const Placement& p) { return p.isLeaf(); });
        if (only == placements_.end()) return;
        only->opacity *= opacity;
        only->color.a *= only->step == Step::fill ? static_cast<float>(opacity) : 1;
        return;
    }
    placements_[push].bounds = touched;
    Placement& pop = placements_.emplace_back();
    pop.step = isGroup ? Step::popGroup : Step::popClip;
    pop.layer = placements_[push].layer;
    pop.bounds = touched;
}

void LayerPlacer::linkPushes() {
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < placements_.size(); ++i) {
        if (placements_[i].isPush()) open.push_back(i);
        if (placements_[i].isPush() || placements_[i].isLeaf()) continue;
        placements_[open.back()].pop = i;
        open.pop_back();
    }
}

} // namespace QVM_NAMESPACE
