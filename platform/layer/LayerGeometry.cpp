#include "platform/layer/LayerGeometry.h"

namespace QVM_NAMESPACE {

AffineTransform ownToBox(YAxis axis, const Rect& bounds) {
    if (axis == YAxis::down) return AffineTransform::translation(-bounds.x, -bounds.y);
    return {1, 0, 0, -1, -bounds.x, bounds.maxY()};
}

AffineTransform boxToSuperBox(const PresentedLayer& presented, Point anchor, YAxis superAxis, const Rect& superBounds) {
    const Rect frame = presented.frame(anchor);
    // The box is upright, so in a superlayer whose y points up its top is the frame's far end.
    const AffineTransform boxToSuper = superAxis == YAxis::down ? AffineTransform::translation(frame.x, frame.y)
                                                                : AffineTransform{1, 0, 0, -1, frame.x, frame.maxY()};
    const AffineTransform superToBox = ownToBox(superAxis, superBounds);
    if (presented.transform.isIdentity()) return boxToSuper.then(superToBox);
    const Point at = presented.position;
    return boxToSuper.then(AffineTransform::translation(-at.x, -at.y))
        .then(presented.transform)
        .then(AffineTransform::translation(at.x, at.y))
        .then(superToBox);
}

Rect contentsRect(const Layer& layer, const Rect& bounds) {
    const Image* image = layer.contents().get();
    if (!image || image->isEmpty()) return {};
    const double scale = layer.look().contentsScale() > 0 ? layer.look().contentsScale() : 1;
    const double width = image->width / scale, height = image->height / scale;
    const auto centred = [&](double w, double h) { return Rect{bounds.midX() - w / 2, bounds.midY() - h / 2, w, h}; };
    switch (layer.look().contentsGravity()) {
    case ContentsGravity::resize:
        return bounds;
    case ContentsGravity::center:
        return centred(width, height);
    case ContentsGravity::topLeft:
        return {bounds.x, layer.yAxis() == YAxis::down ? bounds.y : bounds.maxY() - height, width, height};
    case ContentsGravity::resizeAspect:
        break;
    }
    const double fit = std::min(bounds.width / width, bounds.height / height);
    return centred(width * fit, height * fit);
}

Rect touchedPixels(const Rect& deviceRect) {
    constexpr double noise = 1e-6; // pixels
    return deviceRect.insetBy(noise, noise).integral();
}

} // namespace QVM_NAMESPACE
