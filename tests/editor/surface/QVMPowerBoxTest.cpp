#include "editor/surface/QVMPowerBox.h"

#include "controls/QVMSymbolButton.h"
#include "description/Description.h"
#include "editor/surface/QVMInsetShadowBox.h"
#include "editor/surface/QVMLogoStamp.h"
#include "platform/layer/ShapeLayer.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(QVMPowerBox, HoldsLogoGearAndStamp) {
    QVMPowerBox box({418, 0, 62, 320}, AdvancedControls::yes, *GetMetadata());
    EXPECT_EQ(box.logo().toolTip(), "Get Current Settings");
    ASSERT_TRUE(box.gear());
    EXPECT_EQ(box.gear()->toolTip(), "Advanced Controls");
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
