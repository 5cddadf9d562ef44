// Draws one layer's own look: background, pattern, contents, path, text and border, in that order, and its shadow
// beneath.
#pragma once

#include "platform/layer/Layer.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"
#include "toolkit/FaceLibrary.h"

#include <juce_graphics/juce_graphics.h>

namespace QVM_NAMESPACE {

// For one look. Edges of the bounds fall on whole pixels, and a border is a whole number of them wide.
class LookPainter {
public:
    // `lookBounds` is what the image shows, in the layer's own coordinates. All is borrowed.
    LookPainter(const Layer& layer, const PresentedLayer& presented, const Rect& lookBounds, double pixelsPerPoint,
                FaceLibrary& faces);

    // The look as an image of the look bounds' size.
    juce::Image paint() const;

private:
    void paintLook(juce::Graphics& g) const;
    void paintBackground(juce::Graphics& g) const;
    void paintContents(juce::Graphics& g) const;
    void paintShape(juce::Graphics& g, const ShapeLayer& shape) const;
    void paintText(juce::Graphics& g, const TextLayer& text) const;
    void paintBorder(juce::Graphics& g) const;
    void fillBounds(juce::Graphics& g) const;
    bool isRound() const { return presented_.cornerRadius > 0; }
    juce::Path roundOutline(double insetPixels) const;

    const Layer& layer_;
    const PresentedLayer& presented_;
    const double scale_;
    FaceLibrary& faces_;
    const juce::Point<int> size_;    // pixels
    const AffineTransform toPixels_; // from own coordinates
    const juce::Rectangle<int> box_; // the bounds, pixels
};

} // namespace QVM_NAMESPACE
