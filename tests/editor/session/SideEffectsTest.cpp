#include "editor/session/SideEffects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SideEffects, AParameterWithoutAnyHasNone) {
    const SideEffects effects = sideEffectsOf(QVMParameter(), 1);
    EXPECT_EQ(effects.scope, SideEffects::Scope::none);
    EXPECT_FALSE(effects.dimsControls);
    EXPECT_THAT(effects.prevented, IsEmpty());
    EXPECT_THAT(effects.hidden, IsEmpty());
}

TEST(SideEffects, AScopeIsDimmedWhileTheWholePartIsZero) {
    QVMParameter cause;
    cause.scope = 1;
    EXPECT_EQ(sideEffectsOf(cause, 1).scope, SideEffects::Scope::editor);
    EXPECT_FALSE(sideEffectsOf(cause, 1).dimsScope);
    EXPECT_TRUE(sideEffectsOf(cause, -0.5f).dimsScope);
    cause.scope = 2;
    EXPECT_EQ(sideEffectsOf(cause, 0).scope, SideEffects::Scope::clump);
    EXPECT_TRUE(sideEffectsOf(cause, 0).dimsScope);
}

TEST(SideEffects, AValueDimsWhatIsListedForItAndLetsAllElseGo) {
    QVMParameter cause;
    cause.dims = {{0.0f, {"Slope", "Resonance"}}, {1.0f, {"Gain"}}};
    const SideEffects off = sideEffectsOf(cause, 0);
    EXPECT_TRUE(off.dimsControls);
    EXPECT_TRUE(off.dims("Slope"));
    EXPECT_FALSE(off.dims("Gain"));
    const SideEffects between = sideEffectsOf(cause, 0.5f);
    EXPECT_TRUE(between.dimsControls) << "they are let go";
    EXPECT_FALSE(between.dims("Slope"));
}

TEST(SideEffects, ControlsAreHeldAtTheirValueAndLetGoAtEveryOther) {
    using Effect = SideEffects::OnControl;
    QVMParameter cause;
    cause.disables = {{"A"}, {"B", "A"}};
    cause.hides = {{}, {"C"}};
    const SideEffects effects = sideEffectsOf(cause, 1);
    EXPECT_THAT(effects.prevented, ElementsAre(Effect{"A", false}, Effect{"B", true}, Effect{"A", true}));
    EXPECT_THAT(effects.hidden, ElementsAre(Effect{"C", true}));
    EXPECT_THAT(sideEffectsOf(cause, 0).hidden, ElementsAre(Effect{"C", false}));
}

} // namespace
} // namespace QVM_NAMESPACE
