#include "plugin/host/Vst3Block.h"

#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivstparameterchanges.h>

#include <array>
#include <list>
#include <stdexcept>

namespace slantwise_tests {

namespace {

using namespace Steinberg;

// Objects that live as long as the block: nobody counts references.
template <class Interface>
class Lasting : public Interface {
public:
    tresult PLUGIN_API queryInterface(const TUID, void** object) override {
        *object = nullptr;
        return kNoInterface;
    }
    uint32 PLUGIN_API addRef() override { return 1; }
    uint32 PLUGIN_API release() override { return 1; }
};

// The values of one parameter, of which the last counts.
class Queue final : public Lasting<Vst::IParamValueQueue> {
public:
    explicit Queue(Vst::ParamID id) : id_(id) {}
    Vst::ParamID PLUGIN_API getParameterId() override { return id_; }
    int32 PLUGIN_API getPointCount() override { return 1; }
    tresult PLUGIN_API getPoint(int32, int32& offset, Vst::ParamValue& value) override {
        offset = 0;
        value = value_;
        return kResultTrue;
    }
    tresult PLUGIN_API addPoint(int32, Vst::ParamValue value, int32& index) override {
        value_ = value;
        index = 0;
        return kResultTrue;
    }

private:
    const Vst::ParamID id_;
    Vst::ParamValue value_ = 0;
};

class Changes final : public Lasting<Vst::IParameterChanges> {
public:
    std::list<Queue> queues;

    int32 PLUGIN_API getParameterCount() override { return static_cast<int32>(queues.size()); }
    Vst::IParamValueQueue* PLUGIN_API getParameterData(int32 index) override {
        return &*std::next(queues.begin(), index);
    }
    Vst::IParamValueQueue* PLUGIN_API addParameterData(const Vst::ParamID& id, int32& index) override {
        index = getParameterCount();
        return &queues.emplace_back(id);
    }
};

class AudioProcessorFinder final : public juce::ExtensionsVisitor {
public:
    Vst::IAudioProcessor* found = nullptr;

    void visitVST3Client(const VST3Client& client) override {
        void* object = nullptr;
        if (client.getIComponentPtr()->queryInterface(Vst::IAudioProcessor::iid, &object) == kResultOk)
            found = static_cast<Vst::IAudioProcessor*>(object);
    }
};

std::string nameOf(juce::AudioPluginInstance& instance, Vst::ParamID id) {
    const juce::String wanted(id);
    for (auto* parameter : instance.getParameters()) {
        const auto* hosted = dynamic_cast<juce::HostedAudioProcessorParameter*>(parameter);
        if (hosted && hosted->getParameterID() == wanted) return parameter->getName(100).toStdString();
    }
    return wanted.toStdString();
}

} // namespace

std::map<std::string, float> parametersChangedByBlock(juce::AudioPluginInstance& instance) {
    constexpr int32 channels = 2, frames = 64;
    AudioProcessorFinder finder;
    instance.getExtensions(finder);
    if (!finder.found) throw std::invalid_argument("no VST3");

    std::array<std::array<float, frames>, channels> samples{};
    std::array<float*, channels> pointers = {samples[0].data(), samples[1].data()};
    Vst::AudioBusBuffers bus;
    bus.numChannels = channels;
    bus.channelBuffers32 = pointers.data();
    Changes none, changes;
    Vst::ProcessData data;
    data.symbolicSampleSize = Vst::kSample32;
    data.numSamples = frames;
    data.numInputs = data.numOutputs = 1;
    data.inputs = data.outputs = &bus;
    data.inputParameterChanges = &none;
    data.outputParameterChanges = &changes;
    finder.found->process(data);
    finder.found->release();

    std::map<std::string, float> result;
    for (Queue& queue : changes.queues) {
        int32 offset = 0;
        Vst::ParamValue value = 0;
        queue.getPoint(0, offset, value);
        result[nameOf(instance, queue.getParameterId())] = static_cast<float>(value);
    }
    return result;
}

} // namespace slantwise_tests
