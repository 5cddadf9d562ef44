// Where in the stereo field each frequency is. Threads as for every LiveDisplay.
#pragma once

#include "viz/displays/LiveDisplay.h"
#include "viz/displays/QVMStereoscope.h"

namespace QVM_NAMESPACE {

class StereoscopeDisplay final : public LiveDisplay {
public:
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) override;
    void processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) override;
    Redraw prepareForDrawing(float dt) override;
    void draw(DrawingSurface& surface) override;

private:
    QVMStereoscope stereoscope_;
};

} // namespace QVM_NAMESPACE
