// A layer that shows the spectra of an input and an output: the output as an area, with an edge where
// there is room, the input as a line.
//
// It makes its pixels itself, column by column: an area under a line that is rough and never steep enough to cross
// itself needs no polygons, which cost ten times as much. Nothing is drawn until somebody looks. Main thread only.
#pragma once

#include "platform/layer/Layer.h"
#include "viz/displays/SpectrumTrace.h"
#include "viz/sketches/PBGLSketchAbstract.h"

#include <cstdint>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

struct SpectrumColours {
    Color area, edge; // of the output
    Color line;       // of the input
};

class SpectrumLayer final : public Layer {
public:
    explicit SpectrumLayer(const SpectrumColours& colours);

    void setColours(const SpectrumColours& colours);
    // Shows these levels in dB, one a band; no input for an empty span. Tells whether that looks different.
    Redraw show(std::span<const float> output, std::span<const float> input);

    const std::shared_ptr<const Image>& contents() const override;
    // From the highest level down.
    Rect lookBounds(const PresentedLayer& presented) const override;
    bool hasLook(const PresentedLayer& presented) const override;
    bool isPlainRectangle(const PresentedLayer&) const override { return false; }
    const char* kind() const override { return "SpectrumLayer"; }

private:
    struct PixelSize {
        int width = 0, height = 0;
        bool operator==(const PixelSize&) const = default;
    };
    PixelSize pixelSize() const;
    SpectrumTrace traceOf(const std::vector<float>& levels) const;
    void draw() const;

    SpectrumColours colours_;
    std::vector<float> output_, input_; // what is shown; no input when empty

    // The picture is the look's, kept: making it changes nothing that can be seen of the layer.
    mutable std::shared_ptr<Image> picture_;
    mutable std::shared_ptr<const Image> shown_; // picture_ again
    mutable std::uint64_t drawnVersion_ = 0;     // of the look that the picture shows; 0: none
    mutable PixelSize drawnSize_;
    mutable int highestRow_ = 0; // of the picture: what is above is transparent
};

} // namespace QVM_NAMESPACE
