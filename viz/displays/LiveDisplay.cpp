#include "viz/displays/LiveDisplay.h"

#include "platform/vector/VectorMath.h"
#include "viz/displays/QVMGRHistory.h"
#include "viz/displays/QVMGoniometer.h"
#include "viz/displays/QVMHistogram.h"
#include "viz/displays/QVMStereoscope.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr float kDecibelsPerNeper = 8.685889f;
constexpr float kThreshold = -20, kRatio = 4;             // dB; of the demonstrated compressor
constexpr QVMFloat32Range kReductions = {-12, 0};         // dB
constexpr QVMFloat32Range kThirdOctaves = {22.1f, 22627}; // hertz, the ends of the outermost bands

class GoniometerDisplay final : public LiveDisplay {
public:
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) override {
        colour_ = canvas.sketch.color;
        goniometer_.init(canvas, sampleRate, maxFrames);
    }
    void processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) override {
        goniometer_.processAudio(&buffer, nFrames, false);
    }
    Redraw prepareForDrawing(float dt) override { return goniometer_.prepareForDrawing(dt); }
    void draw(DrawingSurface& surface) override {
        goniometer_.drawBackground(surface, colour_);
        goniometer_.glDraw(surface, colour_);
    }

private:
    QVMGoniometer goniometer_;
    QVMRGBColor colour_;
};

class StereoscopeDisplay final : public LiveDisplay {
public:
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) override {
        stereoscope_.init(canvas, sampleRate, maxFrames);
    }
    void processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) override {
        stereoscope_.processAudio(&buffer, nFrames);
    }
    Redraw prepareForDrawing(float dt) override { return stereoscope_.prepareForDrawing(dt); }
    void draw(DrawingSurface& surface) override {
        stereoscope_.drawBackground(surface);
        stereoscope_.glDraw(surface);
    }

private:
    QVMStereoscope stereoscope_;
};

class GRHistoryDisplay final : public LiveDisplay {
public:
    void init(PBGLCanvas canvas, float, unsigned) override { history_.init(canvas, kReductions, true, false); }
    void processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) override {
        float peak = 0;
        for (std::size_t c = 0; c < buffer.numChannels; ++c)
            for (unsigned i = 0; i < nFrames; ++i)
                peak = std::max(peak, std::abs(buffer.channels[c][i]));
        const float above = std::max(std::log(peak) * kDecibelsPerNeper - kThreshold, 0.0f);
        history_.processAudio(-above * (1 - 1 / kRatio), false);
    }
    Redraw prepareForDrawing(float dt) override {
        const Redraw redraw = history_.prepareForDrawing(dt);
        seconds_ = seconds_ + std::max(0.0, double{dt});
        return redraw;
    }
    void draw(DrawingSurface& surface) override {
        history_.drawBackground(surface);
        history_.glDraw(surface);
    }

private:
    // The display's own time, that of the next frame: what was heard since the last one is new however long that took.
    SharedWord<double> seconds_ = 0;
    QVMGRHistory history_{[this] { return seconds_.load(); }};
};

// The stereoscope's analysis, gathered in other bands.
class HistogramDisplay final : public LiveDisplay {
public:
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) override {
        analysis_.init(canvas, sampleRate, maxFrames);
        levels_.assign(analysis_.numBins(), 0);
        bands_.init(kThirdOctaves, QVMHistogram::kBins, sampleRate / static_cast<float>(analysis_.fftSize()),
                    analysis_.numBins());
        histogram_.init(sampleRate, maxFrames);
        histogram_.colour = canvas.sketch.color;
    }
    void processAudio(const QVMAudioBuffer<float>& buffer, unsigned nFrames) override {
        analysis_.processAudio(&buffer, nFrames);
    }
    Redraw prepareForDrawing(float dt) override {
        if (analysis_.prepareForDrawing(dt) == Redraw::no) return Redraw::no;
        vectors::scaleAndOffset(analysis_.levelDb().data(), 1 / kDecibelsPerNeper, 0, levels_.data(), levels_.size());
        vectors::exp(levels_.data(), levels_.data(), levels_.size());
        bands_.take(levels_.data(), analysis_.pan().data(), analysis_.width().data(), dt);
        std::array<float, QVMHistogram::kBins> values;
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = std::log(bands_.band(i).level) * kDecibelsPerNeper;
        return histogram_.prepareForDrawing(dt, values.data());
    }
    void draw(DrawingSurface& surface) override {
        histogram_.drawBackground(surface);
        histogram_.glDraw(surface);
    }

private:
    QVMStereoscope analysis_;
    StereoSpectrum bands_;
    QVMHistogram histogram_;
    std::vector<float> levels_; // work space
};

} // namespace

std::unique_ptr<LiveDisplay> makeGoniometerDisplay() {
    return std::make_unique<GoniometerDisplay>();
}
std::unique_ptr<LiveDisplay> makeStereoscopeDisplay() {
    return std::make_unique<StereoscopeDisplay>();
}
std::unique_ptr<LiveDisplay> makeGRHistoryDisplay() {
    return std::make_unique<GRHistoryDisplay>();
}
std::unique_ptr<LiveDisplay> makeHistogramDisplay() {
    return std::make_unique<HistogramDisplay>();
}

} // namespace QVM_NAMESPACE
