#include "link/ParameterGlide.h"

#include "platform/vector/VectorMath.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr float kKept = 0.4345982f;  // e^(-5/6), of what is shown, a step
constexpr float kTaken = 0.5654018f; // of the target, a step
constexpr float kArrived = 0.9933f;  // a little more than six steps give

} // namespace

void ParameterGlide::sizeStates(std::uint32_t count) {
    paramCount = count;
    parameterStates.assign(count, {});
    interpTargets.assign(count, 0.0f);
    interpValues.assign(count, 0.0f);
    interpScratch.assign(count, 0.0f);
}

void ParameterGlide::standAt(std::uint32_t pid, float value) {
    if (pid >= paramCount) return;
    parameterStates[pid].value = parameterStates[pid].displayValue = value;
    interpTargets[pid] = interpValues[pid] = value;
}

bool ParameterGlide::post(std::uint32_t pid, float value) {
    if (pid >= paramCount) return false;
    QVMParameterState& state = parameterStates[pid];
    if (state.value == value && interpTargets[pid] == value) return false;
    state.value = value;
    state.interpolating = true;
    interpTargets[pid] = value;
    return true;
}

void ParameterGlide::restart() {
    interpAmount = 0.0f;
    // In this order: performInterp() clears isInterpolating first and then looks at interpPending again.
    interpPending.storeOrdered(true);
    isInterpolating.storeOrdered(true);
}

void ParameterGlide::performInterp() {
    if (!isInterpolating.loadOrdered()) return;
    if (!interpPending.loadOrdered()) {
        isInterpolating.storeOrdered(false);
        if (interpPending.loadOrdered()) isInterpolating.storeOrdered(true); // restarted in between
        return;
    }
    interpAmount = interpAmount * kKept + kTaken;
    const bool arrived = interpAmount >= kArrived;
    // The flag goes before the targets are read, so that one which is posted meanwhile sets it for good.
    if (arrived) interpPending.exchangeOrdered(false);
    std::copy(interpTargets.begin(), interpTargets.end(), interpScratch.begin());
    if (arrived) {
        interpValues = interpScratch;
        for (QVMParameterState& state : parameterStates)
            state.interpolating = false;
    } else {
        vectors::scaleAndOffset(interpScratch.data(), kTaken, 0.0f, interpScratch.data(), interpScratch.size());
        vectors::multiplyAdd(interpValues.data(), kKept, interpScratch.data(), interpValues.data(),
                             interpValues.size());
    }
    for (std::size_t i = 0; i < parameterStates.size(); ++i)
        parameterStates[i].displayValue = interpValues[i];
}

} // namespace QVM_NAMESPACE
