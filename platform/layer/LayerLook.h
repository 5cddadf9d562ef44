// What every layer can show inside its bounds: background, border, shadow and a picture.
#pragma once

#include "geometry/Geometry.h"
#include "platform/surface/Color.h"
#include "platform/surface/Image.h"

#include <cstdint>
#include <memory>

namespace QVM_NAMESPACE {

class Layer;

// How contents fill the bounds. `center` and `topLeft` keep the image's own size in points (pixels / contentsScale).
enum class ContentsGravity : unsigned char { resize, resizeAspect, center, topLeft };

struct Shadow {
    Color color;
    double radius = 0; // blur, points
    Point offset;      // points, y down
    float opacity = 0; // 0: no shadow
    bool operator==(const Shadow&) const = default;
};

// Belongs to its layer and knows when it changes: setting what is set already changes nothing. Lengths are points.
// Main thread only.
class LayerLook {
public:
    explicit LayerLook(Layer& layer) : layer_(layer) {}
    LayerLook(const LayerLook&) = delete;
    LayerLook& operator=(const LayerLook&) = delete;

    // These two glide inside an animated transaction.
    Color backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(Color color);
    double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius);

    const std::shared_ptr<const Image>& backgroundPattern() const { return pattern_; } // tiled, 1 pixel = 1 point
    void setBackgroundPattern(std::shared_ptr<const Image> pattern);
    double borderWidth() const { return borderWidth_; } // inside the bounds
    Color borderColor() const { return borderColor_; }
    void setBorder(double width, Color color);
    bool hasBorder() const { return borderWidth_ > 0 && borderColor_.a > 0; }
    const Shadow& shadow() const { return shadow_; }
    void setShadow(const Shadow& shadow);

    // The picture that was set: a layer that draws one itself shows that (Layer::contents).
    const std::shared_ptr<const Image>& contents() const { return contents_; }
    ContentsGravity contentsGravity() const { return gravity_; }
    void setContents(std::shared_ptr<const Image> contents, ContentsGravity gravity = ContentsGravity::resize);
    // When set, the contents' alpha is filled with this colour (a template image).
    Color contentsTint() const { return tint_; } // alpha 0: not tinted
    void setContentsTint(Color tint);
    // Device pixels a point. A layer that was never given one takes its superlayer's when it is added.
    double contentsScale() const { return contentsScale_; }
    void setContentsScale(double scale);
    void inheritContentsScale(double scale);

    // For the renderer: grows whenever the rasterised look (not place, opacity or transform) changes. No two layers of
    // the process ever have the same.
    std::uint64_t version() const { return version_; }
    // Marks the look as changed, and with it the tree.
    void setNeedsDisplay();

private:
    template <class T>
    void store(T& member, T value);
    static std::uint64_t nextVersion();

    Layer& layer_;
    double cornerRadius_ = 0, borderWidth_ = 0, contentsScale_ = 1;
    bool hasOwnContentsScale_ = false;
    Color backgroundColor_, borderColor_, tint_;
    Shadow shadow_;
    std::shared_ptr<const Image> pattern_, contents_;
    ContentsGravity gravity_ = ContentsGravity::resize;
    std::uint64_t version_ = nextVersion();
};

} // namespace QVM_NAMESPACE
