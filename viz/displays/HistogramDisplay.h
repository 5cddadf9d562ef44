// The levels of thirty third-octave bands, 25 Hz to 20 kHz: the stereoscope's analysis, gathered in other bands.
// Threads as for every LiveDisplay.
#pragma once

#include "viz/displays/LiveDisplay.h"
#include "viz/displays/QVMHistogram.h"
#include "viz/displays/QVMStereoscope.h"

#include <vector>

namespace QVM_NAMESPACE {

class HistogramDisplay final : public LiveDisplay {
public:
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) override;
    void processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) override;
    Redraw prepareForDrawing(float dt) override;
    void draw(DrawingSurface& surface) override;

private:
    QVMStereoscope analysis_;
    StereoSpectrum bands_;
    QVMHistogram histogram_;
    std::vector<float> levels_; // work space
};

} // namespace QVM_NAMESPACE
