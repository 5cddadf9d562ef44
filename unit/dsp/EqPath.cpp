#include "unit/dsp/EqPath.h"

#include "unit/dsp/FilterMath.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE::dsp {

namespace {

constexpr double kSilent = 1e-60;

vectors::SvfCoefficients stepBetween(const vectors::SvfCoefficients& from, const vectors::SvfCoefficients& to,
                                     double share) {
    vectors::SvfCoefficients step;
    step.a1 = (to.a1 - from.a1) * share;
    step.a2 = (to.a2 - from.a2) * share;
    step.a3 = (to.a3 - from.a3) * share;
    step.m0 = (to.m0 - from.m0) * share;
    step.m1 = (to.m1 - from.m1) * share;
    step.m2 = (to.m2 - from.m2) * share;
    return step;
}

bool isUnity(const Corrector::Taps& taps) {
    return taps[0] == 1 && std::all_of(taps.begin() + 1, taps.end(), [](double tap) { return tap == 0; });
}

} // namespace

void EqPath::reshape(std::span<const StageKind> kinds, std::size_t tapCount) {
    slotCount_ = 0;
    sectionCount_ = 0;
    for (const StageKind kind : kinds) {
        slots_[slotCount_++] = {kind, sectionCount_, sectionsOf(kind), false, false};
        sectionCount_ += sectionsOf(kind);
    }
    tapCount_ = tapCount;
    reset();
}

void EqPath::begin(const StageSet& stages, const Corrector& corrector, std::size_t frames) {
    hold();
    isMoving_ = frames > 0;
    length_ = std::max<std::size_t>(frames, 1);
    done_ = 0;
    Corrector::Rest rest;
    rest.fill(1);
    const double share = 1 / static_cast<double>(length_);
    for (std::size_t s = 0; s < slotCount_; ++s) {
        Slot& slot = slots_[s];
        const Stage& stage = stages[static_cast<std::size_t>(slot.kind)];
        slot.isFlat = stage.isFlat() && (slot.endsFlat || !isMoving_);
        slot.endsFlat = stage.isFlat();
        for (std::size_t i = 0; i < slot.count; ++i) {
            const std::size_t at = slot.first + i;
            ends_[at] = stage.section(i);
            steps_[at] = stepBetween(now_[at], ends_[at], share);
            if (!isMoving_) now_[at] = ends_[at];
        }
        for (std::size_t i = 0; i < rest.size(); ++i)
            rest[i] *= stage.rest()[i];
    }
    corrector.taps(rest, tapEnds_);
    if (!isMoving_) taps_ = tapEnds_;
    hasTaps_ = !isUnity(taps_) || !isUnity(tapEnds_);
}

void EqPath::hold() {
    if (!isMoving_) return;
    isMoving_ = false;
    std::copy_n(ends_.begin(), sectionCount_, now_.begin());
    taps_ = tapEnds_;
    hasTaps_ = !isUnity(taps_);
    for (std::size_t i = 0; i < slotCount_; ++i)
        slots_[i].isFlat = slots_[i].endsFlat;
}

void EqPath::process(double* samples, std::size_t frames) {
    processSections(samples, frames);
    processTaps(samples, frames);
    done_ += frames;
}

void EqPath::processSections(double* samples, std::size_t frames) {
    std::size_t slot = 0;
    while (slot < slotCount_) { // one call for all neighbours in a row
        const std::size_t first = slots_[slot].first;
        const auto state = states_.begin() + static_cast<std::ptrdiff_t>(first);
        if (slots_[slot].isFlat) {
            std::fill_n(state, slots_[slot++].count, vectors::SvfState{});
            continue;
        }
        const vectors::SvfCoefficients* const steps = isMoving_ ? &steps_[first] : nullptr;
        if (slots_[slot].kind == StageKind::bothRemoved) {
            BothRemoved::process(&now_[first], steps, &*state, samples, frames);
            ++slot;
            continue;
        }
        std::size_t count = 0;
        for (; slot < slotCount_ && !slots_[slot].isFlat && slots_[slot].kind != StageKind::bothRemoved; ++slot)
            count += slots_[slot].count;
        if (isMoving_) {
            vectors::svfGlide(&now_[first], steps, &*state, count, samples, frames);
        } else {
            vectors::svfCascade(&now_[first], &*state, count, samples, frames);
        }
    }
}

void EqPath::processTaps(double* samples, std::size_t frames) {
    const std::size_t before = 2 * (Corrector::maxTaps - 1);
    std::copy_n(samples, 2 * frames, past_.begin() + static_cast<std::ptrdiff_t>(before));
    if (hasTaps_) {
        const double* const here = past_.data() + before;
        vectors::firStereo(here, taps_.data(), tapCount_, samples, frames);
        if (isMoving_) {
            std::array<double, 2 * maxStepFrames> end{};
            vectors::firStereo(here, tapEnds_.data(), tapCount_, end.data(), frames);
            for (std::size_t i = 0; i < 2 * frames; ++i) {
                const std::size_t at = done_ + i / 2 + 1; // frames
                const double share = static_cast<double>(at) / static_cast<double>(length_);
                samples[i] += (end[i] - samples[i]) * share;
            }
        }
    }
    std::copy_n(past_.begin() + static_cast<std::ptrdiff_t>(2 * frames), before, past_.begin());
}

void EqPath::reset() {
    states_ = {};
    past_ = {};
}

bool EqPath::settle() {
    double sum = 0;
    const auto settled = [&sum](double& value) {
        sum += value;
        if (std::abs(value) < kSilent) value = 0;
    };
    for (std::size_t i = 0; i < sectionCount_; ++i) {
        for (std::size_t channel = 0; channel < 2; ++channel) {
            settled(states_[i].first[channel]);
            settled(states_[i].second[channel]);
        }
    }
    return std::isfinite(sum);
}

bool EqPath::isFlat() const {
    return !isMoving_ && !hasTaps_ &&
           std::all_of(slots_.begin(), slots_.begin() + static_cast<std::ptrdiff_t>(slotCount_),
                       [](const Slot& slot) { return slot.isFlat; });
}

} // namespace QVM_NAMESPACE::dsp
