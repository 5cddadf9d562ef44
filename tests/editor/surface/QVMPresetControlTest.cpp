#include "editor/surface/QVMPresetControl.h"

#include "controls/Gestures.h"
#include "description/Description.h"
#include "editor/surface/PresetNameText.h"
#include "platform/layer/TextMetrics.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gmock/gmock.h>

#include <optional>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

// A tap on the name as well.
class TapRecord final : public GestureRecord {
public:
    using GestureRecord::GestureRecord;
    void floatControlDidTapMeaninglessly(QVMFloatControl&) override { lines.push_back("tap"); }
};

class QVMPresetControlTest : public testing::Test {
protected:
    void SetUp() override {
        control_ = &window_.setContentView(std::make_unique<QVMPresetControl>(Rect{0, 0, 240, 30}, *GetPresets()));
        record_.emplace(*control_);
    }
    void press(Point at, std::uint32_t modifiers = 0) {
        Event event;
        event.type = EventType::mouseDown;
        event.modifierFlags = modifiers;
        event.locationInWindow = at;
        event.clickCount = 1;
        window_.sendEvent(event);
        event.type = EventType::mouseUp;
        window_.sendEvent(event);
    }
    // What was done, without the gestures around it.
    std::vector<std::string> done() const {
        std::vector<std::string> found;
        for (const std::string& line : record_->lines)
            if (line == "tap" || line.starts_with("action")) found.push_back(line);
        return found;
    }
    // A layer of the control by its name; null where it is not drawn.
    const Layer* drawn(const std::string& layerName) const {
        for (const auto& sublayer : control_->layer()->tree().sublayers())
            if (sublayer->name() == layerName) return sublayer.get();
        return nullptr;
    }
    void pointAt(Point at) {
        Event event;
        event.type = EventType::mouseMoved;
        event.locationInWindow = at;
        window_.sendEvent(event);
    }
    std::string shown() { return control_->value()->string().string(); }

    VirtualTime time_;
    Window window_;
    QVMPresetControl* control_ = nullptr;
    std::optional<TapRecord> record_;
};

constexpr double hitGrowth = 20; // points above and below an arrow
constexpr Point rightArrow = {226, 15}, leftArrow = {14, 15}, name = {120, 15};

TEST_F(QVMPresetControlTest, TheRightArrowStepsForwardAndPulses) {
    press(rightArrow);
    EXPECT_THAT(done(), ElementsAre("action 1"));
    EXPECT_EQ(shown(), "Brighter");
    const BasicAnimation* pulse = control_->inc()->animations().find("pulse");
    ASSERT_TRUE(pulse);
    EXPECT_EQ(std::get<double>(*pulse->toValue), 1.6);
    EXPECT_EQ(pulse->keyPath, "transform.scale");
    EXPECT_EQ(pulse->duration, 0.09);
    EXPECT_EQ(control_->dec()->animations().find("pulse"), nullptr);
}

TEST_F(QVMPresetControlTest, TheLeftArrowStepsBackwardAndWrapsAtTheEnd) {
    press(leftArrow);
    EXPECT_THAT(done(), ElementsAre("action 22"));
    EXPECT_EQ(shown(), "Cellphone");
    EXPECT_TRUE(control_->dec()->animations().find("pulse"));
    press(rightArrow);
    EXPECT_EQ(shown(), "Default");
}

TEST_F(QVMPresetControlTest, AnArrowCountsOverTheWholeHeightOfTheBar) {
    press({226, 1});
    press({226, 29});
    EXPECT_THAT(done(), ElementsAre("action 1", "action 2"));
}

TEST_F(QVMPresetControlTest, APressOnTheNameIsReportedAndChangesNothing) {
    press(name);
    EXPECT_THAT(done(), ElementsAre("tap"));
    EXPECT_EQ(control_->floatValue(), 0);
}

TEST_F(QVMPresetControlTest, APressOnTheNameIsATapWhateverModifierIsHeld) {
    control_->setFloatValue(5);
    for (const std::uint32_t modifier :
         {EventModifier::option, EventModifier::command, EventModifier::shift, EventModifier::control,
          EventModifier::option | EventModifier::shift, EventModifier::option | EventModifier::command}) {
        record_->lines.clear();
        press(name, modifier);
        EXPECT_THAT(record_->lines, ElementsAre("tap")) << modifier; // and no gesture
        EXPECT_EQ(control_->floatValue(), 5) << modifier;
    }
}

TEST_F(QVMPresetControlTest, AnArrowStepsWhateverModifierIsHeld) {
    control_->setFloatValue(5);
    for (const std::uint32_t modifier :
         {EventModifier::option, EventModifier::command, EventModifier::shift, EventModifier::control}) {
        record_->lines.clear();
        press(rightArrow, modifier);
        press(leftArrow, modifier);
        EXPECT_THAT(done(), ElementsAre("action 6", "action 5")) << modifier;
    }
}

TEST_F(QVMPresetControlTest, APressIsNoGestureOfAValue) {
    press(name);
    press(rightArrow);
    for (const std::string& line : record_->lines)
        EXPECT_TRUE(line == "tap" || line == "action 1" || line.starts_with("discrete")) << line;
}

TEST_F(QVMPresetControlTest, TakesNoPressWhileItIsDisabled) {
    control_->setPreventInteraction(true);
    press(name);
    press(rightArrow);
    EXPECT_THAT(record_->lines, testing::IsEmpty());
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
    EXPECT_THAT(done(), ElementsAre("action 1", "action 2", "action 1"));
}

TEST_F(QVMPresetControlTest, DrawsAnArrowAtEachEndAndALineBesideEach) {
    ASSERT_NE(drawn("decArrow"), nullptr);
    ASSERT_NE(drawn("incArrow"), nullptr);
    EXPECT_EQ(drawn("decArrow")->frame().minX(), 0);
    EXPECT_EQ(drawn("incArrow")->frame().maxX(), 240);
    EXPECT_EQ(drawn("incArrow")->frame().size(), drawn("decArrow")->frame().size());
    std::vector<double> lines;
    for (const auto& sublayer : control_->layer()->tree().sublayers())
        if (sublayer->name() == "divider") lines.push_back(sublayer->frame().x);
    EXPECT_THAT(lines, ElementsAre(0, 239));
}

TEST_F(QVMPresetControlTest, TheArrowUnderThePointerIsLit) {
    const Layer* light = drawn("arrowLight");
    ASSERT_NE(light, nullptr);
    EXPECT_EQ(light->opacity(), 0);
    pointAt(rightArrow);
    EXPECT_EQ(light->opacity(), 1);
    EXPECT_TRUE(drawn("incArrow")->frame().insetBy(0, -hitGrowth).contains(light->frame()));
    pointAt(leftArrow);
    EXPECT_EQ(light->opacity(), 1);
    EXPECT_TRUE(drawn("decArrow")->frame().insetBy(0, -hitGrowth).contains(light->frame()));
    pointAt(name);
    EXPECT_EQ(light->opacity(), 0);
    pointAt(rightArrow);
    pointAt({500, 500});
    EXPECT_EQ(light->opacity(), 0);
}

TEST_F(QVMPresetControlTest, TheNameHasTheColourOfAValueAndNoCapsule) {
    EXPECT_EQ(control_->value()->string().runs.front().color, QVMUITheme::theme().textColor);
    EXPECT_EQ(control_->bg()->look().backgroundColor().a, 0);
}

TEST_F(QVMPresetControlTest, EveryNameFitsBetweenTheArrows) {
    for (std::size_t index = 0; index < GetPresets()->stringValues.size(); ++index) {
        control_->setFloatValue(static_cast<float>(index));
        EXPECT_EQ(shown(), presetNameText(GetPresets()->stringValues[index], {}, {}).string());
        EXPECT_GE(control_->value()->string().runs.front().font.pointSize, 12) << shown();
    }
    EXPECT_GE(control_->value()->frame().minX(), control_->hitFrameOf(PresetEdge::left).maxX());
    EXPECT_LE(control_->value()->frame().maxX(), control_->hitFrameOf(PresetEdge::right).minX());
}

// A cut name ends in a sign beyond ASCII, and such a text is never set smaller.
TEST_F(QVMPresetControlTest, ALongNameOfTheUsersStaysInsideTheFocusBorder) {
    const std::unique_ptr<QVMConfig> config = QVMConfig::inlinedConfig();
    PresetList list(*config);
    control_->setPresets(list);
    const std::string cut = "\u2026";
    struct Case {
        const char* name;
        bool isCut;
    };
    for (const Case& each : {Case{"My air, a rather long name of a preset", true}, Case{"A name set smaller", false},
                             Case{"W\u00e4rme f\u00fcr die alte Stimme", true}, Case{"W\u00e4rme", false}}) {
        control_->setFloatValue(static_cast<float>(list.indexOfUsers(each.name)));
        const double width = TextMetrics::current().width(control_->value()->string());
        EXPECT_LE(width, control_->bgFrame().width) << shown();
        EXPECT_EQ(shown().ends_with(cut), each.isCut) << shown();
    }
}

TEST_F(QVMPresetControlTest, AnArrowInANameIsDrawnAsOne) {
    control_->setFloatValue(9);
    EXPECT_EQ(control_->value()->string().runs.size(), 3u) << shown();
    EXPECT_EQ(shown().find("->"), std::string::npos);
    EXPECT_EQ(control_->value()->string().runs.front().font.pointSize, 15) << "there is room for it";
}

} // namespace
} // namespace QVM_NAMESPACE
