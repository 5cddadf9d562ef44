#include "toolkit/LookPainter.h"

#include "platform/layer/LayerGeometry.h"
#include "toolkit/Conversions.h"
#include "toolkit/Resampling.h"
#include "toolkit/ShadowBlur.h"
#include "toolkit/Stroke.h"
#include "toolkit/TextSetting.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

int wholePixels(double length) {
    return static_cast<int>(std::lround(length));
}

// A box has at least one pixel each way, unless it has no size at all.
juce::Rectangle<int> boxPixels(const Rect& pixels) {
    juce::Rectangle<int> box = toNearestPixels(pixels);
    if (pixels.width > 0) box.setWidth(std::max(1, box.getWidth()));
    if (pixels.height > 0) box.setHeight(std::max(1, box.getHeight()));
    return box;
}

double lineStart(TextAlignment alignment, double boxWidth, double lineWidth) {
    switch (alignment) {
    case TextAlignment::left:
        return 0;
    case TextAlignment::right:
        return boxWidth - lineWidth;
    case TextAlignment::center:
        break;
    }
    return (boxWidth - lineWidth) / 2;
}

// The baseline, points below the top of a box.
double baselineOf(TextPlacement placement, double boxHeight, const SetLine& line) {
    switch (placement) {
    case TextPlacement::top:
        return line.ascent;
    case TextPlacement::bottom:
        return boxHeight - line.descent;
    case TextPlacement::middle:
        break;
    }
    return (boxHeight + line.capHeight) / 2;
}

void paintLine(juce::Graphics& g, const SetLine& line, juce::Point<double> start, double scale) {
    // One fill for each stretch of one colour.
    juce::Path outlines;
    const auto fill = [&](Color color) {
        g.setColour(toToolkit(color));
        g.fillPath(outlines);
        outlines.clear();
    };
    for (std::size_t i = 0; i < line.glyphs.size(); ++i) {
        const SetGlyph& set = line.glyphs[i];
        if (i > 0 && !(line.glyphs[i - 1].color == set.color)) fill(line.glyphs[i - 1].color);
        const double size = set.pointSize * scale, raised = std::round(set.baselineOffset * scale);
        outlines.addPath(flattened(set.glyph->outline, juce::AffineTransform::scale(static_cast<float>(size))
                                                           .translated(static_cast<float>(start.x + set.x * scale),
                                                                       static_cast<float>(start.y - raised))));
    }
    if (!line.glyphs.empty()) fill(line.glyphs.back().color);
}

juce::Image filledWith(const juce::Image& shape, Color color) {
    juce::Image out = makeCanvas(shape.getWidth(), shape.getHeight());
    juce::Graphics g(out);
    g.setColour(toToolkit(color));
    g.drawImageAt(shape, 0, 0, true);
    return out;
}

} // namespace

LookPainter::LookPainter(const Layer& layer, const PresentedLayer& presented, const Rect& lookBounds,
                         double pixelsPerPoint, FaceLibrary& faces)
    : layer_(layer), presented_(presented), scale_(pixelsPerPoint), faces_(faces),
      size_(wholePixels(lookBounds.width * scale_), wholePixels(lookBounds.height * scale_)),
      toPixels_(ownToBox(layer.yAxis(), lookBounds).then(AffineTransform::scale(scale_, scale_))),
      box_(boxPixels(toPixels_.apply(presented.bounds))) {}

juce::Image LookPainter::paint() const {
    juce::Image look = makeCanvas(size_.x, size_.y);
    {
        juce::Graphics g(look);
        paintLook(g);
    }
    const Shadow& shadow = layer_.look().shadow();
    const Color color = shadow.color.withAlpha(shadow.color.a * std::min(shadow.opacity, 1.0f));
    if (!(color.a > 0)) return look;
    const juce::Point<int> offset(wholePixels(shadow.offset.x * scale_), wholePixels(shadow.offset.y * scale_));
    juce::Image all = shadowOf(look, shadow.radius * scale_, offset, color);
    juce::Graphics(all).drawImageAt(look, 0, 0);
    return all;
}

void LookPainter::paintLook(juce::Graphics& g) const {
    paintBackground(g);
    paintContents(g);
    if (const auto* shape = dynamic_cast<const ShapeLayer*>(&layer_)) paintShape(g, *shape);
    if (const auto* text = dynamic_cast<const TextLayer*>(&layer_)) paintText(g, *text);
    paintBorder(g);
}

juce::Path LookPainter::roundOutline(double insetPixels) const {
    const auto inset = static_cast<float>(insetPixels);
    const juce::Rectangle<float> box = box_.toFloat().reduced(inset);
    const float limit = std::min(box.getWidth(), box.getHeight()) / 2;
    const float radius = std::min(static_cast<float>(presented_.cornerRadius * scale_) - inset, limit);
    juce::Path outline;
    if (radius > 0) {
        outline.addRoundedRectangle(box, radius);
    } else {
        outline.addRectangle(box);
    }
    return flattened(outline);
}

void LookPainter::fillBounds(juce::Graphics& g) const {
    if (isRound()) {
        g.fillPath(roundOutline(0));
    } else {
        g.fillRect(box_); // a path's last pixels are not quite full
    }
}

void LookPainter::paintBackground(juce::Graphics& g) const {
    if (presented_.backgroundColor.a > 0) {
        g.setColour(toToolkit(presented_.backgroundColor));
        fillBounds(g);
    }
    const Image* pattern = layer_.look().backgroundPattern().get();
    if (!pattern || pattern->isEmpty()) return;
    const auto tileSize = [this](int pixels) { return std::max(1, wholePixels(pixels * scale_)); };
    const juce::Image tile = toToolkit(resampled(*pattern, tileSize(pattern->width), tileSize(pattern->height)));
    g.setTiledImageFill(tile, box_.getX(), box_.getY(), 1);
    fillBounds(g);
}

void LookPainter::paintContents(juce::Graphics& g) const {
    const Image* const contents = layer_.contents().get();
    if (!contents || contents->isEmpty()) return;
    const juce::Rectangle<int> target = boxPixels(toPixels_.apply(contentsRect(layer_, presented_.bounds)));
    const juce::Rectangle<int> seen = target.getIntersection({size_.x, size_.y});
    if (seen.isEmpty()) return;
    const juce::Rectangle<int> part = seen - target.getPosition();
    const bool isExact = target.getWidth() == contents->width && target.getHeight() == contents->height;
    const Image resized = isExact ? Image{} : resampled(*contents, target.getWidth(), target.getHeight());
    juce::Image picture = toToolkit(isExact ? *contents : resized, part);
    if (layer_.look().contentsTint().a > 0) picture = filledWith(picture, layer_.look().contentsTint());
    g.setOpacity(1);
    g.drawImageAt(picture, seen.getX(), seen.getY());
}

void LookPainter::paintShape(juce::Graphics& g, const ShapeLayer& shape) const {
    if (shape.path().isEmpty()) return;
    const juce::Path path = toToolkit(shape.path(), toPixels_);
    if (shape.fillColor().a > 0) {
        g.setColour(toToolkit(shape.fillColor()));
        g.fillPath(flattened(path));
    }
    if (shape.strokeColor().a > 0 && shape.lineWidth() > 0) {
        g.setColour(toToolkit(shape.strokeColor()));
        g.fillPath(strokeOutline(path, shape, presented_.lineDashPhase, scale_));
    }
}

void LookPainter::paintText(juce::Graphics& g, const TextLayer& text) const {
    if (text.string().isEmpty()) return;
    // Lengths are taken from the layer's points, not from its rounded box, so that text does not jump between scales.
    const Rect& bounds = presented_.bounds;
    const SetLine line = setText(text.string(), faces_);
    const double start = lineStart(text.alignment(), bounds.width, line.width);
    const double baseline = baselineOf(text.placement(), bounds.height, line);
    paintLine(g, line, {box_.getX() + start * scale_, box_.getY() + std::round(baseline * scale_)}, scale_);
}

void LookPainter::paintBorder(juce::Graphics& g) const {
    if (!(layer_.look().borderWidth() > 0) || !(layer_.look().borderColor().a > 0)) return;
    const int width = std::max(1, wholePixels(layer_.look().borderWidth() * scale_));
    g.setColour(toToolkit(layer_.look().borderColor()));
    if (!isRound()) {
        g.drawRect(box_, width);
        return;
    }
    juce::Path frame = roundOutline(0);
    if (box_.getWidth() > 2 * width && box_.getHeight() > 2 * width) frame.addPath(roundOutline(width));
    frame.setUsingNonZeroWinding(false); // the inner outline is a hole
    g.fillPath(frame);
}

} // namespace QVM_NAMESPACE
