#include "plugin/vst3/ParameterListing.h"

#include "description/Description.h"

#include <juce_core/juce_core.h>

#include <algorithm>
#include <array>

namespace QVM_NAMESPACE {

using namespace Steinberg::Vst;

namespace {

constexpr std::array hiddenPids = {
    pidMasterOnOff,          pidTiltRangeLink,        pidTiltRangeLinkRatio,
    pidFilterRangeLink,      pidFilterRangeLinkRatio, pidFilterSlopeLink,
    pidFilterSlopeLinkRatio, pidFilterResonanceLink,  pidFilterResonanceLinkRatio,
};

// As the toolkit's wrapper makes it of the name in code.
ParamID identifierOf(const QVMParameter& parameter) {
    return static_cast<ParamID>(juce::String(parameter.codesafeName).hashCode()) & 0x7fffffffU;
}

const QVMParameter* parameterOf(ParamID id) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        if (identifierOf(*GetParameter(pid)) == id) return GetParameter(pid);
    return nullptr;
}

} // namespace

void completeParameterInfo(ParameterInfo& info) {
    if (info.flags & ParameterInfo::kIsProgramChange) info.flags |= ParameterInfo::kIsList;
    const QVMParameter* parameter = parameterOf(info.id);
    if (!parameter) return;
    if (info.stepCount > 1 && !parameter->stringValues.empty()) info.flags |= ParameterInfo::kIsList;
    if (std::find(hiddenPids.begin(), hiddenPids.end(), parameter->pid) == hiddenPids.end()) return;
    // The format asks for the three together.
    info.flags &= ~ParameterInfo::kCanAutomate;
    info.flags |= ParameterInfo::kIsHidden | ParameterInfo::kIsReadOnly;
}

} // namespace QVM_NAMESPACE
