#include "unit/dsp/Equaliser.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE::dsp {

namespace {

constexpr double kStepSeconds = 2.7e-3;
constexpr std::size_t kLeastStep = 16;
constexpr double kGlideSeconds = 0.006; // time constant of each of the two poles
constexpr double kFadeSeconds = 0.02;
constexpr double kWarmSeconds = 0.025;                                 // in which the new chain swings in unheard
constexpr double kFarDecibels = 4, kFarNepers = 0.7, kFarOrders = 1.5; // no glide, but a fade
constexpr double kNearDecibels = 1e-5, kNearNepers = 1e-6;

double amplitude(double decibels) {
    return decibels == 0 ? 1 : std::pow(10, decibels / 20);
}

} // namespace

void Equaliser::prepare(double sampleRateHz, const EqSettings& settings) {
    sampleRateHz_ = sampleRateHz;
    stepFrames_ = kLeastStep;
    while (2 * stepFrames_ <= maxStepFrames && static_cast<double>(2 * stepFrames_) <= kStepSeconds * sampleRateHz)
        stepFrames_ *= 2;
    fadeFrames_ = static_cast<std::size_t>(std::max(1.0, kFadeSeconds * sampleRateHz));
    warmFrames_ = static_cast<std::size_t>(kWarmSeconds * sampleRateHz);
    correctors_[0].prepare(sampleRateHz, Quality::normal);
    correctors_[1].prepare(sampleRateHz, Quality::high);
    const double share = -std::expm1(-static_cast<double>(stepFrames_) / (kGlideSeconds * sampleRateHz));
    for (std::size_t i = 0; i < gliding; ++i) {
        const bool isFrequency = i == tiltLow || i == tiltHigh || i == lowCorner || i == highCorner;
        glides_[i].prepare(share, isFrequency ? kNearNepers : kNearDecibels, 0);
    }
    reset(settings);
}

void Equaliser::reset(const EqSettings& settings) {
    left_ = 0;
    fadeLeft_ = 0;
    chain_.reset();
    arrive(settings);
}

// Stands at the settings at once.
void Equaliser::arrive(const EqSettings& settings) {
    const double values[] = {settings.tiltGain,
                             std::log(settings.tiltLow),
                             std::log(settings.tiltHigh),
                             std::log(settings.low.corner),
                             settings.low.order,
                             settings.low.resonance,
                             std::log(settings.high.corner),
                             settings.high.order,
                             settings.high.resonance};
    for (std::size_t i = 0; i < std::size(values); ++i)
        glides_[i].snap(values[i]);
    now_ = settings;
    gain_ = loudnessGain_ = amplitude(loudness_.compensation(now_));
    gainStep_ = 0;
    chain_.reshape(ChainShape(settings), correctors_[static_cast<std::size_t>(settings.quality)]);
    chain_.begin(now_, sampleRateHz_, corrector(), 0);
}

bool Equaliser::isFlat() const {
    return fadeLeft_ == 0 && gain_ == 1 && gainStep_ == 0 && chain_.isFlat();
}

void Equaliser::process(double* samples, std::uint32_t frames, const EqSettings& settings) {
    while (frames > 0) {
        if (left_ == 0) beginStep(settings);
        const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(frames, left_));
        processPart(samples, count);
        left_ -= count;
        if (left_ == 0) endStep(samples, count);
        samples += std::size_t{2} * count;
        frames -= count;
    }
}

void Equaliser::beginStep(const EqSettings& settings) {
    left_ = stepFrames_;
    const bool switches = isSwitched(settings);
    if (fadeLeft_ == 0 && switches) {
        fading_ = chain_;
        fading_.hold();
        fadingGain_ = loudnessGain_;
        fadeLeft_ = warmFrames_ + fadeFrames_;
        chain_.reset();
        return arrive(settings);
    }
    gain_ = loudnessGain_;
    // During a fade what comes next can wait for its own.
    if (!switches && follow(settings)) loudnessGain_ = amplitude(loudness_.compensation(now_));
    gainStep_ = (loudnessGain_ - gain_) / static_cast<double>(stepFrames_);
    chain_.begin(now_, sampleRateHz_, corrector(), stepFrames_);
}

// What cannot glide, or is too far away for it.
bool Equaliser::isSwitched(const EqSettings& settings) const {
    if (chain_.shape() != ChainShape(settings) || now_.loudness != settings.loudness) return true;
    const auto isFar = [](double from, double to) { return std::abs(std::log(to / from)) > kFarNepers; };
    const auto leaps = [&](const FilterSettings& from, const FilterSettings& to) {
        return to.state == Switch::on &&
               (isFar(from.corner, to.corner) || std::abs(from.order - to.order) > kFarOrders ||
                std::abs(from.resonance - to.resonance) > kFarDecibels);
    };
    return std::abs(now_.tiltGain - settings.tiltGain) > kFarDecibels || isFar(now_.tiltLow, settings.tiltLow) ||
           isFar(now_.tiltHigh, settings.tiltHigh) || leaps(now_.low, settings.low) || leaps(now_.high, settings.high);
}

// One step of the glides. False when nothing moves.
bool Equaliser::follow(const EqSettings& settings) {
    bool moves = false;
    const auto level = [&](double& value, Gliding which, double target) {
        const double last = value;
        value = glides_[which].follow(target);
        moves |= value != last;
    };
    const auto frequency = [&](double& value, Gliding which, double target) {
        const double last = glides_[which].value();
        const double next = glides_[which].follow(std::log(target));
        if (next == last) return;
        value = std::exp(next);
        moves = true;
    };
    const auto filter = [&](FilterSettings& value, const FilterSettings& target, Gliding corner, Gliding order,
                            Gliding peak) {
        if (value.state == Switch::off || target.state == Switch::off) return;
        frequency(value.corner, corner, target.corner);
        level(value.order, order, target.order);
        level(value.resonance, peak, target.resonance);
    };
    level(now_.tiltGain, tiltGain, settings.tiltGain);
    frequency(now_.tiltLow, tiltLow, settings.tiltLow);
    frequency(now_.tiltHigh, tiltHigh, settings.tiltHigh);
    filter(now_.low, settings.low, lowCorner, lowOrder, lowPeak);
    filter(now_.high, settings.high, highCorner, highOrder, highPeak);
    return moves;
}

void Equaliser::processPart(double* samples, std::size_t frames) {
    if (fadeLeft_ > 0) std::copy_n(samples, 2 * frames, old_.begin());
    chain_.process(samples, frames);
    if (gain_ != 1 || gainStep_ != 0) {
        for (std::size_t i = 0; i < frames; ++i) {
            gain_ += gainStep_;
            samples[2 * i] *= gain_;
            samples[2 * i + 1] *= gain_;
        }
    }
    if (fadeLeft_ > 0) fade(samples, frames);
}

void Equaliser::fade(double* samples, std::size_t frames) {
    fading_.process(old_.data(), frames);
    for (std::size_t i = 0; i < frames; ++i) {
        if (fadeLeft_ > 0) --fadeLeft_;
        const double s = std::min(static_cast<double>(fadeLeft_) / static_cast<double>(fadeFrames_), 1.0);
        const double share = s * s * (3 - 2 * s); // of the old one
        for (std::size_t c = 2 * i; c < 2 * i + 2; ++c)
            samples[c] += (old_[c] * fadingGain_ - samples[c]) * share;
    }
}

// A signal beyond the range of numbers leaves nothing behind: the state starts anew, and the end of the step is silent.
void Equaliser::endStep(double* samples, std::size_t frames) {
    bool isFinite = chain_.settle();
    if (fadeLeft_ > 0) isFinite &= fading_.settle();
    if (isFinite) return;
    chain_.reset();
    fadeLeft_ = 0;
    std::fill_n(samples, 2 * frames, 0.0);
}

} // namespace QVM_NAMESPACE::dsp
