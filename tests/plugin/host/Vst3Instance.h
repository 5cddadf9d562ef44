// An instance of the VST3 by the format's own interface: the component and its edit controller, connected, without an
// editor. What it asks of its host is lost.
#pragma once

#include "plugin/host/Vst3Module.h"

#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivsteditcontroller.h>

#include <map>
#include <string>
#include <vector>

namespace slantwise_tests {

class Vst3Instance {
public:
    // The module outlives the instance.
    explicit Vst3Instance(Vst3Module& module);
    Vst3Instance(const Vst3Instance&) = delete;
    Vst3Instance& operator=(const Vst3Instance&) = delete;
    ~Vst3Instance();

    Steinberg::Vst::IComponent& component() const { return *component_; }
    Steinberg::Vst::IEditController& controller() const { return *controller_; }
    std::vector<Steinberg::Vst::ParameterInfo> parameters() const;
    // The one of this title; throws where there is none.
    Steinberg::Vst::ParameterInfo parameter(const std::string& title) const;
    std::string textOf(Steinberg::Vst::ParamID id, double normalisedValue) const;

    // For what the rest leaves out. The component is neither set up nor active.
    Steinberg::IPtr<Steinberg::Vst::IAudioProcessor> audio() const;

    // Blocks of 64 frames at 48 kHz, a square wave of amplitude 1; the highest sample of the last.
    float runBlocks(int count);

private:
    Steinberg::IPtr<Steinberg::Vst::IComponent> component_;
    Steinberg::IPtr<Steinberg::Vst::IEditController> controller_;
};

// Text of the format in UTF-8.
std::string plainText(const Steinberg::Vst::TChar* text);

} // namespace slantwise_tests
