// What is drawn: a tree of layers, each with a box, a look and sublayers. A layer never draws itself; the renderer
// rasterises its look once and composes it wherever the presented values put it.
//
// Coordinates: a layer's position (of its anchor point) is in its superlayer's coordinates, and so are the directions
// of its anchor point and transform; its own path, text and sublayers are in its own. y grows downwards, or upwards in
// a layer made with YAxis::up. Text and pictures are upright in both. Main thread only.
#pragma once

#include "geometry/Geometry.h"
#include "platform/layer/LayerAnimations.h"
#include "platform/layer/LayerLook.h"
#include "platform/layer/LayerTree.h"
#include "platform/layer/PresentedLayer.h"

#include <memory>
#include <string>

namespace QVM_NAMESPACE {

enum class YAxis : unsigned char { down, up };

class Layer : public std::enable_shared_from_this<Layer> {
public:
    explicit Layer(YAxis axis = YAxis::down);
    virtual ~Layer();
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;

    // Short name for dumps, e.g. "readoutBulb".
    const std::string& name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }
    YAxis yAxis() const { return axis_; }

    // Geometry. Setting `frame` sets bounds' size and position; both glide inside an animated transaction.
    Rect frame() const;
    void setFrame(const Rect& frame);
    Rect bounds() const { return bounds_; }
    void setBounds(const Rect& bounds);
    Point position() const { return position_; }
    void setPosition(Point position);
    Point anchorPoint() const { return anchor_; } // fractions of the bounds, (0.5, 0.5) at first
    void setAnchorPoint(Point anchor);
    AffineTransform transform() const { return transform_; } // about the anchor point
    void setTransform(const AffineTransform& transform);

    double opacity() const { return opacity_; }
    virtual void setOpacity(double opacity);
    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);
    bool masksToBounds() const { return masksToBounds_; } // clips sublayers and itself to the (rounded) bounds
    void setMasksToBounds(bool masks);

    // What it is made of. Each belongs to the layer and lives as long.
    LayerTree& tree() { return tree_; }
    const LayerTree& tree() const { return tree_; }
    LayerLook& look() { return look_; }
    const LayerLook& look() const { return look_; }
    LayerAnimations& animations() { return animations_; }
    const LayerAnimations& animations() const { return animations_; }

    // What is shown at `time` (seconds on the run loop's clock).
    PresentedLayer presentation(double time) const;
    PresentedLayer presentation() const; // now

    // For the renderer. The picture that it shows: its look's, unless it draws one itself.
    virtual const std::shared_ptr<const Image>& contents() const { return look_.contents(); }
    // The box, in own coordinates, that the look may touch: bounds grown by shadow, stroke and the like.
    virtual Rect lookBounds(const PresentedLayer& presented) const;
    // Whether there is anything to rasterise (a layer may exist only to hold sublayers).
    virtual bool hasLook(const PresentedLayer& presented) const;
    // Whether the look is nothing but its bounds in the background colour, so that no pixels need be kept for it.
    virtual bool isPlainRectangle(const PresentedLayer& presented) const;
    // How much of it is seen at least while a layer that it is in is faint: for what stays legible where all around it
    // is dimmed.
    virtual double leastOpacity() const { return 0; }
    virtual const char* kind() const { return "Layer"; }
    // What the look shows beyond what every layer has, for dumps; empty when there is nothing to tell.
    virtual std::string lookDescription() const { return {}; }

protected:
    // The values that animations can change, as the layer has them.
    virtual PresentedLayer model() const;

private:
    std::string name_;
    YAxis axis_ = YAxis::down;
    Point position_, anchor_{0.5, 0.5};
    Rect bounds_;
    AffineTransform transform_;
    double opacity_ = 1;
    bool hidden_ = false, masksToBounds_ = false;
    LayerTree tree_{*this};
    LayerLook look_{*this};
    LayerAnimations animations_{*this};
};

} // namespace QVM_NAMESPACE
