// What is drawn: a tree of layers, each with a box, a look and sublayers. A layer never draws itself; the renderer
// rasterises its look once and composes it wherever the presented values put it.
//
// Coordinates: a layer's position (of its anchor point) is in its superlayer's coordinates, and so are the directions
// of its anchor point and transform; its own path, text and sublayers are in its own. y grows downwards, or upwards in
// a layer made with YAxis::up. Text and pictures are upright in both. Main thread only.
#pragma once

#include "geometry/Geometry.h"
#include "platform/layer/Animation.h"
#include "platform/surface/Color.h"
#include "platform/surface/Image.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

enum class YAxis : unsigned char { down, up };

// How contents fill the bounds. `center` and `topLeft` keep the image's own size in points (pixels / contentsScale).
enum class ContentsGravity : unsigned char { resize, resizeAspect, center, topLeft };

struct Shadow {
    Color color;
    double radius = 0; // blur, points
    Point offset;      // points, y down
    float opacity = 0; // 0: no shadow
    bool operator==(const Shadow&) const = default;
};

// The values of a layer that animations can change, as presented at one moment. Geometry as in Layer.
struct PresentedLayer {
    Point position;
    Rect bounds;
    double opacity = 1;
    AffineTransform transform;
    Color backgroundColor;
    double cornerRadius = 0;
    double lineDashPhase = 0;
    Rect frame(Point anchor) const { // before the transform
        return {position.x - anchor.x * bounds.width, position.y - anchor.y * bounds.height, bounds.width,
                bounds.height};
    }
};

// Told of every change below a root layer, so that a frame can be asked for. Borrowed by the root layer.
class LayerTreeObserver {
public:
    virtual ~LayerTreeObserver() = default;
    virtual void layerTreeDidChange() = 0;
    // A layer was taken out somewhere below the root; it may be on its way to another place in the tree.
    virtual void layerTreeDidLoseLayer() {}
};

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

    // Look.
    Color backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(Color color);
    const std::shared_ptr<const Image>& backgroundPattern() const { return pattern_; } // tiled, 1 pixel = 1 point
    void setBackgroundPattern(std::shared_ptr<const Image> pattern);
    double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius);
    double borderWidth() const { return borderWidth_; } // inside the bounds
    Color borderColor() const { return borderColor_; }
    void setBorder(double width, Color color);
    const Shadow& shadow() const { return shadow_; }
    void setShadow(const Shadow& shadow);
    virtual const std::shared_ptr<const Image>& contents() const { return contents_; }
    ContentsGravity contentsGravity() const { return gravity_; }
    void setContents(std::shared_ptr<const Image> contents, ContentsGravity gravity = ContentsGravity::resize);
    // When set, the contents' alpha is filled with this colour (a template image).
    Color contentsTint() const { return tint_; } // alpha 0: not tinted
    void setContentsTint(Color tint);
    // Device pixels a point. A layer that was never given one takes its superlayer's when it is added.
    double contentsScale() const { return contentsScale_; }
    virtual void setContentsScale(double scale);

    // Tree. A layer has at most one superlayer; adding it elsewhere takes it away from there first.
    const std::vector<std::shared_ptr<Layer>>& sublayers() const { return sublayers_; }
    Layer* superlayer() const { return superlayer_; }
    void addSublayer(std::shared_ptr<Layer> layer);
    void insertSublayer(std::shared_ptr<Layer> layer, std::size_t index);
    void removeFromSuperlayer();
    void setTreeObserver(LayerTreeObserver* observer) { observer_ = observer; } // on a root layer
    LayerTreeObserver* treeObserver() const { return observer_; }

    // Animations, by key. Adding under a key that is in use replaces it (its completion gets false).
    void addAnimation(BasicAnimation animation, const std::string& key);
    void removeAnimation(const std::string& key);
    void removeAllAnimations();
    const BasicAnimation* animationForKey(const std::string& key) const; // null when there is none
    bool hasAnimations() const { return !animations_.empty(); }
    // Whether an animation has still to end (one that stays for its end value has not). Null: on any key path.
    bool isAnimating(const char* keyPath = nullptr) const;
    // Whether one of them will end by itself.
    bool hasEndingAnimation() const;
    // What is shown at `time` (seconds on the run loop's clock).
    PresentedLayer presentation(double time) const;
    PresentedLayer presentation() const; // now
    // Ends what is over at `time` and runs completions. The renderer calls it once a frame.
    void finishAnimations(double time);

    // For the renderer: grows whenever the rasterised look (not place, opacity or transform) changes. No two layers of
    // the process ever have the same.
    std::uint64_t contentVersion() const { return contentVersion_; }
    // The box, in own coordinates, that the look may touch: bounds grown by shadow, stroke and the like.
    virtual Rect lookBounds(const PresentedLayer& presented) const;
    // Whether there is anything to rasterise (a layer may exist only to hold sublayers).
    virtual bool hasLook(const PresentedLayer& presented) const;
    // Whether the look is nothing but its bounds in the background colour, so that no pixels need be kept for it.
    virtual bool isPlainRectangle(const PresentedLayer& presented) const;
    virtual const char* kind() const { return "Layer"; }
    // What the look shows beyond what every layer has, for dumps; empty when there is nothing to tell.
    virtual std::string lookDescription() const { return {}; }
    // Marks the look as changed; marks the tree as changed.
    void setNeedsDisplay();

protected:
    void treeChanged(); // place, opacity or order changed
    // Adds an implicit animation from what is presented when a transaction asks for one; ends one that is under way
    // when the change is to be immediate.
    void willSet(const char* keyPath, const AnimatableValue& newValue);
    // Stores an animatable value; false, with nothing done, when it is there already and nothing glides elsewhere.
    template <class T>
    bool assign(const char* keyPath, T& member, const T& value) {
        if (member == value && !endsImplicitAnimation(keyPath)) return false;
        willSet(keyPath, value);
        member = value;
        return true;
    }

private:
    struct Running {
        std::string key;
        BasicAnimation animation;
        double addedAt = 0;
        bool isImplicit = false;
        bool isOver = false; // its completion was called; it stays for its end value
    };
    PresentedLayer model() const;
    bool endsImplicitAnimation(const char* keyPath) const;
    std::vector<Running>::iterator findAnimation(const std::string& key);
    void start(BasicAnimation animation, const std::string& key, bool isImplicit);
    void structureChanged();
    void inheritContentsScale(double scale);
    static std::uint64_t nextVersion();

    std::string name_;
    YAxis axis_ = YAxis::down;
    Point position_, anchor_{0.5, 0.5};
    Rect bounds_;
    AffineTransform transform_;
    double opacity_ = 1, cornerRadius_ = 0, borderWidth_ = 0, contentsScale_ = 1;
    bool hidden_ = false, masksToBounds_ = false, hasOwnContentsScale_ = false;
    Color backgroundColor_, borderColor_, tint_;
    Shadow shadow_;
    std::shared_ptr<const Image> pattern_, contents_;
    ContentsGravity gravity_ = ContentsGravity::resize;
    std::vector<std::shared_ptr<Layer>> sublayers_;
    Layer* superlayer_ = nullptr;
    LayerTreeObserver* observer_ = nullptr;
    std::vector<Running> animations_; // in the order in which they were added and are applied
    std::uint64_t contentVersion_ = nextVersion();

protected:
    // The model's dash phase lives here so that presentation() is one function; only ShapeLayer sets it.
    double lineDashPhase_ = 0;
};

} // namespace QVM_NAMESPACE
