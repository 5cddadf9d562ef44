#include "controls/QVMGlowingBooleanControl.h"

#include "controls/Gestures.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class QVMGlowingBooleanControlTest : public testing::Test {
protected:
    QVMParameter parameter = parameterLike(pidMasterOnOff);
    QVMGlowingBooleanControl control{{0, 0, 54, 62}, parameter};

    Color glyphColor() const { return control.value()->string().runs.at(0).color; }
};

TEST_F(QVMGlowingBooleanControlTest, StandsOnADiscInItsMiddle) {
    const Rect disc = control.bgFrame();
    EXPECT_EQ(disc.width, disc.height);
    EXPECT_EQ(control.bg()->look().cornerRadius(), disc.width / 2);
    EXPECT_EQ(disc.center(), control.bounds().center());
    EXPECT_TRUE(control.bounds().contains(disc));
}

TEST_F(QVMGlowingBooleanControlTest, TheDiscLightsUpWhenOn) {
    control.setFloatValue(0);
    const double off = control.bg()->opacity();
    control.setFloatValue(1);
    EXPECT_GT(control.bg()->opacity(), off);
    EXPECT_EQ(control.bg()->look().backgroundColor(), Color::white(1));
}

TEST_F(QVMGlowingBooleanControlTest, TheGlyphIsWhiteAndFaintWhenOffInBothThemes) {
    for (int i = 0; i < 2; ++i) {
        control.setFloatValue(1);
        EXPECT_EQ(glyphColor(), Color::white(1));
        control.setFloatValue(0);
        EXPECT_EQ(glyphColor(), Color::white(1, 0.35f));
        QVMUITheme::toggleThemeForWindow(nullptr);
    }
}

TEST_F(QVMGlowingBooleanControlTest, ASoftShadowLiesUnderItsGlyph) {
    EXPECT_EQ(control.value()->look().shadow().color, Color::white(0, 0.15f));
    EXPECT_GT(control.value()->look().shadow().radius, 0);
    EXPECT_EQ(control.value()->look().shadow().opacity, 1);
}

TEST_F(QVMGlowingBooleanControlTest, ShowsThePowerGlyphInTheIconFont) {
    EXPECT_EQ(control.value()->string().string(), "\uE101");
    const double size = control.value()->string().runs.at(0).font.pointSize;
    EXPECT_LT(size, control.bgFrame().width);
}

TEST_F(QVMGlowingBooleanControlTest, ItsGlyphIsAsLargeAsThatOfAnyOtherSwitch) {
    for (const float scale : {1.0f, 1.3f}) {
        const QVMParameter scaled = parameterLike(pidMasterOnOff, [scale](QVMParameter& p) { p.controlScale = scale; });
        const auto size = [](const QVMCycleControl& c) { return c.value()->string().runs.at(0).font.pointSize; };
        const Rect frame = {0, 0, 54, 62};
        EXPECT_EQ(size(QVMGlowingBooleanControl(frame, scaled)), size(QVMBooleanControl(frame, scaled)));
    }
}

} // namespace
} // namespace QVM_NAMESPACE
