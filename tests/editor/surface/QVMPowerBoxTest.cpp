#include "editor/surface/QVMPowerBox.h"

#include "controls/QVMSymbolButton.h"
#include "description/Description.h"
#include "editor/surface/QVMInsetShadowBox.h"
#include "editor/surface/QVMLogoStamp.h"
#include "platform/layer/ShapeLayer.h"
#include "theme/ScopedTheme.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(QVMPowerBox, HoldsLogoGearAndStamp) {
    QVMPowerBox box({418, 0, 62, 320}, AdvancedControls::yes, *GetMetadata());
    EXPECT_TRUE(box.logo().toolTip().starts_with("Get Current Settings\n"));
    ASSERT_TRUE(box.gear());
    EXPECT_TRUE(box.gear()->toolTip().starts_with("Advanced Controls\n"));
    EXPECT_EQ(box.logo().frame(), (Rect{4, 8, 54, 34}));
    EXPECT_EQ(box.gear()->frame(), (Rect{4, 76, 54, 40}));
    EXPECT_EQ(box.logoStamp().frame(), (Rect{7, 266, 50, 50}));
    EXPECT_TRUE(box.logoStamp().layer()->contents());
}

TEST(QVMPowerBox, HasNoGearWithoutAdvancedControls) {
    QVMPowerBox box({418, 0, 62, 320}, AdvancedControls::no, *GetMetadata());
    EXPECT_EQ(box.gear(), nullptr);
}

TEST(QVMPowerBox, CarriesTheProductsColour) {
    const QVMPowerBox box({418, 0, 62, 320}, AdvancedControls::yes, *GetMetadata());
    EXPECT_EQ(box.layer()->look().backgroundColor(), QVMCGColor(GetMetadata()->color));
}

TEST(QVMPowerBox, IsShadedWhereTheRestIsDark) {
    const Color product = QVMCGColor(GetMetadata()->color);
    const ScopedTheme dark(QVMUITheme::dark());
    const QVMPowerBox box({418, 0, 62, 320}, AdvancedControls::yes, *GetMetadata());
    const Color seen = box.layer()->look().backgroundColor();
    EXPECT_LT(contrastRatio(seen, Color::white(0)), 0.6 * contrastRatio(product, Color::white(0)));
    EXPECT_NEAR(seen.g / seen.r, product.g / product.r, 0.01) << "its hue stays";
    EXPECT_NEAR(seen.b / seen.r, product.b / product.r, 0.01);
}

// The colour of the picture's pixel at a fraction of its width, at half its height.
Color stampAt(const QVMLogoStamp& stamp, double x) {
    const Image& picture = *stamp.layer()->contents();
    return colorFromHex(picture.pixels[static_cast<std::size_t>(picture.height / 2 * picture.width +
                                                                static_cast<int>(x * picture.width))] &
                        0xFFFFFFu);
}

TEST(QVMLogoStamp, StandsOnADarkGroundInADarkTheme) {
    QVMLogoStamp stamp({0, 0, 50, 50}, GetMetadata()->logo);
    constexpr double ground = 0.2, curve = 0.5; // of the width
    const auto picture = stamp.layer()->contents();
    const Color product = QVMCGColor(GetMetadata()->color);
    EXPECT_GT(contrastRatio(stampAt(stamp, ground), Color::white(0)), 15);
    {
        const ScopedTheme dark(QVMUITheme::dark());
        stamp.themeUpdated();
        EXPECT_LT(contrastRatio(stampAt(stamp, ground), Color::white(0)), 1.3);
        EXPECT_GE(contrastRatio(stampAt(stamp, curve), stampAt(stamp, ground)), 3);
        EXPECT_NEAR(stampAt(stamp, curve).r, product.r, 0.1) << "the curve keeps the product's colour";
        const auto inverted = stamp.layer()->contents();
        stamp.themeUpdated();
        EXPECT_EQ(stamp.layer()->contents(), inverted) << "once is enough";
    }
    stamp.themeUpdated();
    EXPECT_EQ(stamp.layer()->contents(), picture);
}

TEST(QVMLogoStamp, StaysEmptyWithoutAPicture) {
    const QVMLogoStamp stamp({0, 0, 50, 50}, "no picture");
    EXPECT_FALSE(stamp.layer()->contents());
}

TEST(QVMInsetShadowBox, IsAWellWithAnEdge) {
    const QVMInsetShadowBox box({0, 2, 30, 12});
    EXPECT_EQ(box.frame(), (Rect{0, 2, 30, 12}));
    EXPECT_GT(box.layer()->look().backgroundColor().a, 0);
    EXPECT_GT(box.layer()->look().borderWidth(), 0);
}

TEST(QVMInsetShadowBox, ARimOutsideOfWhatIsSeenThrowsItsShadowIn) {
    QVMInsetShadowBox box({0, 2, 30, 12});
    EXPECT_TRUE(box.layer()->masksToBounds());
    const auto& rim = dynamic_cast<const ShapeLayer&>(*box.layer()->tree().sublayers().front());
    EXPECT_GT(rim.look().shadow().opacity, 0);
    const Rect line = rim.path().bounds();
    EXPECT_TRUE(line.insetBy(rim.lineWidth() / 2, rim.lineWidth() / 2).contains(box.bounds()));
    box.setFrame({0, 2, 60, 20});
    EXPECT_GT(rim.path().bounds().width, line.width);
    box.setFrame({});
    EXPECT_TRUE(rim.path().isEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
