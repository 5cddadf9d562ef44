// The spectrum behind the response curve: takes the signal that the unit shares, analyses it and shows it, up to forty
// times a second.
//
// Nothing is taken or computed while nobody can see it. When no sound comes any more it falls to nothing and rests.
// Main thread only.
#pragma once

#include "viz/analysis/SignalSpectrum.h"
#include "viz/analysis/SpectrumLevels.h"
#include "viz/displays/SpectrumLayer.h"
#include "viz/displays/SpectrumMode.h"
#include "viz/sketches/SketchBackdrop.h"
#include "viz/sketches/VizRef.h"

#include <array>
#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class SpectrumBackdrop final : public SketchBackdrop {
public:
    // `mode` is not off. The drawing object has the signal.
    SpectrumBackdrop(VizRef vizRef, SpectrumMode mode, const SpectrumColours& colours);
    ~SpectrumBackdrop() override;

    SpectrumMode mode() const { return mode_; }
    void setColours(const SpectrumColours& colours) { layer_->setColours(colours); }
    // What is shown, dB, one a band; no input unless the mode has it.
    std::span<const float> outputLevels() const { return output_.levels.levels(); }
    std::span<const float> inputLevels() const;

    const std::shared_ptr<Layer>& layer() const override { return asLayer_; }
    void setWatched(Watched watched) override;
    Redraw prepareForDrawing(float seconds) override;

private:
    using Sides = std::array<float, 2> TapFrame::*;
    struct Signal {
        std::unique_ptr<SignalSpectrum> spectrum; // null before anything came
        SpectrumLevels levels;
    };

    AudioTap& tap() { return vizRef_->sharedState.tap; }
    bool hasInput() const { return mode_ == SpectrumMode::inputAndOutput; }
    Redraw advance(float seconds);
    void takeWaiting();
    void take(Signal& signal, std::span<const TapFrame> frames, Sides sides);
    void reset();

    const VizRef vizRef_;
    const SpectrumMode mode_;
    const std::shared_ptr<SpectrumLayer> layer_;
    const std::shared_ptr<Layer> asLayer_ = layer_; // again
    Signal output_, input_;
    double sampleRateHz_ = 0;                 // that the signals are analysed for
    float passedSeconds_ = 0;                 // since it was computed
    float unfedSeconds_ = 0;                  // since something came
    std::array<std::vector<float>, 2> sides_; // work space
};

} // namespace QVM_NAMESPACE
