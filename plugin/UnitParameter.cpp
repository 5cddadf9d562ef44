#include "plugin/UnitParameter.h"

#include <cmath>

namespace QVM_NAMESPACE {

namespace {

// Grows when a release changes what a host has stored about a parameter.
constexpr int versionHint = 1;

// The two ends are always taken as they are: there the parameter may mean something of its own, such as "Off".
bool isEcho(float normalisedValue, float present) {
    const bool isEnd = normalisedValue <= 0 || normalisedValue >= 1;
    return isEnd ? normalisedValue == present : std::abs(normalisedValue - present) <= HostRange::echoTolerance;
}

juce::String unitText(const QVMParameter& parameter) {
    return juce::String::fromUTF8(parameter.unitSymbol.c_str());
}

} // namespace

UnitParameter::UnitParameter(const QVMParameter& parameter, AudioUnitInstance& unit)
    : juce::RangedAudioParameter(juce::ParameterID(parameter.codesafeName, versionHint), parameter.name,
                                 juce::AudioProcessorParameterWithIDAttributes().withLabel(unitText(parameter))),
      parameter_(parameter), unit_(unit), range_(parameter), hostRange_(range_.minimum, range_.maximum) {}

float UnitParameter::hostValue() const {
    float value = 0;
    AudioUnitGetParameter(&unit_, parameter_.pid, kAudioUnitScope_Global, 0, &value);
    return value;
}

float UnitParameter::getValue() const {
    return range_.normalised(hostValue());
}

void UnitParameter::setValue(float normalisedValue) {
    if (takeFromHost(normalisedValue) && hostChangeHandler_) hostChangeHandler_();
}

bool UnitParameter::takeFromHost(float normalisedValue) {
    if (!std::isfinite(normalisedValue) || isEcho(normalisedValue, getValue())) return false;
    AudioUnitSetParameter(&unit_, parameter_.pid, kAudioUnitScope_Global, 0, range_.hostValue(normalisedValue), 0);
    return true;
}

float UnitParameter::getDefaultValue() const {
    return range_.normalised(parameter_.reverseCastValue(parameter_.initialValue));
}

int UnitParameter::getNumSteps() const {
    return range_.steps > 0 ? range_.steps : juce::AudioProcessor::getDefaultNumParameterSteps();
}

juce::String UnitParameter::getText(float normalisedValue, int maximumLength) const {
    const auto text = juce::String::fromUTF8(hostTextForValue(parameter_, range_.hostValue(normalisedValue)).c_str());
    return maximumLength > 0 ? text.substring(0, maximumLength) : text;
}

float UnitParameter::getValueForText(const juce::String& text) const {
    return range_.normalised(hostValueForText(parameter_, text.toStdString()));
}

} // namespace QVM_NAMESPACE
