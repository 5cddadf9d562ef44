#include "editor/QVMPresetControl.h"

#include "description/Description.h"
#include "platform/VirtualTime.h"
#include "platform/Window.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {
namespace {

class TapRecorder final : public QVMFloatControlDelegate {
public:
    void floatControlInteractionDidChangeToEvent(QVMFloatControl&, QVMInteraction state, const Event*) override {
        states.push_back(state);
    }
    void floatControlWantsToPerformStaticConversion(QVMFloatControl&, std::int32_t) override {}
    void floatControlHasRequestedDocumentation(QVMFloatControl&) override {}
    void floatControlDidPerformMetaActionWithEvent(QVMFloatControl&, std::int32_t, const QVMEvent*) override {}
    void floatControlWantsToChangeMultipleValuesMotion(QVMFloatControl&, const std::map<std::uint32_t, float>&,
                                                       double) override {}
    void floatControlWantsToDisplayModal(QVMFloatControl&, View&) override {}
    void floatControlDidTapMeaninglessly(QVMFloatControl&) override { ++taps; }

    std::vector<QVMInteraction> states;
    int taps = 0;
};

class QVMPresetControlTest : public testing::Test {
protected:
    void SetUp() override {
        control_ = &window_.setContentView(std::make_unique<QVMPresetControl>(Rect{0, 0, 240, 30}, *GetPresets()));
        control_->setDelegate(&taps_);
        control_->setAction([this](Control& sender) { sent_.push_back(sender.floatValue()); });
    }
    void press(Point at) {
        Event event;
        event.type = EventType::mouseDown;
        event.locationInWindow = at;
        event.clickCount = 1;
        window_.sendEvent(event);
        event.type = EventType::mouseUp;
        window_.sendEvent(event);
    }
    std::string shown() { return control_->value()->string().string(); }

    VirtualTime time_;
    Window window_;
    QVMPresetControl* control_ = nullptr;
    TapRecorder taps_;
    std::vector<float> sent_;
};

constexpr Point rightArrow = {226, 15}, leftArrow = {14, 15}, name = {120, 15};

TEST_F(QVMPresetControlTest, TheRightArrowStepsForwardAndPulses) {
    press(rightArrow);
    EXPECT_EQ(sent_, std::vector<float>{1});
    EXPECT_EQ(shown(), "Brighter");
    const BasicAnimation* pulse = control_->inc()->animationForKey("pulse");
    ASSERT_TRUE(pulse);
    EXPECT_EQ(std::get<double>(*pulse->toValue), 1.6);
    EXPECT_EQ(pulse->keyPath, "transform.scale");
    EXPECT_EQ(pulse->duration, 0.09);
    EXPECT_EQ(control_->dec()->animationForKey("pulse"), nullptr);
}

TEST_F(QVMPresetControlTest, TheLeftArrowStepsBackwardAndWrapsAtTheEnd) {
    press(leftArrow);
    EXPECT_EQ(sent_, std::vector<float>{22});
    EXPECT_EQ(shown(), "Cellphone");
    EXPECT_TRUE(control_->dec()->animationForKey("pulse"));
    press(rightArrow);
    EXPECT_EQ(shown(), "Default");
}

TEST_F(QVMPresetControlTest, AnArrowCountsOverTheWholeHeightOfTheBar) {
    press({226, 1});
    press({226, 29});
    EXPECT_EQ(sent_, (std::vector<float>{1, 2}));
}

TEST_F(QVMPresetControlTest, APressOnTheNameIsReportedAndChangesNothing) {
    press(name);
    EXPECT_EQ(taps_.taps, 1);
    EXPECT_TRUE(sent_.empty());
    EXPECT_EQ(control_->floatValue(), 0);
}

TEST_F(QVMPresetControlTest, AnIndexThatNoPresetHasIsNamedSo) {
    for (const float index : {23.0f, 1e9f, -1.0f}) {
        control_->setFloatValue(index);
        EXPECT_EQ(shown(), "N/A") << index;
    }
}

TEST_F(QVMPresetControlTest, ArrowKeysStepThroughThePresets) {
    EXPECT_TRUE(control_->incrementWithArrowGranularity(Key::right, QVMGranularityNormal));
    EXPECT_TRUE(control_->incrementWithArrowGranularity(Key::up, QVMGranularityNormal));
    EXPECT_TRUE(control_->incrementWithArrowGranularity(Key::left, QVMGranularityNormal));
    EXPECT_EQ(sent_, (std::vector<float>{1, 2, 1}));
}

TEST_F(QVMPresetControlTest, EveryNameFitsBetweenTheArrows) {
    for (std::size_t index = 0; index < GetPresets()->stringValues.size(); ++index) {
        control_->setFloatValue(static_cast<float>(index));
        EXPECT_EQ(shown(), GetPresets()->stringValues[index]);
        EXPECT_GE(control_->value()->string().runs.front().font.pointSize, 12) << shown();
    }
    EXPECT_GE(control_->value()->frame().minX(), control_->hitFrameOf(PresetEdge::left).maxX());
    EXPECT_LE(control_->value()->frame().maxX(), control_->hitFrameOf(PresetEdge::right).minX());
}

} // namespace
} // namespace QVM_NAMESPACE
