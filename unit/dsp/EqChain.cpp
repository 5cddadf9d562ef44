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
    std::array<StageList, maxPaths> lists;
    pathCount_ = 0;
    if (!shape.listens()) {
        StageList& list = lists[pathCount_++];
        list.add(StageKind::tilt);
        list.add(StageKind::low, shape.low);
        list.add(StageKind::high, shape.high);
        list.add(StageKind::lowPeak, shape.low);
        list.add(StageKind::highPeak, shape.high);
    }
    const auto listen = [&](Switch listens, Switch isOn, StageKind kind) {
        if (listens == Switch::off || isOn == Switch::off) return;
        StageList& list = lists[pathCount_++];
        list.add(StageKind::tilt);
        list.add(kind);
    };
    listen(shape.listenLow, shape.low, StageKind::lowRemoved);
    listen(shape.listenHigh, shape.high, StageKind::highRemoved);

    const EqPath before = paths_[0];
    isUsed_ = {};
    for (std::size_t i = 0; i < pathCount_; ++i) {
        paths_[i].reshape(lists[i].all(), corrector.tapCount(), before);
        for (const StageKind kind : lists[i].all())
            isUsed_[static_cast<std::size_t>(kind)] = true;
    }
    isNew_ = true;
}

void EqChain::begin(const EqSettings& settings, double sampleRateHz, const Corrector& corrector, std::size_t frames) {
    bool hasChanged = isNew_;
    for (std::size_t i = 0; i < stageKinds; ++i) {
        if (isUsed_[i] && stages_[i].design(static_cast<StageKind>(i), settings, sampleRateHz, corrector)) {
            hasChanged = true;
        }
    }
    for (std::size_t i = 0; i < pathCount_; ++i) {
        if (hasChanged) {
            paths_[i].begin(stages_, corrector, isNew_ ? 0 : frames);
        } else {
            paths_[i].hold();
        }
    }
    isNew_ = false;
}

void EqChain::hold() {
    for (EqPath& path : paths_)
        path.hold();
}

void EqChain::process(double* samples, double* scratch, std::size_t frames) {
    if (pathCount_ == 0) return void(std::fill_n(samples, 2 * frames, 0.0));
    if (pathCount_ > 1) std::copy_n(samples, 2 * frames, scratch);
    paths_[0].process(samples, frames);
    if (pathCount_ == 1) return;
    paths_[1].process(scratch, frames);
    for (std::size_t i = 0; i < 2 * frames; ++i)
        samples[i] += scratch[i];
}

void EqChain::reset() {
    for (EqPath& path : paths_)
        path.reset();
    for (Stage& stage : stages_)
        stage.forget();
    isNew_ = true;
}

bool EqChain::settle() {
    bool isFinite = true;
    for (std::size_t i = 0; i < pathCount_; ++i)
        isFinite &= paths_[i].settle();
    return isFinite;
}

bool EqChain::isFlat() const {
    return pathCount_ == 1 && paths_[0].isFlat();
}

} // namespace QVM_NAMESPACE::dsp
