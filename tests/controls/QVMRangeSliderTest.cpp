// The slider of the band: what it draws and where its gestures go.
#include "controls/QVMRangeSlider.h"

#include "controls/Gestures.h"
#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/VirtualTime.h"

#include "theme/Colors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Rect kFrame = {0, 0, 274, 14};

// Writes down the meta actions too.
struct MetaRecord : GestureRecord {
    using GestureRecord::GestureRecord;
    void floatControlDidPerformMetaActionWithEvent(QVMFloatControl&, std::int32_t code,
                                                   const QVMEvent* event) override {
        lines.push_back("meta " + std::to_string(code) + (event ? "" : " without event"));
    }
};

class CountingBackend final : public RasterBackend {
public:
    std::shared_ptr<Raster> rasterise(const Layer&, const PresentedLayer&, const Rect&, double) override {
        return std::make_shared<Raster>();
    }
};

const ShapeLayer& ticksOf(const QVMRangeSlider& slider) {
    for (const std::shared_ptr<Layer>& layer : slider.layer()->tree().sublayers())
        if (layer->name() == "frequencyTicks") return dynamic_cast<const ShapeLayer&>(*layer);
    throw std::logic_error("no ticks");
}

TEST(QVMRangeSlider, ItsGesturesGoToTheDelegate) {
    QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeHigh));
    MetaRecord record(slider);
    press(slider, {100, 7});
    EXPECT_FALSE(slider.dragging());
    drag(slider, {110, 7});
    EXPECT_TRUE(slider.dragging());
    release(slider, {110, 7});
    EXPECT_THAT(record.lines, ElementsAre("meta 0", "began", "meta 1", "meta 2", "ended"));
    press(slider, {100, 7});
    EXPECT_FALSE(slider.dragging());
}

TEST(QVMRangeSlider, AKeyHeldAtTheReleaseEndsTheGestureOfTheMembersToo) {
    QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeHigh));
    MetaRecord record(slider);
    press(slider, {100, 7});
    drag(slider, {110, 7});
    release(slider, {110, 7}, EventModifier::option);
    EXPECT_THAT(record.lines, ElementsAre("meta 0", "began", "meta 1", "meta 2"));
    EXPECT_FALSE(slider.dragging());
}

TEST(QVMRangeSlider, AReleaseThatFollowsNoPressOfTheMembersIsNotPassedOn) {
    QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeHigh));
    MetaRecord record(slider);
    press(slider, {100, 7}, EventModifier::option);
    release(slider, {100, 7});
    EXPECT_THAT(record.lines, ElementsAre("action 20000", "meta 3 without event", "began", "ended"));
}

TEST(QVMRangeSlider, ResettingResetsBothMembers) {
    QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeHigh));
    MetaRecord record(slider);
    slider.resetToInitialValue();
    EXPECT_THAT(record.lines, ElementsAre("action 20000", "meta 3 without event"));
}

TEST(QVMRangeSlider, ItsOwnValuesAreNotLimited) {
    const QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeLow));
    EXPECT_FALSE(slider.doLimit());
    EXPECT_FLOAT_EQ(slider.limitFloat(20000), 20000);
}

std::size_t countOf(const Path& ticks) {
    return static_cast<std::size_t>(
        std::count_if(ticks.elements().begin(), ticks.elements().end(),
                      [](const Path::Element& element) { return element.verb == Path::Verb::move; }));
}

TEST(QVMRangeSlider, TheTrackTellsTheDecadesInNumbersAndMarksTheStepsBetweenThem) {
    const QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeHigh));
    std::vector<std::string> texts;
    for (const std::shared_ptr<TextLayer>& number : slider.numbers())
        texts.push_back(number->string().string());
    EXPECT_THAT(texts, ElementsAre("100", "1k", "10k"));
    EXPECT_DOUBLE_EQ(slider.numbers()[1]->position().x, slider.positionValueFromFloatValue(1000));
    EXPECT_EQ(slider.numbers()[1]->position().y, slider.layers().trackRect().midY());
    const Path& ticks = ticksOf(slider).path();
    EXPECT_DOUBLE_EQ(ticks.bounds().height, 8) << "10 Hz, which has no number";
    EXPECT_GT(countOf(ticks), 12u);
    for (const std::shared_ptr<TextLayer>& number : slider.numbers())
        for (const Path::Element& element : ticks.elements())
            EXPECT_FALSE(number->frame().insetBy(1, 0).contains(element.end)) << number->name();
    const QVMRangeSlider other(kFrame, *GetParameter(pidTiltGain)); // no frequencies
    EXPECT_TRUE(ticksOf(other).path().isEmpty());
    EXPECT_TRUE(other.numbers().empty());
}

TEST(QVMRangeSlider, ItsNumbersAreLegibleInTheBandToo) {
    for (const bool isDark : {false, true}) {
        std::optional<DarkTheme> dark;
        if (isDark) dark.emplace();
        for (const std::uint32_t pid : {pidTiltRangeHigh, pidFilterRangeHigh}) {
            const QVMRangeSlider slider(kFrame, *GetParameter(pid));
            const Color track = QVMUITheme::theme().palette.trackFill;
            const Color band = composite(slider.band()->look().backgroundColor(), track);
            const Color ink = slider.numbers().front()->string().runs.front().color;
            EXPECT_GE(contrastRatio(ink, band), minimumTextContrast - 0.01) << pid << isDark;
            EXPECT_GE(contrastRatio(ink, track), minimumTextContrast - 0.01) << pid << isDark;
        }
    }
}

// The border around a handle that hangs beside the band reaches into the track.
TEST(QVMRangeSlider, TheFocusBorderOfAnEndStrikesNoNumber) {
    const QVMRangeSlider band(kFrame, *GetParameter(pidTiltRangeHigh));
    constexpr double capitals = 6.5; // points, of the numbers
    const double free = (SliderLayers::trackThickness - capitals) / 2;
    const QVMParameter& parameter = *GetParameter(pidTiltRangeLow);
    const QVMVerticalSlider low({0, 0, parameter.controlFrame.width, parameter.controlFrame.height}, parameter);
    const double handleBottom = low.readoutBulb()->frame().minY(); // y up
    const double trackTop = -1 + SliderLayers::trackThickness / 2; // around a point below the control's bottom
    const double border = 4;                                       // below the handle
    EXPECT_LT(trackTop - (handleBottom - border), free);
}

TEST(QVMRangeSlider, MovingTheBandRasterisesNothing) {
    VirtualTime time;
    CountingBackend backend;
    LayerRenderer renderer(backend);
    QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeHigh));
    slider.updateForLowHighAnimation(125, 6300, 0);
    renderer.setRootLayer(slider.layer());
    renderer.update(time.now());
    slider.updateForLowHighAnimation(200, 4000, 0.1);
    for (int i = 0; i < 10; ++i) {
        time.advance(0.015);
        EXPECT_THAT(renderer.update(time.now()).rasterised, IsEmpty());
    }
    EXPECT_DOUBLE_EQ(slider.band()->frame().minX(), slider.positionValueFromFloatValue(200));
    EXPECT_DOUBLE_EQ(slider.band()->frame().maxX(), slider.positionValueFromFloatValue(4000));
    EXPECT_DOUBLE_EQ(slider.low(), 200);
    EXPECT_DOUBLE_EQ(slider.high(), 4000);
}

TEST(QVMRangeSlider, ABandTurnedInsideOutIsEmpty) {
    QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeHigh));
    slider.updateForLowHighAnimation(6300, 125, 0);
    EXPECT_DOUBLE_EQ(slider.band()->frame().width, 0);
}

TEST(QVMRangeSlider, AnotherThemeKeepsTheInteractiveOneInvisible) {
    QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeHigh));
    slider.setInteractive(true);
    const DarkTheme dark;
    EXPECT_TRUE(slider.background()->isHidden());
    EXPECT_TRUE(slider.band()->isHidden());
}

} // namespace
} // namespace QVM_NAMESPACE
