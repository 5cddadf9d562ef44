#include "plugin/host/Vst3Instance.h"

#include <pluginterfaces/base/funknown.h>
#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstmessage.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace slantwise_tests {

using namespace Steinberg;

Vst3Instance::Vst3Instance(Vst3Module& module)
    : component_(module.create<Vst::IComponent>(kVstAudioEffectClass)),
      controller_(module.create<Vst::IEditController>(kVstComponentControllerClass)) {
    component_->initialize(nullptr);
    controller_->initialize(nullptr);
    const FUnknownPtr<Vst::IConnectionPoint> processing(component_), editing(controller_);
    processing->connect(editing);
    editing->connect(processing);
    component_->activateBus(Vst::kAudio, Vst::kInput, 0, true);
    component_->activateBus(Vst::kAudio, Vst::kOutput, 0, true);
}

Vst3Instance::~Vst3Instance() {
    const FUnknownPtr<Vst::IConnectionPoint> processing(component_), editing(controller_);
    processing->disconnect(editing);
    editing->disconnect(processing);
    controller_->terminate();
    component_->terminate();
}

std::vector<Vst::ParameterInfo> Vst3Instance::parameters() const {
    std::vector<Vst::ParameterInfo> result(static_cast<std::size_t>(controller_->getParameterCount()));
    for (std::size_t i = 0; i < result.size(); ++i)
        if (controller_->getParameterInfo(static_cast<int32>(i), result[i]) != kResultTrue)
            throw std::runtime_error("no parameter " + std::to_string(i));
    return result;
}

Vst::ParameterInfo Vst3Instance::parameter(const std::string& title) const {
    for (const Vst::ParameterInfo& info : parameters())
        if (plainText(info.title) == title) return info;
    throw std::runtime_error("no parameter " + title);
}

std::string Vst3Instance::textOf(Vst::ParamID id, double normalisedValue) const {
    Vst::String128 text = {};
    controller_->getParamStringByValue(id, normalisedValue, text);
    return plainText(text);
}

IPtr<Vst::IAudioProcessor> Vst3Instance::audio() const {
    return FUnknownPtr<Vst::IAudioProcessor>(component_);
}

float Vst3Instance::runBlocks(int count) {
    constexpr int32 channels = 2, frames = 64;
    const FUnknownPtr<Vst::IAudioProcessor> processor(component_);
    Vst::ProcessSetup setup = {Vst::kRealtime, Vst::kSample32, frames, 48000};
    processor->setupProcessing(setup);
    component_->setActive(true);
    processor->setProcessing(true);
    std::array<std::array<float, frames>, channels> samples{};
    std::array<float*, channels> pointers = {samples[0].data(), samples[1].data()};
    Vst::AudioBusBuffers bus;
    bus.numChannels = channels;
    bus.channelBuffers32 = pointers.data();
    Vst::ProcessData data;
    data.symbolicSampleSize = Vst::kSample32;
    data.numSamples = frames;
    data.numInputs = data.numOutputs = 1;
    data.inputs = data.outputs = &bus;
    for (int i = 0; i < count; ++i) {
        for (auto& channel : samples)
            for (std::size_t frame = 0; frame < channel.size(); ++frame)
                channel[frame] = frame / 8 % 2 == 0 ? 1 : -1; // 3 kHz
        processor->process(data);
    }
    processor->setProcessing(false);
    component_->setActive(false);
    return *std::max_element(samples[0].begin(), samples[0].end());
}

std::string plainText(const Vst::TChar* text) {
    using Utf16 = juce::CharPointer_UTF16;
    return juce::String(Utf16(reinterpret_cast<const Utf16::CharType*>(text))).toStdString();
}

} // namespace slantwise_tests
