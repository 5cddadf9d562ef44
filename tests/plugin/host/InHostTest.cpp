// The built VST3 and LV2 with real pointer and key events. What is expected comes from the host's side alone: what it
// is told, what its parameters read, and what is on the screen.
#include "plugin/host/InHost.h"
#include "description/Description.h"
#include "description/Presets.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <malloc.h>

namespace QVM_NAMESPACE {
namespace {

// Where the pictures stand in the editor, in points.
constexpr Rect curveBox{422, 196, 54, 62}, meterTrack{363, 56, 12, 165};

// Bytes that this process has allocated and not given back, of the host and of the bundle, which share one heap. What
// the allocator keeps for later is none of them: that grows and shrinks with the order of things.
long liveHeapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<long>(info.uordblks + info.hblkhd);
}

TEST_P(InHost, OpensAtItsSizeAndPaints) {
    open();
    EXPECT_EQ(plugin_.editor()->getWidth(), 480);
    EXPECT_EQ(plugin_.editor()->getHeight(), 320);
    const Picture whole = wholePicture();
    EXPECT_GT(whole.distinctColours(), 50U);
    EXPECT_GT(pictureOf(map_.frameOf(tiltGain)).countOf(gainColour, 4), 200U);
    EXPECT_TRUE(plugin_.recorder().lines.empty()) << plugin_.recorder().lines.front();
}

TEST_P(InHost, ADragIsAGestureOfTheHost) {
    open();
    pointAt(gainHandle(0));
    press();
    glideTo(gainHandle(9));
    release();
    EXPECT_NEAR(gainDb(), 9, 0.6);
    const auto kinds = plugin_.recorder().kinds();
    ASSERT_FALSE(kinds.empty());
    std::string number; // of the parameter, as the host counts
    for (const std::string& kind : kinds)
        number = kind.substr(kind.find(' '));
    EXPECT_GE(std::count(kinds.begin(), kinds.end(), "value" + number), 3);
    // LV2 has no message for gestures on this kind of parameter.
    if (GetParam() == Format::vst3) {
        EXPECT_EQ(kinds.front(), "begin" + number);
        EXPECT_EQ(kinds.back(), "end" + number);
        EXPECT_EQ(std::count(kinds.begin(), kinds.end(), "begin" + number), 1);
        EXPECT_EQ(std::count(kinds.begin(), kinds.end(), "end" + number), 1);
    }
}

TEST_P(InHost, AutomationMovesTheHandleAndSendsNothingBack) {
    open();
    const Rect frame = map_.frameOf(tiltGain);
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
    plugin_.run(0.1);
    const Picture quiet = wholePicture();
    std::size_t inMeter = 0, elsewhere = 0;
    for (std::size_t i = 0; i < loud.pixels.size(); ++i) {
        if (loud.pixels[i] == quiet.pixels[i]) continue;
        const auto width = static_cast<std::size_t>(loud.width);
        const Point at{static_cast<double>(i % width) + 0.5, static_cast<double>(i / width) + 0.5};
        ++(meterTrack.contains(at) ? inMeter : elsewhere);
    }
    EXPECT_GT(inMeter, 50U);
    EXPECT_EQ(elsewhere, 0U);
}

TEST_P(InHost, AltClickResets) {
    gain().setValue(0.75f);
    open();
    plugin_.run(0.4);
    pointAt(gainHandle(9));
    hold("Alt_L");
    click();
    letGo("Alt_L");
    EXPECT_NEAR(gainDb(), 0, 0.001);
    const auto kinds = plugin_.recorder().kinds();
    const auto begins = std::count_if(kinds.begin(), kinds.end(), [](const auto& k) { return k[0] == 'b'; });
    const auto ends = std::count_if(kinds.begin(), kinds.end(), [](const auto& k) { return k[0] == 'e'; });
    EXPECT_EQ(begins, ends);
}

// A reset has no end of its own, and a partner neither beginning nor end; a host hears them all the same. LV2 has no
// message for gestures.
TEST_P(InHost, WhatAPressHoldsEndsWithIt) {
    gain().setValue(0.75f);
    open();
    plugin_.run(0.4);
    const auto count = [this](const char* kind) {
        const auto& lines = plugin_.recorder().lines;
        return std::count_if(lines.begin(), lines.end(), [&](const auto& line) { return line.starts_with(kind); });
    };
    const auto hears = [&](int begins, int ends) {
        if (GetParam() == Format::lv2) begins = ends = 0;
        return comesTrue([&] { return count("begin") == begins && count("end") == ends && count("value") > 0; });
    };
    pointAt(gainHandle(9));
    hold("Alt_L");
    press();
    EXPECT_TRUE(hears(1, 0));
    plugin_.run(0.5);
    EXPECT_EQ(count("end"), 0) << "the button is down";
    release();
    letGo("Alt_L");
    EXPECT_TRUE(hears(1, 1));
    EXPECT_NEAR(gainDb(), 0, 0.001);

    plugin_.recorder().lines.clear();
    pointAt(map_.handleOf(tiltRangeLow, 100));
    press();
    glideTo(map_.handleOf(tiltRangeLow, 20000)); // past half of what the high end has
    EXPECT_TRUE(hears(2, 0));
    plugin_.run(0.5);
    EXPECT_EQ(count("end"), 0) << "the button is down";
    release();
    EXPECT_TRUE(hears(2, 2));
}

// The same way of the hand, three times.
TEST_P(InHost, ControlDragsFineAndShiftDragsCoarse) {
    open();
    const auto dragWith = [&](const char* modifier) {
        gain().setValue(0.5f);
        plugin_.run(0.4);
        const Point from = gainHandle(0);
        pointAt(from);
        if (*modifier) hold(modifier);
        press();
        glideTo({from.x + 40, from.y});
        release();
        if (*modifier) letGo(modifier);
        return gainDb();
    };
    const double plain = dragWith(""), fine = dragWith("Control_L"), coarse = dragWith("Shift_L");
    EXPECT_GT(plain, 3);
    EXPECT_NEAR(plain / 0.5, std::round(plain / 0.5), 1e-3) << plain;
    EXPECT_GT(fine, 0);
    EXPECT_LT(fine, plain / 2);
    EXPECT_NEAR(fine / 0.1, std::round(fine / 0.1), 1e-3) << fine;
    EXPECT_NEAR(coarse / 1.5, std::round(coarse / 1.5), 1e-3) << coarse;
    EXPECT_NEAR(coarse, plain, 0.8);
}

TEST_P(InHost, AModifierPressedInMidDragMakesNoJump) {
    for (const char* modifier : {"Control_L", "Shift_L"}) {
        open();
        gain().setValue(0.5f);
        plugin_.run(0.4);
        const Point from = gainHandle(0);
        pointAt(from);
        press();
        glideTo({from.x + 50, from.y});
        const double before = gainDb();
        hold(modifier);
        glideTo({from.x + 51, from.y});
        EXPECT_NEAR(gainDb(), before, *modifier == 'C' ? 0.11 : 0.76 + 0.15) << modifier;
        release();
        letGo(modifier);
        plugin_.closeEditor();
    }
}

TEST_P(InHost, DoubleClickThenTypedDigitsAndReturnSetTheValue) {
    open();
    pointAt(gainHandle(0));
    screen_.button(1, true), screen_.button(1, false);
    screen_.button(1, true), screen_.button(1, false);
    plugin_.run(0.3);
    EXPECT_TRUE(keepsKeyboard());
    for (const char* key : {"4", "period", "5"})
        type(key);
    EXPECT_NEAR(gainDb(), 0, 0.001) << "nothing is sent before Return";
    type("Return");
    EXPECT_NEAR(gainDb(), 4.5, 0.001);
}

TEST_P(InHost, AnArrowKeySteps) {
    open();
    pointAt(gainHandle(0));
    click();
    EXPECT_TRUE(keepsKeyboard());
    type("Up");
    EXPECT_NEAR(gainDb(), 0.5, 0.001);
    type("Left");
    type("Left");
    EXPECT_NEAR(gainDb(), -0.5, 0.001);
}

TEST_P(InHost, TheWheelIsInertOverASlider) {
    open();
    pointAt(gainHandle(0));
    screen_.button(4, true), screen_.button(4, false);
    plugin_.run(0.3);
    EXPECT_NEAR(gainDb(), 0, 1e-6);
    EXPECT_TRUE(plugin_.recorder().lines.empty()) << plugin_.recorder().lines.front();
}

class InHostReopening : public InHost {
protected:
    static constexpr long leastLeak = 1000; // bytes; some hundred are seen, and an editor holds millions

    // How many bytes of each reopening are still there after many.
    long bytesKept(int reopenings) {
        constexpr int warmUps = 10;
        long first = 0;
        for (int i = 0; i < warmUps + reopenings; ++i) {
            if (i == warmUps) first = bytesAtRest();
            plugin_.openEditor();
            afterOpening_();
            plugin_.closeEditor();
            plugin_.run(0.02);
        }
        return (bytesAtRest() - first) / reopenings;
    }

    std::function<void()> afterOpening_ = [] {};

private:
    long bytesAtRest() {
        plugin_.run(0.3); // what goes later is gone then
        return liveHeapBytes();
    }
};

TEST_P(InHostReopening, ReopensFiftyTimesWithoutGrowing) {
    const long kept = bytesKept(50);
    RecordProperty("bytesKept", static_cast<int>(kept));
    EXPECT_LT(kept, leastLeak);
    open();
    EXPECT_GT(pictureOf(map_.frameOf(tiltGain)).countOf(gainColour, 4), 200U);
}

// The negative control: an editor that leaves two kilobytes behind is found out.
TEST_P(InHostReopening, SeesWhatIsLeftBehind) {
    if (liveHeapBytes() == 0) GTEST_SKIP() << "this heap does not tell"; // a sanitizer's
    std::vector<std::unique_ptr<char[]>> left;
    left.reserve(100);
    afterOpening_ = [&] { left.push_back(std::make_unique<char[]>(2000)); };
    EXPECT_GT(bytesKept(10), leastLeak);
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
INSTANTIATE_TEST_SUITE_P(Vst3, InHostReopening, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, InHostReopening, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

} // namespace
} // namespace QVM_NAMESPACE
