#include "controls/PhaseShiftingAnimation.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(PhaseShiftingAnimation, MovesTheDashesEvenlyForEver) {
    const BasicAnimation march = PhaseShiftingAnimationToValue(7.5);
    EXPECT_EQ(march.keyPath, "lineDashPhase");
    EXPECT_EQ(march.fromValue, AnimatableValue(0.0));
    EXPECT_EQ(march.toValue, AnimatableValue(7.5));
    EXPECT_EQ(march.duration, 2);
    EXPECT_EQ(march.timing, TimingFunction::linear);
    EXPECT_EQ(march.repeatCount, BasicAnimation::forever);
    EXPECT_FALSE(march.autoreverses);
}

} // namespace
} // namespace QVM_NAMESPACE
