// Left and right as one moving point, turned by 45 degrees: mid upwards, side across, at a size that fits the display.
//
// What is in phase stands upright, what is out of phase lies down, one side alone leans. Levels do not show: the gain
// follows the signal, quickly down and slowly up. The trace covers -1 to +1 of a square in the middle of the canvas.
#pragma once

#include "viz/analysis/StereoTap.h"
#include "viz/displays/FanOutline.h"
#include "viz/sketches/PBGLSketchAbstract.h"

#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class QVMGoniometer {
public:
    // Makes room for a thirtieth of a second in whole blocks of `maxFrames`. `sampleRate` is in hertz. Main thread,
    // before audio is processed.
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames);

    // Audio side: takes a block, of which up to `maxFrames` frames count. With `midSide` the channels are mid and side.
    // Never waits or allocates: while the drawing side reads, the block is dropped.
    void processAudio(const QVMAudioBuffer<float>* buffer, unsigned nFrames, bool midSide);

    // Main thread from here on. Prepares the points of the next `dt` seconds; without so many the last ones stay.
    Redraw prepareForDrawing(float dt);
    // The axes of mid, side, left and right, which never move.
    void drawBackground(DrawingSurface& surface, QVMRGBColor colour) const;
    // The area that the trace goes round, and its points.
    void glDraw(DrawingSurface& surface, QVMRGBColor colour);

    // The points of the next picture; y is mid.
    std::span<const float> x() const { return std::span(x_).first(pointCount_); }
    std::span<const float> y() const { return std::span(y_).first(pointCount_); }
    std::span<const float> gains() const { return std::span(gains_).first(pointCount_); }          // of each point
    std::span<const float> magnitudes() const { return std::span(gainsCopy_).first(pointCount_); } // before the gain
    std::size_t pointCount() const { return pointCount_; }
    float gain() const { return gain_; } // after the last point
    unsigned capacity() const { return tap_.capacity(); }
    double sampleRate() const { return sampleRate_; }
    StereoTap& tap() { return tap_; }
    // The points of the trace that the area goes through, as triangles in -1 to +1; none for silence.
    const std::vector<Vertex>& fan();

private:
    void rampGain(float dt);
    void setProjection(DrawingSurface& surface) const;

    PBGLCanvas canvas_;
    double sampleRate_ = 0; // hertz
    unsigned maxFrames_ = 0;
    StereoTap tap_;
    QVMAudioBuffer<float> block_{2}; // audio side
    float gain_ = 0.5f;
    float pointSize_ = 2; // points
    std::size_t pointCount_ = 0;
    std::vector<float> x_, y_, work_, gains_, gainsCopy_;
    FanOutline outline_;
    std::vector<Vertex> dots_; // work space
};

} // namespace QVM_NAMESPACE
