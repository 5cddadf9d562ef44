#include "plugin/BypassParameter.h"

#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr const char *bypassedText = "Bypassed", *activeText = "Active";

bool isBypass(float normalisedValue) {
    return normalisedValue >= 0.5F;
}

} // namespace

BypassParameter::BypassParameter(UnitParameter& master, std::function<void()> hostChangedIt)
    : juce::AudioProcessorParameterWithID(juce::ParameterID("Bypass", 1), "Bypass"), master_(master),
      hostChangedIt_(std::move(hostChangedIt)) {}

float BypassParameter::getValue() const {
    return master_.getValue() != 0 ? 0 : 1;
}

void BypassParameter::setValue(float normalisedValue) {
    if (!std::isfinite(normalisedValue)) return;
    if (master_.takeFromHost(isBypass(normalisedValue) ? 0 : 1)) hostChangedIt_();
}

juce::String BypassParameter::getText(float normalisedValue, int maximumLength) const {
    const juce::String text = isBypass(normalisedValue) ? bypassedText : activeText;
    return maximumLength > 0 ? text.substring(0, maximumLength) : text;
}

float BypassParameter::getValueForText(const juce::String& text) const {
    return text.trim().equalsIgnoreCase(bypassedText) ? 1 : 0;
}

} // namespace QVM_NAMESPACE
