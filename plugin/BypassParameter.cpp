#include "plugin/BypassParameter.h"

#include "description/ParameterIDs.h"

#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr const char *bypassedText = "Bypassed", *activeText = "Active";

bool isBypass(float normalisedValue) {
    return normalisedValue >= 0.5F;
}

} // namespace

BypassParameter::BypassParameter(AudioUnitInstance& unit, std::function<void()> hostChangedIt)
    : juce::AudioProcessorParameterWithID(juce::ParameterID("Bypass", 1), "Bypass"), unit_(unit),
      hostChangedIt_(std::move(hostChangedIt)) {}

float BypassParameter::getValue() const {
    float master = 1;
    AudioUnitGetParameter(&unit_, pidMasterOnOff, kAudioUnitScope_Global, 0, &master);
    return master != 0 ? 0 : 1;
}

void BypassParameter::setValue(float normalisedValue) {
    if (!std::isfinite(normalisedValue) || isBypass(normalisedValue) == isBypass(getValue())) return;
    AudioUnitSetParameter(&unit_, pidMasterOnOff, kAudioUnitScope_Global, 0, isBypass(normalisedValue) ? 0 : 1, 0);
    hostChangedIt_();
}

juce::String BypassParameter::getText(float normalisedValue, int maximumLength) const {
    const juce::String text = isBypass(normalisedValue) ? bypassedText : activeText;
    return maximumLength > 0 ? text.substring(0, maximumLength) : text;
}

float BypassParameter::getValueForText(const juce::String& text) const {
    return text.trim().equalsIgnoreCase(bypassedText) ? 1 : 0;
}

} // namespace QVM_NAMESPACE
