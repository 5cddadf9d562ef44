// What strict hosts and validators of the format hold a plug-in to: each rule
// by itself, all of them one after the other on one instance, and in an order
// of chance, as what one leaves behind must not break the next.
#include "plugin/host/Vst3Instance.h"
#include "plugin/host/Vst3Process.h"

#include <gtest/gtest.h>

#include <pluginterfaces/vst/ivstmessage.h>
#include <pluginterfaces/vst/ivstprocesscontext.h>
#include <pluginterfaces/vst/ivstunits.h>
#include <public.sdk/source/common/memorystream.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <random>
#include <set>
#include <thread>

namespace slantwise_tests {
namespace {

using namespace Steinberg;

constexpr int32 maxFrames = 512;

class Rules {
public:
    explicit Rules(Vst3Module& module) : module_(module), instance_(module) {}

    void unitsAndProgramLists() {
        const FUnknownPtr<Vst::IUnitInfo> units(&controller());
        ASSERT_TRUE(units);
        std::set<Vst::UnitID> ids;
        std::set<Vst::ProgramListID> lists, wanted;
        for (int32 i = 0; i < units->getProgramListCount(); ++i) {
            Vst::ProgramListInfo list;
            ASSERT_EQ(units->getProgramListInfo(i, list), kResultTrue);
            EXPECT_TRUE(lists.insert(list.id).second);
            EXPECT_GE(list.id, 0);
            EXPECT_GT(list.programCount, 0);
            for (int32 program = 0; program < list.programCount; ++program) {
                Vst::String128 name = {};
                EXPECT_EQ(units->getProgramName(list.id, program, name), kResultTrue);
                EXPECT_NE(plainText(name), "") << program;
            }
        }
        ASSERT_GE(units->getUnitCount(), 1);
        for (int32 i = 0; i < units->getUnitCount(); ++i) {
            Vst::UnitInfo unit;
            ASSERT_EQ(units->getUnitInfo(i, unit), kResultTrue);
            EXPECT_TRUE(ids.insert(unit.id).second);
            EXPECT_NE(plainText(unit.name), "");
            EXPECT_EQ(unit.parentUnitId, unit.id == Vst::kRootUnitId ? Vst::kNoParentUnitId : Vst::kRootUnitId);
            if (unit.programListId != Vst::kNoProgramListId) wanted.insert(unit.programListId);
        }
        EXPECT_TRUE(ids.count(Vst::kRootUnitId));
        EXPECT_EQ(wanted, lists) << "each list is a unit's, and each unit's is there";
        Vst::UnitInfo none;
        EXPECT_NE(units->getUnitInfo(units->getUnitCount(), none), kResultTrue);
        EXPECT_NE(units->getUnitInfo(-1, none), kResultTrue);
        for (const Vst::ParameterInfo& info : instance_.parameters()) {
            EXPECT_TRUE(ids.count(info.unitId)) << plainText(info.title);
        }
    }

    void parametersAreWellFormed() {
        std::set<Vst::ParamID> ids;
        int bypasses = 0;
        for (const Vst::ParameterInfo& info : instance_.parameters()) {
            const std::string title = plainText(info.title);
            EXPECT_TRUE(ids.insert(info.id).second) << title;
            EXPECT_LT(info.id, 0x80000000U) << title << ": the upper half is the hosts'";
            EXPECT_NE(title, "");
            EXPECT_GE(info.defaultNormalizedValue, 0) << title;
            EXPECT_LE(info.defaultNormalizedValue, 1) << title;
            EXPECT_GE(info.stepCount, 0) << title;
            const auto has = [&info](int32 flag) { return (info.flags & flag) != 0; };
            EXPECT_FALSE(has(Vst::ParameterInfo::kCanAutomate) && has(Vst::ParameterInfo::kIsReadOnly)) << title;
            EXPECT_FALSE(has(Vst::ParameterInfo::kIsHidden) && has(Vst::ParameterInfo::kCanAutomate)) << title;
            EXPECT_FALSE(has(Vst::ParameterInfo::kIsList) && info.stepCount == 0) << title;
            if (!has(Vst::ParameterInfo::kIsBypass)) continue;
            ++bypasses;
            EXPECT_EQ(info.stepCount, 1);
            EXPECT_TRUE(has(Vst::ParameterInfo::kCanAutomate));
        }
        EXPECT_EQ(bypasses, 1);
        Vst::ParameterInfo none;
        EXPECT_NE(controller().getParameterInfo(-1, none), kResultTrue);
        EXPECT_NE(controller().getParameterInfo(controller().getParameterCount(), none), kResultTrue);
    }

    void valuesGoToTextAndPlainAndBack() {
        for (const Vst::ParameterInfo& info : instance_.parameters()) {
            const std::string title = plainText(info.title);
            const int32 steps = info.stepCount > 0 ? info.stepCount : 16;
            for (int32 i = 0; i <= steps; ++i) {
                const double value = static_cast<double>(i) / steps;
                Vst::String128 text = {};
                ASSERT_EQ(controller().getParamStringByValue(info.id, value, text), kResultTrue) << title;
                EXPECT_NE(plainText(text), "") << title;
                Vst::ParamValue again = -1;
                ASSERT_EQ(controller().getParamValueByString(info.id, text, again), kResultTrue) << title;
                Vst::String128 sameText = {};
                controller().getParamStringByValue(info.id, again, sameText);
                EXPECT_EQ(plainText(sameText), plainText(text)) << title << " at " << value;
                const Vst::ParamValue plain = controller().normalizedParamToPlain(info.id, value);
                EXPECT_NEAR(controller().plainParamToNormalized(info.id, plain), value, 1e-6) << title;
                EXPECT_EQ(controller().setParamNormalized(info.id, value), kResultTrue) << title;
                EXPECT_NEAR(controller().getParamNormalized(info.id), value, 1e-6) << title;
            }
        }
        for (const Vst::ParameterInfo& info : instance_.parameters())
            controller().setParamNormalized(info.id, info.defaultNormalizedValue);
        EXPECT_NE(controller().setParamNormalized(0x7ffffff1, 0.5), kResultTrue) << "there is none";
    }

    void busesAreOneStereoPair() {
        for (const auto direction : {Vst::kInput, Vst::kOutput}) {
            ASSERT_EQ(component().getBusCount(Vst::kAudio, direction), 1);
            EXPECT_EQ(component().getBusCount(Vst::kEvent, direction), 0);
            Vst::BusInfo info;
            ASSERT_EQ(component().getBusInfo(Vst::kAudio, direction, 0, info), kResultTrue);
            EXPECT_EQ(info.channelCount, 2);
            EXPECT_EQ(info.busType, Vst::kMain);
            EXPECT_TRUE(info.flags & Vst::BusInfo::kDefaultActive);
            EXPECT_NE(plainText(info.name), "");
            for (const int32 index : {-1, 1}) {
                EXPECT_NE(component().getBusInfo(Vst::kAudio, direction, index, info), kResultTrue);
                EXPECT_NE(component().activateBus(Vst::kAudio, direction, index, true), kResultTrue) << index;
            }
            for (const TBool active : {false, true, true, false, true})
                EXPECT_EQ(component().activateBus(Vst::kAudio, direction, 0, active), kResultTrue);
        }
    }

    void arrangementsAreTakenOrRefused() {
        const auto arrange = [this](Vst::SpeakerArrangement in, Vst::SpeakerArrangement out) {
            return processor()->setBusArrangements(&in, 1, &out, 1) == kResultTrue;
        };
        using namespace Vst::SpeakerArr;
        EXPECT_TRUE(arrange(kMono, kMono));
        EXPECT_TRUE(arrange(kMono, kStereo));
        EXPECT_TRUE(arrange(kStereo, kStereo));
        EXPECT_FALSE(arrange(kStereo, kMono));
        EXPECT_FALSE(arrange(k51, k51));
        EXPECT_FALSE(arrange(kEmpty, kStereo));
        processor()->setBusArrangements(nullptr, 0, nullptr, 0);
        Vst::SpeakerArrangement kept = 0;
        EXPECT_EQ(processor()->getBusArrangement(Vst::kOutput, 0, kept), kResultTrue);
        EXPECT_EQ(kept, kStereo) << "what was refused changes nothing";
        EXPECT_NE(processor()->getBusArrangement(Vst::kOutput, 1, kept), kResultTrue);
        EXPECT_NE(processor()->getBusArrangement(Vst::kInput, -1, kept), kResultTrue);
    }

    template <class Sample>
    void everyBlockLengthAtEveryRate() {
        for (const double rate : {22050.0, 44100.0, 48000.0, 96000.0, 192000.0, 384000.0}) {
            const Running running(*this, sizeOf<Sample>(), rate);
            for (const int32 frames : {1, 2, 15, 16, 64, 511, maxFrames, 3, 0, 7}) {
                Vst3Block<Sample> block(frames);
                block.fill(Sample(0.5));
                EXPECT_EQ(processor()->process(block.data), kResultTrue) << frames;
                expectFinite(block);
            }
        }
    }

    void suspendAndResume() {
        for (int i = 0; i < 3; ++i) {
            const Running running(*this, Vst::kSample32);
            for (int j = 0; j < 3; ++j) {
                processor()->setProcessing(false);
                processor()->setProcessing(true);
                Vst3Block<float> block(maxFrames);
                EXPECT_EQ(processor()->process(block.data), kResultTrue);
            }
        }
        // Without setProcessing, and twice, as some hosts do.
        setUp(Vst::kSample32);
        for (const TBool active : {true, true, false, false, true})
            EXPECT_EQ(component().setActive(active), kResultTrue);
        Vst3Block<float> block(64);
        EXPECT_EQ(processor()->process(block.data), kResultTrue);
        component().setActive(false);
    }

    void sampleSizes() {
        EXPECT_EQ(processor()->canProcessSampleSize(Vst::kSample32), kResultTrue);
        EXPECT_EQ(processor()->canProcessSampleSize(Vst::kSample64), kResultTrue);
        EXPECT_NE(processor()->canProcessSampleSize(7), kResultTrue);
        EXPECT_EQ(processor()->getLatencySamples(), 0U);
        EXPECT_EQ(processor()->getTailSamples(), Vst::kNoTail);
    }

    void flushWithoutBuffers() {
        const Vst::ParamID gain = instance_.parameter("Tilt Gain").id;
        const Running running(*this, Vst::kSample32);
        for (const double value : {0.25, 0.75, 0.5}) {
            Vst::ProcessData data;
            Vst3Changes changes, answers;
            changes.queues.emplace_back(gain, Vst3Points::Points{{0, value}});
            data.symbolicSampleSize = Vst::kSample32;
            data.inputParameterChanges = &changes;
            data.outputParameterChanges = &answers;
            EXPECT_EQ(processor()->process(data), kResultTrue);
            EXPECT_NEAR(valueOfState(gain), value, 1e-6);
        }
        Vst::ProcessData empty;
        empty.symbolicSampleSize = Vst::kSample32;
        EXPECT_EQ(processor()->process(empty), kResultTrue) << "no changes, no place for any";
    }

    void busesMayHaveNoBuffers() {
        const Running running(*this, Vst::kSample32);
        Vst3Block<float> noChannels(64);
        noChannels.input.channelBuffers32 = noChannels.output.channelBuffers32 = nullptr;
        noChannels.input.numChannels = noChannels.output.numChannels = 0;
        processor()->process(noChannels.data);
        Vst3Block<float> nullChannels(64);
        nullChannels.inPointers[1] = nullChannels.outPointers[1] = nullptr;
        processor()->process(nullChannels.data);
        Vst3Block<float> noInput(64);
        noInput.data.numInputs = 0;
        noInput.data.inputs = nullptr;
        processor()->process(noInput.data);
        Vst3Block<float> noOutput(64);
        noOutput.data.numOutputs = 0;
        noOutput.data.outputs = nullptr;
        processor()->process(noOutput.data);
        Vst3Block<float> inPlace(64);
        inPlace.output.channelBuffers32 = inPlace.inPointers;
        inPlace.fill(0.25f);
        EXPECT_EQ(processor()->process(inPlace.data), kResultTrue);
        Vst3Block<float> block(64);
        EXPECT_EQ(processor()->process(block.data), kResultTrue) << "and goes on";
        expectFinite(block);
    }

    void silenceIsToldAndUnderstood() {
        const Running running(*this, Vst::kSample32);
        Vst3Block<float> silent(maxFrames);
        silent.input.silenceFlags = 3;
        for (int i = 0; i < 200; ++i)
            processor()->process(silent.data);
        for (const auto& channel : silent.out)
            EXPECT_EQ(*std::max_element(channel.begin(), channel.end()), 0);
        Vst3Block<float> loud(maxFrames);
        loud.fill(0.5f);
        loud.output.silenceFlags = 3; // the host's leftovers
        processor()->process(loud.data);
        EXPECT_EQ(loud.output.silenceFlags, 0U) << "what sounds is not called silent";
    }

    void valuesAtSamplesOfABlock() {
        const Running running(*this, Vst::kSample32);
        const auto parameters = instance_.parameters();
        Vst3Block<float> block(maxFrames);
        block.fill(0.5f);
        for (const Vst::ParameterInfo& info : parameters)
            block.changes.queues.emplace_back(
                info.id,
                Vst3Points::Points{{0, 0.0}, {0, 0.3}, {100, 1.0}, {maxFrames - 1, info.defaultNormalizedValue}});
        block.changes.queues.emplace_back(0x7ffffff1, Vst3Points::Points{{0, 0.5}}); // there is none
        block.changes.queues.emplace_back(parameters[1].id);                         // of no points
        EXPECT_EQ(processor()->process(block.data), kResultTrue);
        expectFinite(block);
        for (const double value : {0.125, 0.875}) {
            Vst3Block<float> late(maxFrames);
            late.changes.queues.emplace_back(parameters[1].id, Vst3Points::Points{{0, 0.5}, {maxFrames - 1, value}});
            processor()->process(late.data);
            EXPECT_NEAR(valueOfState(parameters[1].id), value, 1e-6) << "the last one counts";
        }
    }

    void contextsOfEveryKind() {
        Vst::ProcessContext context = {};
        for (const uint32 state : {0xffffffffU, uint32(Vst::ProcessContext::kPlaying), 0U}) {
            const Running running(*this, Vst::kSample32);
            context.state = state;
            context.sampleRate = 48000;
            Vst3Block<float> block(64);
            block.data.processContext = &context;
            EXPECT_EQ(processor()->process(block.data), kResultTrue);
        }
        for (const int32 mode : {Vst::kOffline, Vst::kPrefetch, Vst::kRealtime})
            setUp(Vst::kSample32, 48000, mode);
        EXPECT_NE(component().setIoMode(Vst::kAdvanced), kInternalError);
    }

    void stateBeforeAndWhileActive() {
        const Vst::ParamID gain = instance_.parameter("Tilt Gain").id;
        MemoryStream saved, again;
        controller().setParamNormalized(gain, 0.875);
        ASSERT_EQ(component().getState(&saved), kResultTrue);
        controller().setParamNormalized(gain, 0.25);
        restore(saved);
        EXPECT_NEAR(controller().getParamNormalized(gain), 0.875, 1e-6);
        {
            const Running running(*this, Vst::kSample32);
            controller().setParamNormalized(gain, 0.25);
            restore(saved);
            EXPECT_NEAR(controller().getParamNormalized(gain), 0.875, 1e-6);
            ASSERT_EQ(component().getState(&again), kResultTrue);
        }
        EXPECT_EQ(bytesOf(again), bytesOf(saved));
        // A controller that stands elsewhere learns the values from the component's
        // state.
        Vst3Instance other(module_);
        saved.seek(0, IBStream::kIBSeekSet, nullptr);
        other.component().setState(&saved);
        saved.seek(0, IBStream::kIBSeekSet, nullptr);
        EXPECT_EQ(other.controller().setComponentState(&saved), kResultTrue);
        EXPECT_NEAR(other.controller().getParamNormalized(gain), 0.875, 1e-6);
        controller().setParamNormalized(gain, 0.5);
    }

    void statesThatAreNone() {
        const Vst::ParamID gain = instance_.parameter("Tilt Gain").id;
        controller().setParamNormalized(gain, 0.75);
        MemoryStream empty;
        component().setState(&empty);
        std::array<char, 64> bytes{};
        bytes.fill('x');
        MemoryStream garbage(bytes.data(), static_cast<TSize>(bytes.size()));
        component().setState(&garbage);
        EXPECT_NE(component().setState(nullptr), kResultTrue);
        EXPECT_NE(component().getState(nullptr), kResultTrue);
        EXPECT_NEAR(valueOfState(gain), 0.75, 1e-6);
        MemoryStream editing;
        controller().getState(&editing);
        editing.seek(0, IBStream::kIBSeekSet, nullptr);
        controller().setState(&editing);
    }

    void connectedAndParted() {
        const FUnknownPtr<Vst::IConnectionPoint> processing(&component()), editing(&controller());
        ASSERT_TRUE(processing && editing);
        processing->connect(nullptr);
        EXPECT_EQ(processing->disconnect(editing), kResultTrue);
        EXPECT_EQ(editing->disconnect(processing), kResultTrue);
        EXPECT_EQ(processing->connect(editing), kResultTrue);
        editing->connect(processing); // they know each other still
        const Vst::ParamID gain = instance_.parameter("Tilt Gain").id;
        controller().setParamNormalized(gain, 0.625);
        EXPECT_NEAR(valueOfState(gain), 0.625, 1e-6);
        TUID id = {};
        EXPECT_EQ(component().getControllerClassId(id), kResultTrue);
    }

    void otherThreadsAskWhileAudioRuns() {
        const Running running(*this, Vst::kSample32);
        std::atomic<bool> isOver = false;
        std::thread audio([&] {
            while (!isOver) {
                Vst3Block<float> block(64);
                processor()->process(block.data);
            }
        });
        for (int i = 0; i < 20; ++i) {
            for (const Vst::ParameterInfo& info : instance_.parameters()) {
                controller().setParamNormalized(info.id, (i % 5) / 4.0);
                controller().getParamNormalized(info.id);
            }
            MemoryStream state;
            component().getState(&state);
        }
        isOver = true;
        audio.join();
        for (const Vst::ParameterInfo& info : instance_.parameters())
            controller().setParamNormalized(info.id, info.defaultNormalizedValue);
    }

private:
    // Set up, active and processing for as long as it lives.
    class Running {
    public:
        Running(Rules& rules, int32 sampleSize, double rateHz = 48000) : rules_(rules) {
            rules_.setUp(sampleSize, rateHz);
            EXPECT_EQ(rules_.component().setActive(true), kResultTrue);
            rules_.processor()->setProcessing(true);
        }
        ~Running() {
            rules_.processor()->setProcessing(false);
            EXPECT_EQ(rules_.component().setActive(false), kResultTrue);
        }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        Rules& rules_;
    };

    Vst::IComponent& component() const { return instance_.component(); }
    Vst::IEditController& controller() const { return instance_.controller(); }
    FUnknownPtr<Vst::IAudioProcessor> processor() const { return FUnknownPtr<Vst::IAudioProcessor>(&component()); }

    template <class Sample>
    static constexpr int32 sizeOf() {
        return sizeof(Sample) == sizeof(float) ? Vst::kSample32 : Vst::kSample64;
    }
    void setUp(int32 sampleSize, double rateHz = 48000, int32 mode = Vst::kRealtime) {
        Vst::SpeakerArrangement stereo = Vst::SpeakerArr::kStereo;
        EXPECT_EQ(processor()->setBusArrangements(&stereo, 1, &stereo, 1), kResultTrue);
        for (const auto direction : {Vst::kInput, Vst::kOutput})
            EXPECT_EQ(component().activateBus(Vst::kAudio, direction, 0, true), kResultTrue);
        Vst::ProcessSetup setup = {mode, sampleSize, maxFrames, rateHz};
        EXPECT_EQ(processor()->setupProcessing(setup), kResultTrue);
    }
    template <class Sample>
    static void expectFinite(const Vst3Block<Sample>& block) {
        for (const auto& channel : block.out)
            for (const Sample sample : channel)
                ASSERT_TRUE(std::isfinite(sample) && std::abs(sample) < 8) << sample << " of " << channel.size();
    }
    void restore(MemoryStream& state) {
        state.seek(0, IBStream::kIBSeekSet, nullptr);
        EXPECT_EQ(component().setState(&state), kResultTrue);
        state.seek(0, IBStream::kIBSeekSet, nullptr);
        EXPECT_EQ(controller().setComponentState(&state), kResultTrue);
    }
    static std::string bytesOf(MemoryStream& stream) {
        return {stream.getData(), static_cast<std::size_t>(stream.getSize())};
    }
    // What the component holds, read by another instance.
    double valueOfState(Vst::ParamID id) {
        MemoryStream state;
        component().getState(&state);
        Vst3Instance reader(module_);
        state.seek(0, IBStream::kIBSeekSet, nullptr);
        reader.component().setState(&state);
        reader.controller().setComponentState(&state);
        return reader.controller().getParamNormalized(id);
    }

    Vst3Module& module_;
    Vst3Instance instance_;
};

struct Rule {
    const char* name;
    void (Rules::*check)();
};

const std::vector<Rule> rules = {
    {"UnitsAndProgramLists", &Rules::unitsAndProgramLists},
    {"ParametersAreWellFormed", &Rules::parametersAreWellFormed},
    {"ValuesGoToTextAndPlainAndBack", &Rules::valuesGoToTextAndPlainAndBack},
    {"BusesAreOneStereoPair", &Rules::busesAreOneStereoPair},
    {"ArrangementsAreTakenOrRefused", &Rules::arrangementsAreTakenOrRefused},
    {"EveryBlockLengthAtEveryRate32", &Rules::everyBlockLengthAtEveryRate<float>},
    {"EveryBlockLengthAtEveryRate64", &Rules::everyBlockLengthAtEveryRate<double>},
    {"SuspendAndResume", &Rules::suspendAndResume},
    {"SampleSizes", &Rules::sampleSizes},
    {"FlushWithoutBuffers", &Rules::flushWithoutBuffers},
    {"BusesMayHaveNoBuffers", &Rules::busesMayHaveNoBuffers},
    {"SilenceIsToldAndUnderstood", &Rules::silenceIsToldAndUnderstood},
    {"ValuesAtSamplesOfABlock", &Rules::valuesAtSamplesOfABlock},
    {"ContextsOfEveryKind", &Rules::contextsOfEveryKind},
    {"StateBeforeAndWhileActive", &Rules::stateBeforeAndWhileActive},
    {"StatesThatAreNone", &Rules::statesThatAreNone},
    {"ConnectedAndParted", &Rules::connectedAndParted},
    {"OtherThreadsAskWhileAudioRuns", &Rules::otherThreadsAskWhileAudioRuns},
};

class Vst3Conformance : public testing::TestWithParam<Rule> {};

TEST_P(Vst3Conformance, ByItself) {
    Vst3Module module;
    Rules instance(module);
    (instance.*GetParam().check)();
}

INSTANTIATE_TEST_SUITE_P(Rules, Vst3Conformance, testing::ValuesIn(rules),
                         [](const auto& given) { return std::string(given.param.name); });

TEST(Vst3ConformanceInARow, HoldsInOrderAndInTwentyOrdersOfChance) {
    Vst3Module module;
    std::vector<Rule> order = rules;
    for (unsigned seed = 0; seed <= 20; ++seed) {
        if (seed > 0) std::shuffle(order.begin(), order.end(), std::mt19937(seed));
        Rules instance(module);
        for (const Rule& rule : order) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", " << rule.name);
            (instance.*rule.check)();
            if (testing::Test::HasFailure()) return;
        }
    }
}

} // namespace
} // namespace slantwise_tests
