#include "controls/QVMSymbolButton.h"

#include "controls/Gestures.h"
#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/VirtualTime.h"
#include "resources/IconGlyphs.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

const std::string kGear{icons::gear};

// Hears the events that a view passes on.
class Listener : public Responder {
public:
    void mouseDown(const Event&) override { ++presses; }
    int presses = 0;
};

class QVMSymbolButtonTest : public testing::Test {
protected:
    QVMSymbolButtonTest() {
        button.setNextResponder(&listener);
        button.setAction([this](Control&) { ++actions; });
    }
    void pressButton() { press(button, button.bounds().center()); }

    VirtualTime time;
    Listener listener;
    QVMSymbolButton button{{0, 0, 54, 40}, kGear, 28, Color::white(1)};
    int actions = 0;
};

TEST_F(QVMSymbolButtonTest, IsBuiltOfLightsBehindAGlyph) {
    EXPECT_EQ(button.glyph()->string(), AttributedString(kGear, QVMUITheme::iconFontOfSize(28), Color::white(1)));
    EXPECT_EQ(button.glyph()->alignment(), TextAlignment::center);
    EXPECT_EQ(button.glyph()->look().backgroundColor(), Color::clear());
    for (const auto& light : {button.spotlight(), button.warningLight()}) {
        EXPECT_EQ(light->look().backgroundColor(), Color::white(1, 0.4f));
        EXPECT_EQ(light->frame(), (Rect{2, 2, 50, 36}));
        EXPECT_EQ(light->opacity(), 0);
        EXPECT_EQ(light->look().cornerRadius(), 18) << "a capsule, as every switch that is on";
    }
    EXPECT_EQ(button.layer()->tree().sublayers().back(), button.glyph());
}

TEST_F(QVMSymbolButtonTest, ActsOnThePressAndPassesItOn) {
    pressButton();
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(listener.presses, 1);
    const BasicAnimation* pulse = button.glyph()->animations().find("pulse");
    ASSERT_TRUE(pulse);
    EXPECT_EQ(pulse->keyPath, "transform.scale");
    EXPECT_EQ(pulse->duration, 0.09);
    release(button, {27, 20});
    EXPECT_EQ(actions, 1);
}

TEST_F(QVMSymbolButtonTest, AcceptsTheFirstClickInAnInactiveWindow) {
    EXPECT_TRUE(button.acceptsFirstMouse());
}

TEST_F(QVMSymbolButtonTest, ADisabledButtonIgnoresClicksShowsItsGlyphFaintlyAndSendsNoAction) {
    button.setButtonEnabled(false);
    EXPECT_EQ(button.glyph()->opacity(), 0.2);
    pressButton();
    EXPECT_EQ(actions, 0);
    EXPECT_EQ(listener.presses, 0);
    EXPECT_TRUE(button.glyph()->animations().isEmpty());
    button.setButtonEnabled(true);
    EXPECT_EQ(button.glyph()->opacity(), 1);
}

TEST_F(QVMSymbolButtonTest, ARestingSymbolStandsUnderTheGlyphOfADisabledButtonOnly) {
    EXPECT_FALSE(button.restingGlyph());
    button.setRestingAlpha(0.6f);
    ASSERT_TRUE(button.restingGlyph());
    EXPECT_EQ(button.restingGlyph()->opacity(), 0);
    EXPECT_EQ(button.layer()->tree().sublayers().back(), button.glyph());
    button.setButtonEnabled(false);
    EXPECT_EQ(button.restingGlyph()->opacity(), 1);
    EXPECT_EQ(button.glyph()->opacity(), 0.2);
    button.resetGlyphColor(std::string(icons::undo), Color::white(1));
    const TextRun& under = button.restingGlyph()->string().runs.front();
    EXPECT_EQ(under.text, icons::undo);
    EXPECT_NEAR(composite(Color::white(1, 0.2f), composite(under.color, Color::white(0))).r, 0.6, 0.01)
        << "what is seen of both";
    EXPECT_EQ(button.restingGlyph()->frame(), button.glyph()->frame());
    button.setButtonEnabled(true);
    EXPECT_EQ(button.restingGlyph()->opacity(), 0);
}

TEST_F(QVMSymbolButtonTest, SelectionIsTheSpotlight) {
    button.setSelected(true);
    EXPECT_EQ(button.spotlight()->opacity(), 1);
    EXPECT_EQ(button.warningLight()->opacity(), 0);
    button.setSelected(false);
    EXPECT_EQ(button.spotlight()->opacity(), 0);
}

TEST_F(QVMSymbolButtonTest, AGlyphStandsOutFromTheLightBehindIt) {
    const Color lit = composite(button.spotlight()->look().backgroundColor(), QVMCGColor(GetMetadata()->color));
    const auto glyphColor = [this] { return button.glyph()->string().runs.at(0).color; };
    ASSERT_LT(contrastRatio(glyphColor(), lit), minimumTextContrast) << "a white glyph needs help there";
    for (const auto light : {&QVMSymbolButton::setSelected, &QVMSymbolButton::setWarning}) {
        (button.*light)(true);
        EXPECT_GE(contrastRatio(glyphColor(), lit), minimumTextContrast);
        (button.*light)(false);
        EXPECT_EQ(glyphColor(), button.color());
    }
    button.resetGlyphColor(std::string(icons::undo), Color::white(0.1f));
    button.setSelected(true);
    EXPECT_EQ(glyphColor(), button.color()) << "a dark one does not";
}

TEST_F(QVMSymbolButtonTest, SettingTheSameWarningTwicePulsesOnlyOnce) {
    button.setWarning(true);
    const BasicAnimation* pulse = button.warningLight()->animations().find("pulse");
    ASSERT_TRUE(pulse);
    EXPECT_EQ(pulse->keyPath, "transform.scale");
    EXPECT_EQ(pulse->duration, 0.33);
    EXPECT_EQ(pulse->timing, TimingFunction::easeOut);
    EXPECT_TRUE(pulse->autoreverses);
    EXPECT_EQ(pulse->repeatCount, 6);
    EXPECT_EQ(button.warningLight()->opacity(), 1);

    button.warningLight()->animations().remove("pulse");
    button.setWarning(true);
    EXPECT_TRUE(button.warningLight()->animations().isEmpty());
    button.setWarning(false);
    EXPECT_FALSE(button.warningLight()->animations().isEmpty());
    EXPECT_EQ(button.warningLight()->opacity(), 0);
}

TEST_F(QVMSymbolButtonTest, FlashesForAQuarterOfASecond) {
    button.flash();
    const BasicAnimation* flash = button.spotlight()->animations().find("flash");
    ASSERT_TRUE(flash);
    EXPECT_EQ(flash->keyPath, "opacity");
    EXPECT_EQ(flash->timing, TimingFunction::easeOut);
    EXPECT_NEAR(button.spotlight()->presentation(0.125).opacity, 1, 1e-9);
    button.spotlight()->animations().finish(0.26);
    EXPECT_TRUE(button.spotlight()->animations().isEmpty());
    EXPECT_EQ(button.spotlight()->presentation(0.26).opacity, 0);
}

TEST_F(QVMSymbolButtonTest, AnotherGlyphStaysCentred) {
    button.resetGlyphColor(std::string(icons::undo), Color::white(0));
    EXPECT_EQ(button.symbol(), icons::undo);
    EXPECT_EQ(button.glyph()->string().runs.at(0).color, Color::white(0));
    EXPECT_EQ(button.glyph()->frame().center(), button.bounds().center());
    button.setFrame({10, 10, 31, 21});
    EXPECT_EQ(button.glyph()->frame().center(), button.bounds().center());
    EXPECT_EQ(button.spotlight()->frame(), (Rect{2, 2, 27, 17}));
}

TEST_F(QVMSymbolButtonTest, AGlyphCanBeSetInAnotherColour) {
    EXPECT_EQ(button.attributedStringForGlyphColor("x", Color::white(0.5f)).runs.at(0).color, Color::white(0.5f));
    EXPECT_EQ(button.attributedStringForGlyphColor("x", std::nullopt).runs.at(0).color, Color::white(1));
}

TEST_F(QVMSymbolButtonTest, HoveringChangesOpacitiesOnlyAndNotOfADisabledButton) {
    const auto lit = [this] {
        int count = 0;
        for (const auto& sublayer : button.layer()->tree().sublayers())
            count += sublayer->opacity() > 0;
        return count;
    };
    EXPECT_EQ(lit(), 1); // the glyph
    pointAt(button);
    EXPECT_EQ(lit(), 2);
    button.setButtonEnabled(false);
    EXPECT_EQ(lit(), 1);
    button.setButtonEnabled(true);
    pointAway(button);
    EXPECT_EQ(lit(), 1);
}

TEST_F(QVMSymbolButtonTest, KeepsTheOwnersNumber) {
    button.setNid(7);
    EXPECT_EQ(button.nid(), 7);
}

} // namespace
} // namespace QVM_NAMESPACE
