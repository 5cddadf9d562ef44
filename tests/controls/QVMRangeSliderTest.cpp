// The slider of the band: what it draws and where its gestures go.
#include "controls/QVMRangeSlider.h"

#include "controls/Gestures.h"
#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST(QVMRangeSlider, TheTrackMarksTheFrequenciesWithinItsRangeAndDecadesStandTaller) {
    const QVMRangeSlider slider(kFrame, *GetParameter(pidTiltRangeHigh));
    const auto& elements = ticksOf(slider).path().elements();
    std::size_t ticks = 0;
    for (const Path::Element& element : elements)
        ticks += element.verb == Path::Verb::move;
    EXPECT_EQ(ticks, 11u); // 10, 20, 50 ... 20000
    EXPECT_DOUBLE_EQ(ticksOf(slider).path().bounds().height, 8);
    const QVMRangeSlider other(kFrame, *GetParameter(pidTiltGain)); // no frequencies
    EXPECT_TRUE(ticksOf(other).path().isEmpty());
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
