#include "plugin/SlantwiseEditor.h"

#include "controls/QVMVerticalSlider.h"
#include "description/Description.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"
#include "plugin/HostRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

using Lines = std::vector<std::string>;

class SlantwiseEditorTest : public testing::Test {
protected:
    void SetUp() override { open(); }

    void open() {
        editor_ = std::make_unique<SlantwiseEditor>(processor_);
        settle();
        host_.lines.clear();
    }
    // Until the pictures have come and the editor has taken on the unit's values.
    void settle() {
        time_.advance(1);
        for (int i = 0; i < 3; ++i)
            frame();
    }
    // One display frame.
    void frame() {
        time_.advance(1.0 / 60);
        ticks_.tick(time_.now());
        time_.settle();
    }

    QVMVerticalSlider& slider(std::uint32_t pid) {
        return dynamic_cast<QVMVerticalSlider&>(*editor_->view().ui().parameterControlWithPid(pid)->primaryControl());
    }
    // The middle of a slider's handle in the window.
    Point handle(std::uint32_t pid) { return slider(pid).convertToWindow(slider(pid).readoutBulb()->position()); }
    void send(EventType type, Point at, std::uint32_t modifiers = 0) {
        Event event;
        event.type = type;
        event.locationInWindow = at;
        event.modifierFlags = modifiers;
        event.clickCount = 1;
        event.timestamp = RunLoop::main().now();
        editor_->window().sendEvent(event);
    }
    void drag(Point from, double dx, double dy) {
        send(EventType::mouseDown, from);
        for (const double part : {0.25, 0.5, 0.75, 1.0})
            send(EventType::mouseDragged, {from.x + part * dx, from.y + part * dy});
        send(EventType::mouseUp, {from.x + dx, from.y + dy});
    }

    ManualTickSource ticks_;
    VirtualTime time_;
    SlantwiseProcessor processor_;
    slantwise_tests::HostRecorder host_{processor_};
    std::unique_ptr<SlantwiseEditor> editor_;
};

TEST_F(SlantwiseEditorTest, OpensAtItsSize) {
    EXPECT_EQ(editor_->getWidth(), 480);
    EXPECT_EQ(editor_->getHeight(), 320);
    EXPECT_FALSE(editor_->isResizable());
}

TEST_F(SlantwiseEditorTest, OpeningTellsTheHostNothing) {
    editor_.reset();
    host_.lines.clear();
    editor_ = std::make_unique<SlantwiseEditor>(processor_);
    settle();
    editor_.reset();
    EXPECT_EQ(host_.lines, Lines());
}

TEST_F(SlantwiseEditorTest, ADragIsOneGestureThatBeginsHoldsItsValuesAndEnds) {
    drag(handle(1), 60, 0);
    frame();
    const Lines kinds = host_.kinds();
    ASSERT_GE(kinds.size(), 4U);
    EXPECT_EQ(kinds.front(), "begin 1");
    EXPECT_EQ(kinds.back(), "end 1");
    EXPECT_EQ(std::count(kinds.begin(), kinds.end(), "value 1"), static_cast<std::ptrdiff_t>(kinds.size() - 2));
    EXPECT_GT(processor_.parameter(1).getValue(), 0.5f);
    EXPECT_EQ(slider(1).floatValue(), editor_->view().valueForParameterID(1));
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
    processor_.parameter(1).setValue(0.8f);
    frame();
    send(EventType::mouseDown, handle(1), EventModifier::option);
    frame();
    EXPECT_EQ(host_.kinds(), (Lines{"begin 1", "value 1"}));
    send(EventType::mouseUp, handle(1), EventModifier::option);
    frame();
    EXPECT_EQ(host_.kinds(), (Lines{"begin 1", "value 1", "end 1"}));
    EXPECT_EQ(editor_->view().valueForParameterID(1), 0);
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
    processor_.parameter(1).setValue(1);
    frame();
    EXPECT_EQ(slider(1).floatValue(), 18);
    EXPECT_GT(handle(1).x, before.x + 20);
    EXPECT_EQ(host_.lines, Lines());
    EXPECT_EQ(editor_->view().valueForParameterID(1), 18);
}

TEST_F(SlantwiseEditorTest, AutomationThatStandsStillMovesNothing) {
    const Point before = handle(1);
    processor_.parameter(1).setValue(processor_.parameter(1).getValue());
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
    other.parameter(1).setValue(0);
    juce::MemoryBlock bytes;
    other.getStateInformation(bytes);
    processor_.setStateInformation(bytes.getData(), static_cast<int>(bytes.getSize()));
    frame();
    EXPECT_EQ(slider(1).floatValue(), -18);
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
    EXPECT_NE(processor_.parameter(1).getValue(), other.parameter(1).getValue());
    EXPECT_EQ(other.parameter(1).getValue(), other.parameter(1).getDefaultValue());
}

TEST_F(SlantwiseEditorTest, ReopensManyTimesAndShowsTheUnitsValues) {
    for (int i = 1; i <= 20; ++i) {
        editor_.reset();
        processor_.parameter(1).setValue(static_cast<float>(i) / 20);
        open();
        EXPECT_NEAR(slider(1).floatValue(), -18 + 36 * static_cast<float>(i) / 20, 0.06) << i;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
