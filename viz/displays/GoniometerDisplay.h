// Left and right as a moving point. Threads as for every LiveDisplay.
#pragma once

#include "viz/displays/LiveDisplay.h"
#include "viz/displays/QVMGoniometer.h"

namespace QVM_NAMESPACE {

class GoniometerDisplay final : public LiveDisplay {
public:
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) override;
    void processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) override;
    Redraw prepareForDrawing(float dt) override;
    void draw(DrawingSurface& surface) override;

private:
    QVMGoniometer goniometer_;
    QVMRGBColor colour_;
};

} // namespace QVM_NAMESPACE
