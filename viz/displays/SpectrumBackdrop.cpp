#include "viz/displays/SpectrumBackdrop.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

// A large spectrum costs more than all else that moves. At every second frame of a usual display it looks the same.
constexpr float kLeastSeconds = 1.0f / 40;

} // namespace

SpectrumBackdrop::SpectrumBackdrop(VizRef vizRef, SpectrumMode mode, const SpectrumColours& colours)
    : vizRef_(std::move(vizRef)), mode_(mode), layer_(std::make_shared<SpectrumLayer>(colours)) {}

SpectrumBackdrop::~SpectrumBackdrop() {
    tap().setWanted(false);
}

std::span<const float> SpectrumBackdrop::inputLevels() const {
    return hasInput() ? input_.levels.levels() : std::span<const float>();
}

// What is seen again begins with what is heard then.
void SpectrumBackdrop::setWatched(Watched watched) {
    const bool isWanted = watched == Watched::yes;
    if (isWanted == tap().isWanted()) return;
    tap().setWanted(isWanted);
    reset();
    output_.levels = input_.levels = {};
    layer_->show(outputLevels(), inputLevels());
}

void SpectrumBackdrop::reset() {
    for (Signal* signal : {&output_, &input_})
        if (signal->spectrum) signal->spectrum->reset();
}

Redraw SpectrumBackdrop::prepareForDrawing(float seconds) {
    passedSeconds_ += seconds;
    if (passedSeconds_ < kLeastSeconds) return Redraw::no;
    return advance(std::exchange(passedSeconds_, 0.0f));
}

Redraw SpectrumBackdrop::advance(float seconds) {
    unfedSeconds_ += seconds;
    takeWaiting();
    // As with the meter's levels: a host that renders no more is silent.
    if (unfedSeconds_ > vizRef_->sharedState.levels.standingSeconds()) reset();
    for (Signal* signal : {&output_, &input_})
        if (signal->spectrum) signal->levels.follow(signal->spectrum->powers(), seconds);
    return layer_->show(outputLevels(), inputLevels());
}

void SpectrumBackdrop::takeWaiting() {
    const std::span<const TapFrame> frames = tap().waiting();
    const double rate = tap().sampleRateHz();
    if (frames.empty() || !(rate > 0)) return;
    if (std::exchange(sampleRateHz_, rate) != rate) {
        output_.spectrum = std::make_unique<SignalSpectrum>(rate);
        if (hasInput()) input_.spectrum = std::make_unique<SignalSpectrum>(rate);
    }
    take(output_, frames, &TapFrame::output);
    if (hasInput()) take(input_, frames, &TapFrame::input);
    tap().consume(frames.size());
    unfedSeconds_ = 0;
}

void SpectrumBackdrop::take(Signal& signal, std::span<const TapFrame> frames, Sides sides) {
    for (std::size_t side = 0; side < sides_.size(); ++side) {
        sides_[side].clear();
        for (const TapFrame& frame : frames)
            sides_[side].push_back((frame.*sides)[side]);
    }
    signal.spectrum->take(sides_[0].data(), sides_[1].data(), frames.size());
}

} // namespace QVM_NAMESPACE
