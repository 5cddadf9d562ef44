#include "editor/surface/ClipLight.h"

#include "controls/QVMVerticalSlider.h"
#include "editor/EditorFixture.h"
#include "editor/surface/QVMClumpView.h"

namespace QVM_NAMESPACE {
namespace {

class ClipLightTest : public EditorFixture {
protected:
    QVMVerticalSlider& slider() { return dynamic_cast<QVMVerticalSlider&>(*control(pidOutputGain).primaryControl()); }
    ClipLight& light() {
        for (const auto& view : slider().subviews())
            if (auto* found = dynamic_cast<ClipLight*>(view.get())) return *found;
        throw std::logic_error("no light");
    }
    void clip() {
        delegate_.vizRef->levels.post(1, 0.5f);
        frames(2.5 / 60);
        delegate_.vizRef->levels.post(1, -60);
        frames(2.5 / 60);
    }
};

TEST_F(ClipLightTest, LatchesForHalfAMinuteAfterTheLastOver) {
    EXPECT_FALSE(light().isLit());
    clip();
    EXPECT_TRUE(light().isLit());
    time_.advance(ClipLight::holdSeconds - 1);
    EXPECT_TRUE(light().isLit());
    clip();
    time_.advance(ClipLight::holdSeconds - 1);
    EXPECT_TRUE(light().isLit());
    time_.advance(2);
    EXPECT_FALSE(light().isLit());
}

TEST_F(ClipLightTest, APressPutsItOutAndLeavesTheSliderAlone) {
    clip();
    const float gain = slider().floatValue();
    click(middleOf(light()));
    EXPECT_FALSE(light().isLit());
    click(middleOf(light()));
    EXPECT_EQ(slider().floatValue(), gain);
    clip();
    EXPECT_TRUE(light().isLit());
}

TEST_F(ClipLightTest, AResetOfTheMeterPutsItOut) {
    clip();
    delegate_.vizRef->levels.reset();
    frames(2.5 / 60);
    EXPECT_FALSE(light().isLit());
}

TEST_F(ClipLightTest, IsClearOfTheHandleAtTheTopAndOfTheMarks) {
    slider().setFloatValue(12);
    const Rect place = light().frame().insetBy(ClipLight::margin, ClipLight::margin);
    EXPECT_FALSE(place.intersects(slider().readoutBulb()->frame()));
    for (const QVMCueRect& cue : slider().cueRects())
        EXPECT_FALSE(place.intersects(cue.rect)) << cue.value;
    EXPECT_TRUE(slider().bounds().contains(place.center()));
}

TEST_F(ClipLightTest, IsHiddenWithTheMeter) {
    click(middleOf(*ui_->sketch()));
    EXPECT_TRUE(light().isHidden());
    click(middleOf(*ui_->sketch()));
    EXPECT_FALSE(light().isHidden());
}

TEST_F(ClipLightTest, TellsItsStateInTheThemesColours) {
    const Layer& shown = *light().layer()->tree().sublayers().front();
    EXPECT_EQ(shown.look().backgroundColor().a, 0);
    clip();
    EXPECT_EQ(shown.look().backgroundColor(), QVMUITheme::theme().palette.meterClip);
    ui_->toggleUITheme();
    EXPECT_EQ(shown.look().backgroundColor(), QVMUITheme::dark().palette.meterClip);
}

} // namespace
} // namespace QVM_NAMESPACE
