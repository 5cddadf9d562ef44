// What a host does to an open editor at the wrong moment.
#include "SlantwiseEditorFixture.h"
#include "SlantwiseProcessorBench.h"

#include "description/Description.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using Lines = std::vector<std::string>;

class SlantwiseEditorFaults : public SlantwiseEditorFixture {
protected:
    QVMGenericUI& ui() { return editor_->view().ui(); }
    // Closes the editor, lets everything happen that still waited for it, and opens another one that works.
    void closeAndOpenAgain() {
        editor_.reset();
        time_.advance(5);
        for (int i = 0; i < 3; ++i)
            frame();
        open();
        drag(handle(pidTiltGain), 20, 0);
        EXPECT_FALSE(host_.lines.empty());
    }
};

TEST_F(SlantwiseEditorFaults, RateAndChannelsChangeUnderIt) {
    processor_.parameter(pidTiltGain).setValue(0.75F);
    for (const auto& [rateHz, channelsIn, channelsOut] :
         {std::tuple{44100.0, 2, 2}, std::tuple{192000.0, 1, 1}, std::tuple{8000.0, 1, 2}, std::tuple{48000.0, 2, 2}}) {
        processor_.releaseResources();
        processor_.setPlayConfigDetails(channelsIn, channelsOut, rateHz, 512);
        processor_.prepareToPlay(rateHz, 512);
        for (int i = 0; i < 3; ++i) {
            juce::AudioBuffer<float> buffer(channelsOut, 512);
            buffer.clear();
            processOnce(processor_, buffer);
            frame();
        }
        EXPECT_EQ(slider(pidTiltGain).floatValue(), 9) << rateHz;
    }
    EXPECT_EQ(host_.lines, Lines());
    drag(handle(pidTiltGain), 20, 0);
    EXPECT_FALSE(host_.lines.empty());
}

TEST_F(SlantwiseEditorFaults, WorksWhereNothingEverPlays) {
    drag(handle(pidTiltGain), 30, 0);
    const float dragged = valueOf(processor_, pidTiltGain);
    EXPECT_GT(dragged, 0);
    time_.advance(5);
    const juce::MemoryBlock bytes = stateOf(processor_);
    editor_.reset();
    SlantwiseProcessor other;
    restore(other, bytes);
    EXPECT_EQ(valueOf(other, pidTiltGain), dragged);
}

TEST_F(SlantwiseEditorFaults, ClosesWithTheLastFrameOfADragUnseen) {
    const Point from = handle(pidTiltGain);
    send(EventType::mouseDown, from);
    send(EventType::mouseDragged, {from.x + 30, from.y});
    const float dragged = valueOf(processor_, pidTiltGain);
    editor_.reset();
    EXPECT_EQ(host_.lines.back(), "end 1");
    EXPECT_EQ(valueOf(processor_, pidTiltGain), dragged);
    closeAndOpenAgain();
}

TEST_F(SlantwiseEditorFaults, ClosesWithADrawerAtEveryPointOfItsWay) {
    for (const double seconds : {0.0, 0.01, 0.1, 0.25, 0.5, 2.0}) {
        ui().togglePresetsDrawer();
        time_.advance(seconds);
        closeAndOpenAgain();
    }
}

TEST_F(SlantwiseEditorFaults, ClosesWhileADrawerCloses) {
    for (const double seconds : {0.0, 0.05, 0.2}) {
        ui().togglePresetsDrawer();
        time_.advance(2);
        ui().togglePresetsDrawer();
        time_.advance(seconds);
        closeAndOpenAgain();
    }
}

TEST_F(SlantwiseEditorFaults, ClosesInMidFadeOfTheThemeAndOfItsWidth) {
    for (const double seconds : {0.0, 0.05, 0.3}) {
        ui().toggleUITheme();
        time_.advance(seconds);
        closeAndOpenAgain();
        ui().requestFrame(QVMAltFrameDoubleWide);
        time_.advance(seconds);
        closeAndOpenAgain();
    }
}

TEST_F(SlantwiseEditorFaults, AStateIsRestoredUnderADrag) {
    const juce::MemoryBlock plain = stateOf(processor_);
    const Point from = handle(pidTiltGain);
    send(EventType::mouseDown, from);
    send(EventType::mouseDragged, {from.x + 30, from.y});
    frame();
    restore(processor_, plain);
    for (int i = 0; i < 3; ++i)
        frame();
    send(EventType::mouseUp, {from.x + 30, from.y});
    time_.advance(2);
    frame();
    EXPECT_EQ(host_.lines.back(), "end 1");
    EXPECT_EQ(slider(pidTiltGain).floatValue(), valueOf(processor_, pidTiltGain));
}

} // namespace
} // namespace QVM_NAMESPACE
