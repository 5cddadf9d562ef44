// The data of one call to process, as a host prepares it: buffers of either
// sample size, and values of parameters at samples of the block.
#pragma once

#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstparameterchanges.h>

#include <deque>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace slantwise_tests {

// Objects that live as long as the call: nobody counts references.
template <class Interface>
class Lasting : public Interface {
public:
    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID, void** object) override {
        *object = nullptr;
        return Steinberg::kNoInterface;
    }
    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }
    Steinberg::uint32 PLUGIN_API release() override { return 1; }
};

// The values of one parameter in a block.
class Vst3Points final : public Lasting<Steinberg::Vst::IParamValueQueue> {
public:
    using Points = std::vector<std::pair<Steinberg::int32, Steinberg::Vst::ParamValue>>; // by sample
    explicit Vst3Points(Steinberg::Vst::ParamID id, Points points = {}) : id_(id), points_(std::move(points)) {}

    const Points& points() const { return points_; }
    Steinberg::Vst::ParamID PLUGIN_API getParameterId() override { return id_; }
    Steinberg::int32 PLUGIN_API getPointCount() override { return static_cast<Steinberg::int32>(points_.size()); }
    Steinberg::tresult PLUGIN_API getPoint(Steinberg::int32 index, Steinberg::int32& offset,
                                           Steinberg::Vst::ParamValue& value) override {
        if (index < 0 || index >= getPointCount()) return Steinberg::kResultFalse;
        std::tie(offset, value) = points_[static_cast<std::size_t>(index)];
        return Steinberg::kResultTrue;
    }
    Steinberg::tresult PLUGIN_API addPoint(Steinberg::int32 offset, Steinberg::Vst::ParamValue value,
                                           Steinberg::int32& index) override {
        index = getPointCount();
        points_.emplace_back(offset, value);
        return Steinberg::kResultTrue;
    }

private:
    const Steinberg::Vst::ParamID id_;
    Points points_;
};

class Vst3Changes final : public Lasting<Steinberg::Vst::IParameterChanges> {
public:
    std::deque<Vst3Points> queues;

    Steinberg::int32 PLUGIN_API getParameterCount() override { return static_cast<Steinberg::int32>(queues.size()); }
    Steinberg::Vst::IParamValueQueue* PLUGIN_API getParameterData(Steinberg::int32 index) override {
        const auto at = static_cast<std::size_t>(index);
        return at < queues.size() ? &queues[at] : nullptr;
    }
    Steinberg::Vst::IParamValueQueue* PLUGIN_API addParameterData(const Steinberg::Vst::ParamID& id,
                                                                  Steinberg::int32& index) override {
        index = getParameterCount();
        return &queues.emplace_back(id);
    }
};

// Stereo in and out, not in place. Borrows nothing; what it points at is its
// own.
template <class Sample>
struct Vst3Block {
    explicit Vst3Block(Steinberg::int32 frames) {
        for (std::size_t channel = 0; channel < 2; ++channel) {
            in[channel].assign(static_cast<std::size_t>(frames), Sample{0});
            out[channel].assign(static_cast<std::size_t>(frames), Sample{9}); // is to be overwritten
            inPointers[channel] = in[channel].data();
            outPointers[channel] = out[channel].data();
        }
        constexpr bool isSingle = std::is_same_v<Sample, float>;
        if constexpr (isSingle) {
            input.channelBuffers32 = inPointers;
            output.channelBuffers32 = outPointers;
        } else {
            input.channelBuffers64 = inPointers;
            output.channelBuffers64 = outPointers;
        }
        input.numChannels = output.numChannels = 2;
        data.symbolicSampleSize = isSingle ? Steinberg::Vst::kSample32 : Steinberg::Vst::kSample64;
        data.numSamples = frames;
        data.numInputs = data.numOutputs = 1;
        data.inputs = &input;
        data.outputs = &output;
        data.inputParameterChanges = &changes;
        data.outputParameterChanges = &answers;
    }
    Vst3Block(const Vst3Block&) = delete;
    Vst3Block& operator=(const Vst3Block&) = delete;

    void fill(Sample value) {
        for (auto& channel : in)
            channel.assign(channel.size(), value);
    }

    std::vector<Sample> in[2], out[2];
    Sample* inPointers[2];
    Sample* outPointers[2];
    Steinberg::Vst::AudioBusBuffers input, output;
    Vst3Changes changes, answers;
    Steinberg::Vst::ProcessData data;
};

} // namespace slantwise_tests
