// What a compressor of 4:1 above -20 dB would take away from the audio. Threads as for every LiveDisplay.
#pragma once

#include "viz/displays/LiveDisplay.h"
#include "viz/displays/QVMGRHistory.h"

namespace QVM_NAMESPACE {

class GRHistoryDisplay final : public LiveDisplay {
public:
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) override;
    void processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) override;
    Redraw prepareForDrawing(float dt) override;
    void draw(DrawingSurface& surface) override;

private:
    // The display's own time, that of the next frame: what was heard since the last one is new however long that took.
    SharedWord<double> seconds_ = 0;
    QVMGRHistory history_{[this] { return seconds_.load(); }};
};

} // namespace QVM_NAMESPACE
