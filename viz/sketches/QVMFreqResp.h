// Draws curves of level over frequency: the grid of frequencies, the smoothing and thinning out of the curves, and the
// lines.
//
// Positions are -1 to +1 across the canvas, y upwards. Main thread only.
#pragma once

#include "platform/surface/Color.h"
#include "viz/sketches/PBGLCanvas.h"

#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class DrawingSurface;

class QVMFreqResp {
public:
    struct Curve {
        std::vector<float> ys; // one a grid point, smoothed, not clipped
        bool hidden = false;
        Color colour;
        std::vector<float> clippedYs; // the line: those of the points that are drawn
        std::vector<float> clippedXs;
        std::size_t pointCount = 0; // of the line
    };

    // Builds the grid: `resolution` is half the number of points a device pixel across the canvas. Frequencies are in
    // hertz and even on a logarithmic scale; `dbRange` is the vertical axis. Everything that was there is replaced.
    void init(PBGLCanvas canvas, float resolution, QVMFloat32Range freqRange, QVMFloat32Range dbRange, int numCurves);
    // Makes a line of a curve from its level in dB at each grid point. The time since the frame before (seconds) is
    // not used by this display.
    void prepareForDrawing(const float* db, float duration, int curve);
    // Reference line, grid, then the curves that are not hidden.
    void glDraw(DrawingSurface& surface) const;

    const PBGLCanvas& canvas() const { return canvas_; } // that it was built for
    int numPoints() const { return static_cast<int>(freqs_.size()); }
    std::span<const float> freqs() const { return freqs_; }
    std::span<const float> xs() const { return xs_; }
    std::span<const float> kernel() const { return kernel_; }
    Curve& curve(int index) { return curves_[static_cast<std::size_t>(index)]; }
    const Curve& curve(int index) const { return curves_[static_cast<std::size_t>(index)]; }
    int numCurves() const { return static_cast<int>(curves_.size()); }
    // The levels at which the grid's lines are drawn: every 6 dB from the reference level, but not that itself.
    std::vector<float> gridLevels() const;

    bool showGrid = false;
    QVMFloat32Range dbRange;  // the vertical axis, dB
    float referenceLevel = 0; // dB

private:
    float heightOf(float level) const;
    void smooth(std::vector<float>& ys);
    void drawLevel(float level, float widthPoints, Color colour, bool dashed, DrawingSurface& surface) const;

    PBGLCanvas canvas_;
    Color dimColour_;
    std::vector<float> freqs_, xs_;
    std::vector<float> kernel_; // a triangle that adds up to 1
    std::vector<float> padded_; // work space: a curve behind a run of its first value
    std::vector<Curve> curves_;
};

} // namespace QVM_NAMESPACE
