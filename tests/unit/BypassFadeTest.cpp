#include "unit/BypassFade.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using Switch = BypassFade::Switch;

TEST(BypassFade, StandsAtOneEndAfterPrepare) {
    BypassFade fade;
    fade.prepare(48000, Switch::off);
    EXPECT_TRUE(fade.isOff());
    fade.prepare(48000, Switch::on);
    EXPECT_FALSE(fade.isOff());
    EXPECT_FALSE(fade.isFading());
}

TEST(BypassFade, IsOffOnlyOnceTheFadeHasEnded) {
    BypassFade fade;
    fade.prepare(48000, Switch::on);
    fade.setTarget(Switch::off);
    while (fade.isFading()) {
        EXPECT_FALSE(fade.isOff());
        fade.next();
    }
    EXPECT_TRUE(fade.isOff());
    EXPECT_EQ(fade.next(), 0.0);
}

TEST(BypassFade, TurnsRoundInMidFadeWithoutAJump) {
    BypassFade fade;
    fade.prepare(48000, Switch::on);
    fade.setTarget(Switch::off);
    double last = 1;
    for (int i = 0; i < 400; ++i)
        last = fade.next();
    fade.setTarget(Switch::on);
    EXPECT_FALSE(fade.isOff());
    EXPECT_NEAR(fade.next(), last, 0.002);
}

} // namespace
} // namespace QVM_NAMESPACE
