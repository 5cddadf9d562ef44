// One parameter of the audio unit as the host sees it: named, ranged, with text, and automatable from any thread.
#pragma once

#include "platform/audiounit/AudioUnit.h"
#include "plugin/HostRange.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>
#include <utility>

namespace QVM_NAMESPACE {

class UnitParameter final : public juce::RangedAudioParameter {
public:
    // Both are borrowed and outlive the parameter. The identifier is the description's code-safe name.
    UnitParameter(const QVMParameter& parameter, AudioUnitInstance& unit);

    // 0 to 1, read from and written to the unit itself; any thread, no locks.
    float getValue() const override;
    void setValue(float normalisedValue) override;
    // As the unit has it.
    float hostValue() const;
    // What the host gives the unit, whoever it gives it to; true when it is another value than the unit's. The one
    // place that knows a host's echo: it changes nothing, so that a host never wears down the bits the editor sent, and
    // nobody is told of it. Neither does a value that is no finite number. Any thread, no locks.
    bool takeFromHost(float normalisedValue);
    // The same for a host that has the unit's own numbers.
    bool takeHostValue(float hostValue) { return takeFromHost(range_.normalised(hostValue)); }
    float getDefaultValue() const override;
    // The host-domain range, linear: what a host shows that has numbers of its own and no text from us.
    const juce::NormalisableRange<float>& getNormalisableRange() const override { return hostRange_; }

    // Called when the host has changed the value, on the host's thread, the render thread included; null: nobody is.
    // Set before the host has the parameter.
    void setHostChangeHandler(std::function<void()> handler) { hostChangeHandler_ = std::move(handler); }

    // Tells the host what the unit's value is now, without writing it again. Any thread; the toolkit takes its locks of
    // listeners for it.
    void announceValue() { sendValueChangedMessageToListeners(getValue()); }

    int getNumSteps() const override;
    bool isDiscrete() const override { return range_.steps > 0; }
    bool isBoolean() const override { return range_.steps == 2; }
    juce::String getText(float normalisedValue, int maximumLength) const override;
    float getValueForText(const juce::String& text) const override;
    juce::String getCurrentValueAsText() const override { return getText(getValue(), 0); }

private:
    const QVMParameter& parameter_;
    AudioUnitInstance& unit_;
    const HostRange range_;
    const juce::NormalisableRange<float> hostRange_;
    std::function<void()> hostChangeHandler_;
};

} // namespace QVM_NAMESPACE
