#include "controls/QVMBooleanControl.h"

#include "controls/Gestures.h"

#include <gtest/gtest.h>

#include <optional>

namespace QVM_NAMESPACE {
namespace {

constexpr std::uint32_t kListen = 13, kQuality = 23;
const Color kAccent = colorFromHex(0x5E5454);
constexpr double kSeen = 3; // the least contrast of what must be seen, if not read

enum class ThemeName : bool { light, dark };

// Makes a theme current for the life of the object.
class ThemeInForce {
public:
    explicit ThemeInForce(ThemeName name) {
        if (name == ThemeName::dark) dark_.emplace();
    }

private:
    std::optional<DarkTheme> dark_;
};

// A switch of a style, with its look at hand.
class Switch {
public:
    explicit Switch(std::int32_t style)
        : parameter(parameterLike(kListen, [style](QVMParameter& p) { p.controlStyle = style; })) {}
    void set(float value) { control.setFloatValue(value); }
    Color text() const { return control.value()->string().runs.at(0).color; }
    Color background() const { return control.bg()->look().backgroundColor(); }
    bool isOutlined() const { return control.bg()->look().borderWidth() > 0; }
    void expectBackground(Color color) const {
        EXPECT_EQ(background(), color);
        EXPECT_EQ(control.bg()->opacity(), 1);
    }

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

TEST(QVMBooleanControl, Style1IsWhiteOnItsColourWhenOnAndItsColourOnABoxWhenOff) {
    for (const ThemeName name : {ThemeName::light, ThemeName::dark}) {
        const ThemeInForce theme(name);
        Switch s(1);
        s.set(1);
        EXPECT_EQ(s.text(), Color::white(1, 0.9f));
        s.expectBackground(kAccent);
        s.set(0);
        EXPECT_EQ(s.text(), QVMUITheme::theme().foregroundGivenSpecified(kAccent).withAlpha(0.4f));
        s.expectBackground(QVMUITheme::theme().palette.boxFill);
    }
}

TEST(QVMBooleanControl, Style2IsWhiteAndClearWhenOff) {
    for (const ThemeName name : {ThemeName::light, ThemeName::dark}) {
        const ThemeInForce theme(name);
        Switch s(2);
        s.set(1);
        EXPECT_EQ(s.text(), Color::white(1));
        s.expectBackground(kAccent);
        s.set(0);
        EXPECT_EQ(s.text(), Color::white(1, 0.5f));
        s.expectBackground(Color::clear());
    }
}

TEST(QVMBooleanControl, Style3IsWhiteOnABoxWhenOff) {
    for (const ThemeName name : {ThemeName::light, ThemeName::dark}) {
        const ThemeInForce theme(name);
        Switch s(3);
        s.set(1);
        EXPECT_EQ(s.text(), Color::white(1));
        s.expectBackground(kAccent);
        s.set(0);
        EXPECT_EQ(s.text(), Color::white(1, 0.5f));
        EXPECT_EQ(s.background().a, 1);
        EXPECT_EQ(s.control.bg()->opacity(), 1);
        EXPECT_GE(contrastOn(QVMUITheme::theme().backgroundColor, s), kSeen) << "the box is dark enough for white";
    }
}

TEST(QVMBooleanControl, Style4IsItsColourAndClearWhenOffAndWhiteOnItWhenOn) {
    for (const ThemeName name : {ThemeName::light, ThemeName::dark}) {
        const ThemeInForce theme(name);
        Switch s(4);
        s.set(0);
        EXPECT_EQ(s.text(), kAccent.withAlpha(0.4f));
        s.expectBackground(Color::clear());
        s.set(1);
        EXPECT_EQ(s.text(), Color::white(1));
        s.expectBackground(kAccent);
        EXPECT_FALSE(s.isOutlined());
    }
}

TEST(QVMBooleanControl, OtherStylesKeepTheParametersColour) {
    for (const std::int32_t style : {0, 5, -1}) {
        Switch s(style);
        s.set(1);
        EXPECT_EQ(s.text(), kAccent);
        EXPECT_EQ(s.background(), kAccent);
        EXPECT_LT(s.control.bg()->opacity(), 0.5) << "or the icon would vanish in it";
        s.set(0);
        EXPECT_EQ(s.text(), kAccent.withAlpha(0.35f));
        s.expectBackground(QVMUITheme::theme().palette.boxFill);
    }
}

TEST(QVMBooleanControl, BetweenItsStatesTheAlphaIsTheValueButNotBelowItsLeast) {
    struct Alpha {
        std::int32_t style;
        float value, alpha;
    };
    for (const Alpha& expected : {Alpha{1, 0.5f, 0.9f},
                                  {1, 0.49f, 0.4f},
                                  {2, 0.75f, 0.75f},
                                  {2, 0.6f, 0.6f},
                                  {2, 0.3f, 0.5f},
                                  {3, 0.75f, 0.75f},
                                  {3, 0.49f, 0.5f},
                                  {4, 0.75f, 0.75f},
                                  {4, 0.5f, 0.5f},
                                  {4, 0.49f, 0.4f},
                                  {0, 0.75f, 0.75f},
                                  {0, 0.36f, 0.36f},
                                  {0, 0.2f, 0.35f}}) {
        Switch s(expected.style);
        s.set(expected.value);
        EXPECT_FLOAT_EQ(s.text().a, expected.alpha) << "style " << expected.style << " at " << expected.value;
    }
}

TEST(QVMBooleanControl, TurnsOnAtAHalf) {
    for (const std::int32_t style : {1, 2, 3, 4, 0}) {
        Switch s(style);
        s.set(0.49f);
        EXPECT_NE(s.background(), kAccent) << style;
        s.set(0.5f);
        EXPECT_EQ(s.background(), kAccent) << style;
    }
}

TEST(QVMBooleanControl, WhereItIsClearItsOutlineIsSeenInBothThemes) {
    for (const ThemeName name : {ThemeName::light, ThemeName::dark}) {
        const ThemeInForce theme(name);
        for (const std::int32_t style : {2, 4}) {
            Switch s(style);
            s.set(0);
            EXPECT_TRUE(s.isOutlined());
            EXPECT_GE(contrastRatio(s.control.bg()->look().borderColor(), QVMUITheme::theme().backgroundColor), kSeen)
                << style;
        }
    }
}

TEST(QVMBooleanControl, ItsIconIsThatOfACycleControlTimesTheScale) {
    const auto iconSize = [](const auto& control) { return control.value()->string().runs.at(0).font.pointSize; };
    for (const float scale : {1.0f, 0.7f, 1.3f}) {
        const QVMParameter parameter = parameterLike(kQuality, [scale](QVMParameter& p) { p.controlScale = scale; });
        const Rect roomy = {0, 0, 200, 60};
        const double cycle = iconSize(QVMCycleControl(roomy, parameter));
        EXPECT_EQ(iconSize(QVMBooleanControl(roomy, parameter)), std::floor(static_cast<float>(cycle) * scale));
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
