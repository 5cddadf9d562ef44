// The handle by itself.
#include "controls/ReadoutBulb.h"

#include "controls/DimmedText.h"
#include "controls/ReadoutText.h"
#include "theme/Colors.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr Color kColor = {0.5f, 0.25f, 0.25f, 1};

ReadoutBulb bulbAt(Point center, BulbPointer pointer) {
    ReadoutBulb bulb(kColor, pointer);
    bulb.setWidth(70);
    bulb.bulb()->setPosition(center);
    return bulb;
}

TEST(ReadoutBulb, ItIsHitOnItsBoxAndOnItsPointer) {
    const ReadoutBulb plain = bulbAt({100, 50}, BulbPointer::none);
    EXPECT_TRUE(plain.contains({66, 38}));
    EXPECT_FALSE(plain.contains({64, 50}));
    EXPECT_FALSE(plain.contains({100, 35}));
    const ReadoutBulb down = bulbAt({100, 50}, BulbPointer::down), up = bulbAt({100, 50}, BulbPointer::up);
    EXPECT_TRUE(down.contains({100, 33}));
    EXPECT_FALSE(down.contains({100, 64}));
    EXPECT_TRUE(up.contains({100, 64}));
    EXPECT_FALSE(up.contains({100, 33}));
}

TEST(ReadoutBulb, ARoomBelongsToItsHeightAndIsNotHit) {
    ReadoutBulb bulb(kColor, BulbPointer::shortRight, 6);
    bulb.setWidth(70);
    bulb.bulb()->setPosition({100, 50});
    EXPECT_EQ(bulb.fullHeight(), 38);
    EXPECT_EQ(bulb.background()->frame(), (Rect{0, 6, 70, 26}));
    EXPECT_TRUE(bulb.contains({100, 38}));
    EXPECT_FALSE(bulb.contains({100, 36}));
    EXPECT_TRUE(bulb.contains({137, 50})) << "the pointer";
    EXPECT_FALSE(bulb.contains({137, 58}));
}

TEST(ReadoutBulb, LongTextIsShrunkToItsRoom) {
    ReadoutBulb bulb = bulbAt({}, BulbPointer::none);
    const AttributedString fitting = readoutText("12.0", "dB", 16), tooLong = readoutText("123456789012", "", 16);
    bulb.setText(fitting);
    EXPECT_EQ(bulb.text()->string(), fitting);
    bulb.setText(tooLong);
    EXPECT_LT(bulb.text()->string().runs[0].font.pointSize, 16);
    EXPECT_EQ(bulb.text()->string().string(), "123456789012");
}

TEST(ReadoutBulb, ItsStatesDifferInTheFillAlone) {
    const ReadoutBulb bulb = bulbAt({}, BulbPointer::none);
    EXPECT_EQ(bulb.background()->fillColor(), kColor);
    ReadoutBulb changed = bulbAt({}, BulbPointer::none);
    changed.setState(BulbState::hovered); // darker, so that the text stays legible
    const float hovered = changed.background()->fillColor().r;
    EXPECT_LT(hovered, kColor.r);
    changed.setState(BulbState::pressed);
    EXPECT_LT(changed.background()->fillColor().r, hovered);
    changed.setState(BulbState::normal);
    EXPECT_EQ(changed.background()->fillColor(), kColor);
}

TEST(ReadoutBulb, IsDarkEnoughForItsUnitToBeRead) {
    const ReadoutBulb bulb(colorFromHex(0x938586), BulbPointer::none);
    const Color fill = bulb.background()->fillColor();
    EXPECT_NE(fill, colorFromHex(0x938586));
    EXPECT_GE(contrastRatio(composite(readoutUnitColor(), fill), fill), minimumTextContrast);
}

TEST(ReadoutBulb, DimmedItsTextAloneStaysLegibleInTheThemesInk) {
    ReadoutBulb bulb = bulbAt({}, BulbPointer::none);
    const AttributedString text = readoutText("12.0", "dB", 16);
    bulb.setText(text);
    bulb.setDimmed(true);
    EXPECT_EQ(bulb.text()->leastOpacity(), dimmedValueOpacity);
    for (const TextRun& run : bulb.text()->string().runs)
        EXPECT_EQ(run.color, QVMUITheme::theme().textColor);
    bulb.setText(readoutText("11.5", "dB", 16));
    EXPECT_EQ(bulb.text()->string().runs.front().color, QVMUITheme::theme().textColor);
    bulb.setText(text);
    bulb.setDimmed(false);
    EXPECT_EQ(bulb.text()->leastOpacity(), 0);
    EXPECT_EQ(bulb.text()->string(), text);
}

TEST(ReadoutBulb, TheCaretFollowsTheTypedText) {
    ReadoutBulb bulb = bulbAt({}, BulbPointer::none);
    const Layer& caret = *bulb.bulb()->tree().sublayers().back();
    EXPECT_TRUE(caret.isHidden());
    bulb.setTyping(true);
    bulb.setText(readoutText("", "", 16));
    EXPECT_FALSE(caret.isHidden());
    const double before = caret.frame().x;
    EXPECT_NEAR(before, 35, 2);
    bulb.setText(readoutText("12", "", 16));
    EXPECT_GT(caret.frame().x, before);
}

} // namespace
} // namespace QVM_NAMESPACE
