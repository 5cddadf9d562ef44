// Thirty bars side by side on a scale of -60 to 0 dB. Main thread only.
#pragma once

#include "description/Types.h"
#include "viz/sketches/PBGLSketchAbstract.h"

#include <array>
#include <span>

namespace QVM_NAMESPACE {

class QVMHistogram {
public:
    static constexpr std::size_t kBins = 30;

    // All bars at the bottom. Sample rate (hertz) and block size are as for the other displays; bars depend on neither.
    void init(float sampleRate, unsigned maxFrames);
    // Takes the bars' levels in dB, kBins of them; the time since the frame before (seconds) makes no difference.
    Redraw prepareForDrawing(float dt, const float* values);
    // The levels at every 12 dB.
    void drawBackground(DrawingSurface& surface) const;
    void glDraw(DrawingSurface& surface) const;

    std::span<const float> xs() const { return xs_; }           // the bars' right edges, -1 to +1
    std::span<const float> heights() const { return heights_; } // their tops, -1 to +1

    QVMRGBColor colour = {1, 1, 1};
    float scale = 1; // of the bars' lengths

private:
    std::array<float, kBins> xs_{}, heights_{};
};

} // namespace QVM_NAMESPACE
