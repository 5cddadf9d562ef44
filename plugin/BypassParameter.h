// The host's bypass: the master switch once more, the other way round.
//
// Bypassed by the host, the unit goes on running and fades to what comes in, as if its own switch had been used. The
// parameter is no part of the product's list, so that the switch keeps its place and sense in every session.
#pragma once

#include "plugin/UnitParameter.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>

namespace QVM_NAMESPACE {

class BypassParameter final : public juce::AudioProcessorParameterWithID {
public:
    // The master switch is borrowed and outlives this. `hostChangedIt` is called when the host has used the bypass, on
    // the host's thread, the render thread included.
    BypassParameter(UnitParameter& master, std::function<void()> hostChangedIt);

    // 1 while the master switch is off; any thread, no locks.
    float getValue() const override;
    void setValue(float normalisedValue) override;
    float getDefaultValue() const override { return 0; }

    // Tells the host what the value is now. Render thread.
    void announceValue() { sendValueChangedMessageToListeners(getValue()); }

    int getNumSteps() const override { return 2; }
    bool isDiscrete() const override { return true; }
    bool isBoolean() const override { return true; }
    juce::String getText(float normalisedValue, int maximumLength) const override;
    float getValueForText(const juce::String& text) const override;

private:
    UnitParameter& master_;
    const std::function<void()> hostChangedIt_;
};

} // namespace QVM_NAMESPACE
