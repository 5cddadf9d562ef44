#include "platform/layer/ShapeLayer.h"

#include <sstream>
#include <utility>

namespace QVM_NAMESPACE {

void ShapeLayer::setPath(Path path) {
    if (path == path_) return;
    path_ = std::move(path);
    look().setNeedsDisplay();
}

void ShapeLayer::setFillColor(Color color) {
    if (color == fillColor_) return;
    fillColor_ = color;
    look().setNeedsDisplay();
}

void ShapeLayer::setStrokeColor(Color color) {
    if (color == strokeColor_) return;
    strokeColor_ = color;
    look().setNeedsDisplay();
}

void ShapeLayer::setLineWidth(double width) {
    if (width == lineWidth_) return;
    lineWidth_ = width;
    look().setNeedsDisplay();
}

void ShapeLayer::setLineDashPattern(std::vector<double> pattern) {
    if (pattern == dashes_) return;
    dashes_ = std::move(pattern);
    look().setNeedsDisplay();
}

void ShapeLayer::setLineDashPhase(double phase) {
    if (phase == lineDashPhase_) return;
    lineDashPhase_ = phase;
    look().setNeedsDisplay();
}

void ShapeLayer::setLineStyle(LineCap cap, LineJoin join) {
    if (cap == cap_ && join == join_) return;
    cap_ = cap;
    join_ = join;
    look().setNeedsDisplay();
}

PresentedLayer ShapeLayer::model() const {
    PresentedLayer own = Layer::model();
    own.lineDashPhase = lineDashPhase_;
    return own;
}

bool ShapeLayer::hasLook(const PresentedLayer& presented) const {
    return Layer::hasLook(presented) || isFilled() || isStroked();
}

bool ShapeLayer::isPlainRectangle(const PresentedLayer& presented) const {
    return Layer::isPlainRectangle(presented) && !isFilled() && !isStroked();
}

Rect ShapeLayer::lookBounds(const PresentedLayer& presented) const {
    // The shadow is the whole look's, so the path counts like the bounds do.
    PresentedLayer grown = presented;
    if (isFilled() || isStroked()) {
        const double corner = join_ == LineJoin::miter ? miterLimit : cap_ == LineCap::square ? 1.5 : 1;
        const double reach = isStroked() ? lineWidth_ / 2 * corner : 0;
        const Rect outline = path_.bounds().insetBy(-reach, -reach);
        grown.bounds = Layer::hasLook(presented) ? presented.bounds.unionWith(outline) : outline;
    }
    return Layer::lookBounds(grown);
}

std::string ShapeLayer::lookDescription() const {
    if (path_.isEmpty()) return {};
    std::ostringstream text;
    const Rect box = path_.bounds();
    text << "path " << path_.elements().size() << " (" << box.x << ' ' << box.y << ' ' << box.width << ' ' << box.height
         << ')';
    if (isStroked()) text << " line " << lineWidth_;
    for (std::size_t i = 0; i < dashes_.size(); ++i)
        text << (i == 0 ? " dashes " : ",") << dashes_[i];
    return text.str();
}

} // namespace QVM_NAMESPACE
