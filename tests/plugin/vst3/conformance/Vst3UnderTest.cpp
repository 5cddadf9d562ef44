#include "plugin/vst3/conformance/Vst3UnderTest.h"

#include <gtest/gtest.h>

#include <public.sdk/source/common/memorystream.h>

namespace slantwise_tests {

using namespace Steinberg;

Vst3UnderTest::Running::Running(Vst3UnderTest& plugin, int32 sampleSize, double rateHz) : plugin_(plugin) {
    plugin_.setUp(sampleSize, rateHz);
    EXPECT_EQ(plugin_.component().setActive(true), kResultTrue);
    plugin_.processor()->setProcessing(true);
}

Vst3UnderTest::Running::~Running() {
    plugin_.processor()->setProcessing(false);
    EXPECT_EQ(plugin_.component().setActive(false), kResultTrue);
}

void Vst3UnderTest::setUp(int32 sampleSize, double rateHz, int32 mode) {
    Vst::SpeakerArrangement stereo = Vst::SpeakerArr::kStereo;
    EXPECT_EQ(processor()->setBusArrangements(&stereo, 1, &stereo, 1), kResultTrue);
    for (const auto direction : {Vst::kInput, Vst::kOutput})
        EXPECT_EQ(component().activateBus(Vst::kAudio, direction, 0, true), kResultTrue);
    Vst::ProcessSetup setup = {mode, sampleSize, maxFrames, rateHz};
    EXPECT_EQ(processor()->setupProcessing(setup), kResultTrue);
}

void Vst3UnderTest::restore(MemoryStream& state) {
    state.seek(0, IBStream::kIBSeekSet, nullptr);
    EXPECT_EQ(component().setState(&state), kResultTrue);
    state.seek(0, IBStream::kIBSeekSet, nullptr);
    EXPECT_EQ(controller().setComponentState(&state), kResultTrue);
}

double Vst3UnderTest::valueOfState(Vst::ParamID id) {
    MemoryStream state;
    component().getState(&state);
    Vst3Instance reader(module_);
    state.seek(0, IBStream::kIBSeekSet, nullptr);
    reader.component().setState(&state);
    reader.controller().setComponentState(&state);
    return reader.controller().getParamNormalized(id);
}

} // namespace slantwise_tests
