// The built VST3 and LV2 on screen: what a host sees of them, what it sets and what comes back. What is expected comes
// from the host's side alone: what it is told, what its parameters read, and what is on the screen.
#include "plugin/host/InHost.h"

#include "description/Description.h"
#include "description/Presets.h"

#include <cmath>
#include <map>
#include <string>

namespace QVM_NAMESPACE {
namespace {

TEST_P(InHost, OpensAtItsSizeAndPaints) {
    open();
    EXPECT_EQ(plugin_.editor()->getWidth(), 480);
    EXPECT_EQ(plugin_.editor()->getHeight(), 320);
    const Picture whole = wholePicture();
    EXPECT_GT(whole.distinctColours(), 50U);
    EXPECT_GT(pictureOf(map_.frameOf(pidTiltGain)).countOf(gainColour, 4), 200U);
    EXPECT_TRUE(plugin_.recorder().lines.empty()) << plugin_.recorder().lines.front();
}

TEST_P(InHost, AutomationMovesTheHandleAndSendsNothingBack) {
    open();
    const Rect frame = map_.frameOf(pidTiltGain);
    const Picture before = pictureOf(frame);
    gain().setValue(0.75f);
    const Point there = gainHandle(9);
    const Rect handle{there.x - 18, there.y - 10, 36, 20};
    // The handle goes to where nine decibels are.
    EXPECT_TRUE(comesTrue([&] { return pictureOf(handle).countOf(gainColour, 4) > 300; }));
    plugin_.run(0.6);
    const Picture after = pictureOf(frame);
    EXPECT_GT(before.differingPixels(after), 300U);
    EXPECT_TRUE(plugin_.recorder().lines.empty()) << plugin_.recorder().lines.front();
    EXPECT_NEAR(gainDb(), 9, 0.01);
    EXPECT_GT(pictureOf(handle).countOf(gainColour, 4), 300U);

    // The same automation again leaves the picture as it is.
    gain().setValue(0.75f);
    plugin_.run(0.6);
    EXPECT_EQ(after.differingPixels(pictureOf(frame)), 0U);
}

TEST_P(InHost, AutomationMovesTheCurve) {
    open();
    EXPECT_TRUE(comesTrue([&] { return pictureOf(curveBox).countOf(0xFFFFFF, 8) > 40; })) << "the curve has come";
    plugin_.run(1);
    const Picture before = pictureOf(curveBox);
    gain().setValue(0.75f);
    EXPECT_TRUE(comesTrue([&] { return before.differingPixels(pictureOf(curveBox)) > 100; }));
    plugin_.run(0.6);
    const Picture after = pictureOf(curveBox);
    plugin_.run(0.3);
    EXPECT_EQ(after.differingPixels(pictureOf(curveBox)), 0U) << "it has arrived";
}

TEST_P(InHost, AudioMovesTheMeterAndNothingElse) {
    open();
    plugin_.setAmplitude(0.9f);
    plugin_.run(2.5);
    const Picture loud = wholePicture();
    plugin_.setAmplitude(0.01f);
    std::size_t inMeter = 0, elsewhere = 0;
    const auto compare = [&](const Picture& quiet) {
        inMeter = elsewhere = 0;
        for (std::size_t i = 0; i < loud.pixels.size(); ++i) {
            if (loud.pixels[i] == quiet.pixels[i]) continue;
            const auto width = static_cast<std::size_t>(loud.width);
            const Point at{static_cast<double>(i % width) + 0.5, static_cast<double>(i / width) + 0.5};
            ++(meterTrack.contains(at) ? inMeter : elsewhere);
        }
    };
    EXPECT_TRUE(comesTrue([&] {
        compare(wholePicture());
        return inMeter > 50;
    }));
    EXPECT_EQ(elsewhere, 0U);
}

TEST_P(InHost, TwoInstancesKeepApart) {
    HostedPlugin other(GetParam());
    ASSERT_NE(other.instance(), nullptr);
    open();
    pointAt(gainHandle(0));
    press();
    glideTo(gainHandle(12));
    release();
    other.run(0.2);
    EXPECT_NEAR(gainDb(), 12, 0.6);
    EXPECT_NEAR(other.parameter("Tilt Gain").getValue(), 0.5, 1e-6);
}

TEST_P(InHost, StateComesBackInAnotherInstance) {
    gain().setValue(0.9f);
    plugin_.run(0.2);
    juce::MemoryBlock bytes;
    plugin_.instance()->getStateInformation(bytes);
    HostedPlugin other(GetParam());
    other.instance()->setStateInformation(bytes.getData(), static_cast<int>(bytes.getSize()));
    other.run(0.2);
    EXPECT_NEAR(other.parameter("Tilt Gain").getValue(), 0.9, 1e-5);
}

// As programs in one format and as presets of the bundle in the other; the host's own library reads both. The editor is
// open because with none this host does not hear of values that a plug-in changes by itself.
TEST_P(InHost, TheFactoryPresetsAreOnOfferAndChangeEverythingButTheQualityMode) {
    open();
    juce::AudioPluginInstance& instance = *plugin_.instance();
    std::map<juce::String, int> programs;
    for (int i = 0; i < instance.getNumPrograms(); ++i)
        programs[instance.getProgramName(i)] = i;
    ASSERT_EQ(programs.size(), QVMPresetCount);
    for (const std::string& name : GetPresets()->stringValues)
        EXPECT_TRUE(programs.contains(juce::String::fromUTF8(name.c_str()))) << name;

    plugin_.parameter("HQ Mode").setValue(1);
    plugin_.run(0.2);
    instance.setCurrentProgram(programs["Cellphone"]);
    EXPECT_TRUE(comesTrue([this] { return std::abs(gainDb() - 7) < 0.01; })) << gainDb();
    EXPECT_NEAR(plugin_.parameter("Filter Resonance Low").getValue(), 9.0 / 18, 1e-4);
    EXPECT_EQ(plugin_.parameter("HQ Mode").getValue(), 1);
}

TEST_P(InHost, ARestoredStateKeepsItsValuesThoughItHasAProgramsName) {
    open();
    juce::AudioPluginInstance& instance = *plugin_.instance();
    for (int i = 0; i < instance.getNumPrograms(); ++i)
        if (instance.getProgramName(i) == "Air") instance.setCurrentProgram(i);
    EXPECT_TRUE(comesTrue([this] { return std::abs(gainDb()) > 1; }));
    gain().setValue(0.9f);
    plugin_.run(0.3);
    juce::MemoryBlock bytes;
    instance.getStateInformation(bytes);
    HostedPlugin other(GetParam());
    other.instance()->setStateInformation(bytes.getData(), static_cast<int>(bytes.getSize()));
    other.run(0.5);
    EXPECT_NEAR(other.parameter("Tilt Gain").getValue(), 0.9, 1e-5);
    EXPECT_NEAR(other.parameter("Tilt Range High").getValue(), plugin_.parameter("Tilt Range High").getValue(), 1e-5);
}

INSTANTIATE_TEST_SUITE_P(Vst3, InHost, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, InHost, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

} // namespace
} // namespace QVM_NAMESPACE
