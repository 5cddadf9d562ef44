#include "unit/dsp/EqChain.h"

#include <algorithm>

namespace QVM_NAMESPACE::dsp {

namespace {

struct StageList {
    std::array<StageKind, 5> kinds{};
    std::size_t count = 0;

    void add(StageKind kind, Switch when = Switch::on) {
        if (when == Switch::on) kinds[count++] = kind;
    }
    std::span<const StageKind> all() const { return {kinds.data(), count}; }
};

} // namespace

void EqChain::reshape(const ChainShape& shape, const Corrector& corrector) {
    shape_ = shape;
    const bool hearsLow = shape.listenLow == Switch::on && shape.low == Switch::on;
    const bool hearsHigh = shape.listenHigh == Switch::on && shape.high == Switch::on;
    isSilent_ = shape.listens() && !hearsLow && !hearsHigh;
    StageList list;
    list.add(StageKind::tilt);
    if (!shape.listens()) {
        list.add(StageKind::low, shape.low);
        list.add(StageKind::high, shape.high);
        list.add(StageKind::lowPeak, shape.low);
        list.add(StageKind::highPeak, shape.high);
    } else if (hearsLow && hearsHigh) {
        list.add(StageKind::bothRemoved);
    } else if (!isSilent_) {
        list.add(hearsLow ? StageKind::lowRemoved : StageKind::highRemoved);
    }
    path_.reshape(list.all(), corrector.tapCount());
    isUsed_ = {};
    for (const StageKind kind : list.all())
        isUsed_[static_cast<std::size_t>(kind)] = true;
    isNew_ = true;
}

void EqChain::begin(const EqSettings& settings, double sampleRateHz, const Corrector& corrector, std::size_t frames) {
    bool hasChanged = isNew_;
    for (std::size_t i = 0; i < stageKinds; ++i) {
        if (isUsed_[i] && stages_[i].design(static_cast<StageKind>(i), settings, sampleRateHz, corrector)) {
            hasChanged = true;
        }
    }
    if (hasChanged) {
        path_.begin(stages_, corrector, isNew_ ? 0 : frames);
    } else {
        path_.hold();
    }
    isNew_ = false;
}

void EqChain::process(double* samples, std::size_t frames) {
    if (isSilent_) return void(std::fill_n(samples, 2 * frames, 0.0));
    path_.process(samples, frames);
}

void EqChain::reset() {
    path_.reset();
    for (Stage& stage : stages_)
        stage.forget();
    isNew_ = true;
}

} // namespace QVM_NAMESPACE::dsp
