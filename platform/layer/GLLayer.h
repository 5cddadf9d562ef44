// A layer whose look is drawn through a drawing surface, in the pixels of its contents scale.
//
// Nothing is drawn until somebody looks: the renderer asks for the contents when it rasterises the layer, so any number
// of setNeedsDisplay() calls make one picture a frame, and none while the layer is hidden. Main thread only.
#pragma once

#include "platform/layer/Layer.h"
#include "platform/surface/DrawingSurface.h"

#include <cstdint>
#include <memory>

namespace QVM_NAMESPACE {

class GLLayer : public Layer {
public:
    explicit GLLayer(YAxis axis = YAxis::down);
    ~GLLayer() override;

    // The picture, drawn now if the layer needs display or has changed its size. What it points to is valid until the
    // layer is drawn again; who holds the pointer keeps that picture.
    const std::shared_ptr<const Image>& contents() const override;
    // No larger than what is drawn, so that a small change in a large layer costs little.
    Rect lookBounds(const PresentedLayer& presented) const override;
    bool hasLook(const PresentedLayer& presented) const override { return !presented.bounds.isEmpty(); }
    bool isPlainRectangle(const PresentedLayer&) const override { return false; }
    const char* kind() const override { return "GLLayer"; }

protected:
    // Draws what is to be seen. The surface is transparent, as large as the bounds, at the contents scale, with a
    // projection in points and y upwards. Called again at once, on another surface, if the first one breaks down.
    virtual void draw(DrawingSurface& surface) const = 0;
    // The surface to draw on, when the first picture is wanted.
    virtual std::unique_ptr<DrawingSurface> makeSurface() const;

private:
    void render() const;
    // On the surface, into the picture; false when the surface broke down.
    bool drawPicture() const;

    // The picture is the look's, kept: making it changes nothing that can be seen of the layer.
    mutable std::unique_ptr<DrawingSurface> surface_;
    mutable std::shared_ptr<Image> picture_;
    mutable std::shared_ptr<const Image> shown_; // picture_ again
    mutable std::uint64_t drawnVersion_ = 0;     // of the look that the picture shows; 0: none
    mutable Size drawnSize_;                     // points
    mutable Rect painted_;                       // pixels of the picture, y down: the rest is transparent
};

} // namespace QVM_NAMESPACE
