#include "plugin/SlantwiseEditor.h"

#include "description/Description.h"
#include "plugin/SlantwiseEditorFixture.h"
#include "support/ScopedFolder.h"
#include "support/ScopedVariable.h"

#include <algorithm>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using Lines = std::vector<std::string>;

using SlantwiseEditorTest = SlantwiseEditorFixture;

TEST_F(SlantwiseEditorTest, OpensAtItsSize) {
    EXPECT_EQ(editor_->getWidth(), 480);
    EXPECT_EQ(editor_->getHeight(), 320);
    EXPECT_TRUE(editor_->isResizable());
}

TEST_F(SlantwiseEditorTest, OpeningTellsTheHostNothing) {
    editor_.reset();
    host_.lines.clear();
    editor_ = std::make_unique<SlantwiseEditor>(processor_);
    settle();
    editor_.reset();
    EXPECT_EQ(host_.lines, Lines());
}

TEST_F(SlantwiseEditorTest, TheUsersPresetsAreFilesOfTheDataFolderWhichNobodyTouchesToOpen) {
    const slantwise_tests::ScopedFolder place;
    const slantwise_tests::ScopedVariable data("XDG_DATA_HOME", place.path() / "data");
    const auto reopen = [this] {
        editor_.reset();
        open();
    };
    reopen();
    processor_.setCurrentProgram(8);
    settle();
    EXPECT_FALSE(std::filesystem::exists(place.path() / "data"));
    const auto presets = [this]() -> PresetSession& { return editor_->view().ui().session().presets(); };
    EXPECT_EQ(presets().saveAs("Warm", ExistingFile::keep).status, PresetOutcome::Status::done);
    EXPECT_TRUE(std::filesystem::exists(place.path() / "data/slantwise/presets/Warm.slantwise-preset"));
    reopen();
    EXPECT_EQ(presets().list().nameOf(presets().current()), "Warm") << "the unit keeps its name";
    settle();
    EXPECT_FALSE(presets().isDirty());
}

TEST_F(SlantwiseEditorTest, ADragIsOneGestureThatBeginsHoldsItsValuesAndEnds) {
    drag(handle(1), 60, 0);
    frame();
    const Lines kinds = host_.kinds();
    ASSERT_GE(kinds.size(), 4U);
    EXPECT_EQ(kinds.front(), "begin 1");
    EXPECT_EQ(kinds.back(), "end 1");
    EXPECT_EQ(std::count(kinds.begin(), kinds.end(), "value 1"), static_cast<std::ptrdiff_t>(kinds.size() - 2));
    EXPECT_GT(processor_.parameter(pidTiltGain).getValue(), 0.5f);
    EXPECT_EQ(slider(pidTiltGain).floatValue(), editor_->view().valueForParameterID(pidTiltGain));
}

TEST_F(SlantwiseEditorTest, AClickOnTheTrackHoldsItsValueInsideAGesture) {
    Point at = handle(1);
    at.x += 80;
    send(EventType::mouseDown, at);
    send(EventType::mouseUp, at);
    const Lines kinds = host_.kinds();
    ASSERT_GE(kinds.size(), 3U);
    EXPECT_EQ(kinds.front(), "begin 1");
    EXPECT_EQ(kinds[1], "value 1");
    EXPECT_EQ(kinds.back(), "end 1");
}

// The editor itself never ends this gesture.
TEST_F(SlantwiseEditorTest, AResetByClickEndsOnceThePointerIsFree) {
    processor_.parameter(pidTiltGain).setValue(0.8f);
    frame();
    send(EventType::mouseDown, handle(1), EventModifier::option);
    frame();
    EXPECT_EQ(host_.kinds(), (Lines{"begin 1", "value 1"}));
    send(EventType::mouseUp, handle(1), EventModifier::option);
    frame();
    EXPECT_EQ(host_.kinds(), (Lines{"begin 1", "value 1", "end 1"}));
    EXPECT_EQ(editor_->view().valueForParameterID(pidTiltGain), 0);
}

// Made ahead of the processor that becomes one of LV2.
struct NextIsLv2 {
    NextIsLv2() { juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_LV2); }
};
class EditorOfLv2 : NextIsLv2, public SlantwiseEditorFixture {
protected:
    EditorOfLv2() { juce::AudioProcessor::setTypeOfNextNewPlugin(juce::AudioProcessor::wrapperType_Undefined); }
    // Whether the host was told that its session is another one, after a press and a release.
    bool marksSession(Point at, std::uint32_t modifiers = 0) {
        processor_.takeDue();
        send(EventType::mouseDown, at, modifiers);
        frame();
        send(EventType::mouseUp, at, modifiers);
        frame();
        return processor_.takeDue() & SlantwiseProcessor::stateChangeBit;
    }
};

TEST_F(EditorOfLv2, AClickThatChangesNothingDoesNotMarkTheSession) {
    for (const std::uint32_t pid :
         {pidTiltGain, pidTiltRangeLow, pidTiltRangeHigh, pidOutputGain, pidFilterRangeLow, pidFilterRangeHigh}) {
        EXPECT_FALSE(marksSession(handle(pid))) << "on the handle of " << pid;
        EXPECT_FALSE(marksSession(handle(pid), EventModifier::option)) << "a reset to what it is, " << pid;
        processor_.parameter(pid).setValue(0.43F);
        settle();
        EXPECT_FALSE(marksSession(handle(pid))) << "where the host has put it, " << pid;
        EXPECT_TRUE(marksSession(handle(pid), EventModifier::option)) << "back to the initial value, " << pid;
        EXPECT_FALSE(marksSession(handle(pid), EventModifier::option)) << "once more, " << pid;
    }
    drag(handle(pidTiltGain), 30, 0);
    EXPECT_TRUE(processor_.takeDue() & SlantwiseProcessor::stateChangeBit);
}

// Its name is in the session, too.
TEST_F(EditorOfLv2, APresetOfTheSameValuesMarksTheSessionAndTheOpeningDoesNot) {
    frame();
    settle();
    EXPECT_FALSE(processor_.takeDue() & SlantwiseProcessor::stateChangeBit) << "of the editor";
    const std::string name = "Air";
    for (const bool isAnother : {true, false}) {
        const std::string* const reference = &name;
        AudioUnitSetProperty(&processor_.unit(), kQVMProperty_PresetName, kAudioUnitScope_Global, 0, &reference,
                             sizeof reference);
        EXPECT_EQ((processor_.takeDue() & SlantwiseProcessor::stateChangeBit) != 0, isAnother);
    }
}

TEST_F(SlantwiseEditorTest, APartnerThatADragPushesHasAGestureThatEndsWithThePress) {
    drag(handle(2), 300, 0); // the low end past the high one
    const Lines kinds = host_.kinds();
    ASSERT_GE(kinds.size(), 4U);
    EXPECT_EQ(kinds.front(), "begin 2");
    EXPECT_EQ(std::count(kinds.begin(), kinds.end(), "begin 3"), 1);
    EXPECT_EQ(kinds[kinds.size() - 2], "end 2");
    EXPECT_EQ(kinds.back(), "end 3") << "without waiting";
    frame();
    EXPECT_EQ(host_.kinds(), kinds);
}

TEST_F(SlantwiseEditorTest, AStepByAKeyIsOneGesture) {
    send(EventType::mouseDown, handle(1));
    send(EventType::mouseUp, handle(1)); // gives it the focus
    host_.lines.clear();
    Event event;
    event.charactersIgnoringModifiers = std::u32string(1, Key::up);
    event.modifierFlags = EventModifier::numericPad;
    event.type = EventType::keyDown;
    editor_->window().sendEvent(event);
    EXPECT_EQ(host_.kinds(), (Lines{"begin 1", "value 1", "value 1", "end 1"}));
    event.type = EventType::keyUp;
    editor_->window().sendEvent(event);
    frame();
    EXPECT_EQ(host_.lines.size(), 4U);
}

TEST_F(SlantwiseEditorTest, ClosingInMidGestureEndsIt) {
    const Point from = handle(1);
    send(EventType::mouseDown, from);
    send(EventType::mouseDragged, {from.x + 30, from.y});
    editor_.reset();
    ASSERT_FALSE(host_.lines.empty());
    EXPECT_EQ(host_.lines.back(), "end 1");
}

TEST_F(SlantwiseEditorTest, AutomationMovesTheHandleAndSendsNothingBack) {
    const Point before = handle(1);
    processor_.parameter(pidTiltGain).setValue(1);
    frame();
    EXPECT_EQ(slider(pidTiltGain).floatValue(), 18);
    EXPECT_GT(handle(1).x, before.x + 20);
    EXPECT_EQ(host_.lines, Lines());
    EXPECT_EQ(editor_->view().valueForParameterID(pidTiltGain), 18);
}

TEST_F(SlantwiseEditorTest, AutomationThatStandsStillMovesNothing) {
    const Point before = handle(1);
    processor_.parameter(pidTiltGain).setValue(processor_.parameter(pidTiltGain).getValue());
    frame();
    EXPECT_EQ(handle(1).x, before.x);
    EXPECT_EQ(host_.lines, Lines());
}

TEST_F(SlantwiseEditorTest, AutomationOfEachParameterKeepsItsBits) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        for (const float position : {0.123456f, 0.75f, 1.0f}) {
            processor_.parameter(pid).setValue(position);
            const float sent = editor_->view().valueForParameterID(pid);
            frame();
            EXPECT_EQ(editor_->view().valueForParameterID(pid), sent) << pid;
        }
    }
    EXPECT_EQ(host_.lines, Lines());
}

TEST_F(SlantwiseEditorTest, RestoredStateShowsInAnOpenEditor) {
    SlantwiseProcessor other;
    other.parameter(pidTiltGain).setValue(0);
    juce::MemoryBlock bytes;
    other.getStateInformation(bytes);
    processor_.setStateInformation(bytes.getData(), static_cast<int>(bytes.getSize()));
    frame();
    EXPECT_EQ(slider(pidTiltGain).floatValue(), -18);
    EXPECT_EQ(host_.lines, Lines());
}

TEST_F(SlantwiseEditorTest, APresetReachesTheHostAsFinishedGestures) {
    editor_->view().requestPresetNamed("Air");
    frame();
    const Lines kinds = host_.kinds();
    ASSERT_FALSE(kinds.empty());
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const std::string number = std::to_string(pid);
        const auto count = [&](const char* kind) { return std::count(kinds.begin(), kinds.end(), kind + number); };
        EXPECT_EQ(count("begin "), count("end ")) << pid;
    }
}

TEST_F(SlantwiseEditorTest, TwoEditorsOfTwoUnitsKeepApart) {
    SlantwiseProcessor other;
    SlantwiseEditor second(other);
    frame();
    drag(handle(1), 60, 0);
    frame();
    EXPECT_NE(processor_.parameter(pidTiltGain).getValue(), other.parameter(pidTiltGain).getValue());
    EXPECT_EQ(other.parameter(pidTiltGain).getValue(), other.parameter(pidTiltGain).getDefaultValue());
}

TEST_F(SlantwiseEditorTest, ReopensManyTimesAndShowsTheUnitsValues) {
    for (int i = 1; i <= 20; ++i) {
        editor_.reset();
        processor_.parameter(pidTiltGain).setValue(static_cast<float>(i) / 20);
        open();
        EXPECT_NEAR(slider(pidTiltGain).floatValue(), -18 + 36 * static_cast<float>(i) / 20, 0.06) << i;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
