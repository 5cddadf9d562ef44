#include "controls/QVMBooleanControl.h"

#include "controls/Gestures.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t kListen = 13, kQuality = 23;
const Color kAccent = colorFromHex(0x5E5454);

// A switch of a style, with its look at hand.
class Switch {
public:
    explicit Switch(std::int32_t style)
        : parameter(parameterLike(kListen, [style](QVMParameter& p) { p.controlStyle = style; })) {}
    void set(float value) { control.setFloatValue(value); }
    Color text() const { return control.value()->string().runs.at(0).color; }
    Color background() const { return control.bg()->backgroundColor(); }
    bool isOutlined() const { return control.bg()->borderWidth() > 0; }

    QVMParameter parameter;
    QVMBooleanControl control{{0, 0, 29, 21}, parameter};
};

double contrastOn(Color below, const Switch& s) {
    const Color behind = composite(s.background(), below);
    return contrastRatio(composite(s.text(), behind), behind);
}

TEST(QVMBooleanControl, AClickFlipsItOnThePress) {
    Switch s(4);
    GestureRecord record(s.control);
    press(s.control, {10, 10});
    EXPECT_EQ(s.control.floatValue(), 1);
    release(s.control, {10, 10});
    press(s.control, {10, 10});
    EXPECT_EQ(s.control.floatValue(), 0);
}

TEST(QVMBooleanControl, HasNoCrementersWhateverItsParameterSays) {
    const QVMParameter parameter = parameterLike(kListen, [](QVMParameter& p) { p.includeCrementers = true; });
    const QVMBooleanControl control({0, 0, 29, 21}, parameter);
    EXPECT_FALSE(control.includeCrementers());
    EXPECT_TRUE(control.inc()->isHidden());
}

TEST(QVMBooleanControl, Style1IsWhiteOnItsColourWhenOn) {
    Switch s(1);
    s.set(1);
    EXPECT_EQ(s.text(), Color::white(1, 0.9f));
    EXPECT_EQ(s.background(), kAccent);
    s.set(0);
    EXPECT_EQ(s.background(), QVMUITheme::light().palette.boxFill);
    EXPECT_NE(s.text(), s.background());
}

TEST(QVMBooleanControl, Style2IsClearWhenOff) {
    Switch s(2);
    s.set(1);
    EXPECT_EQ(s.text(), Color::white(1));
    EXPECT_EQ(s.background(), kAccent);
    s.set(0);
    EXPECT_EQ(s.background(), Color::clear());
    EXPECT_TRUE(s.isOutlined());
}

TEST(QVMBooleanControl, Style3StandsOnABoxWhenOff) {
    Switch s(3);
    s.set(1);
    EXPECT_EQ(s.text(), Color::white(1));
    EXPECT_EQ(s.background(), kAccent);
    s.set(0);
    EXPECT_EQ(s.background(), QVMUITheme::light().palette.boxFill);
}

TEST(QVMBooleanControl, Style4IsAnOutlineWhenOffAndFilledWhenOn) {
    Switch s(4);
    s.set(0);
    EXPECT_EQ(s.background(), Color::clear());
    EXPECT_TRUE(s.isOutlined());
    s.set(1);
    EXPECT_EQ(s.text(), Color::white(1));
    EXPECT_EQ(s.background(), kAccent);
    EXPECT_FALSE(s.isOutlined());
}

TEST(QVMBooleanControl, WhiteGrowsWithTheValueFromAHalfOn) {
    Switch s(4);
    s.set(0.75f);
    EXPECT_EQ(s.text(), Color::white(1, 0.75f));
}

TEST(QVMBooleanControl, OtherStylesKeepTheParametersColour) {
    Switch s(0);
    s.set(1);
    EXPECT_EQ(s.text(), kAccent);
    EXPECT_EQ(s.background(), kAccent);
    EXPECT_LT(s.control.bg()->opacity(), 0.5) << "or the icon would vanish in it";
}

TEST(QVMBooleanControl, TurnsOnAtAHalf) {
    Switch s(4);
    s.set(0.49f);
    EXPECT_EQ(s.background(), Color::clear());
    s.set(0.5f);
    EXPECT_EQ(s.background(), kAccent);
}

TEST(QVMBooleanControl, AnIconThatIsOffIsLegibleInBothThemesAndEveryStyle) {
    for (const std::int32_t style : {1, 2, 3, 4}) {
        Switch s(style);
        s.set(0);
        EXPECT_GE(contrastOn(QVMUITheme::light().palette.panel, s), minimumTextContrast) << "light, style " << style;
        const DarkTheme dark;
        EXPECT_GE(contrastOn(QVMUITheme::dark().palette.panel, s), minimumTextContrast) << "dark, style " << style;
    }
}

TEST(QVMBooleanControl, TheIconGrowsWithTheParametersScaleInWholePoints) {
    const auto iconSize = [](float scale) {
        const QVMParameter parameter = parameterLike(kQuality, [scale](QVMParameter& p) { p.controlScale = scale; });
        const QVMBooleanControl control({0, 0, 70, 36}, parameter);
        return control.value()->string().runs.at(0).font.pointSize;
    };
    const double plain = iconSize(1);
    EXPECT_EQ(iconSize(1.3f), std::floor(plain * 1.3));
    EXPECT_EQ(iconSize(1.49f), std::floor(plain * 1.49));
}

TEST(QVMBooleanControl, ShowsTheGlyphOfItsState) {
    const QVMParameter parameter = parameterLike(kQuality);
    QVMBooleanControl control({0, 0, 70, 36}, parameter);
    EXPECT_EQ(control.value()->string().string(), "\uE205");
    control.setFloatValue(1);
    EXPECT_EQ(control.value()->string().string(), "\uE206");
    EXPECT_EQ(control.value()->string().runs.at(0).font.face, "QVM-Icons-Regular");
}

} // namespace
} // namespace QVM_NAMESPACE
