#include "editor/surface/ParameterControls.h"

#include "controls/QVMRangeControl.h"
#include "editor/session/SessionFixture.h"
#include "editor/session/SideEffects.h"
#include "editor/surface/NoReports.h"
#include "editor/surface/QVMClumpView.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The controls of every clump on a plain view.
class ParameterControlsTest : public SessionFixture {
protected:
    ParameterControlsTest() {
        config_->enumerateClumpsWithBlock([this](QVMClump& clump) {
            QVMClumpView& view = root_.addSubview(std::make_unique<QVMClumpView>(clump.frame, clump));
            controls_.addClump(clump, view, root_);
        });
    }
    QVMParameterControl& control(std::uint32_t pid) { return *controls_.withPid(pid); }

    NoReports delegate_;
    View root_{Rect{0, 0, 680, 320}};
    ParameterControls controls_{delegate_, values()};
};

TEST_F(ParameterControlsTest, WhatIsHiddenOrHasNoPlaceHasNone) {
    EXPECT_EQ(controls_.withPid(pidTiltRangeLink), nullptr) << "no place";
    EXPECT_EQ(controls_.withPid(pidMeterMode), nullptr) << "hidden";
    EXPECT_EQ(controls_.withPid(99), nullptr);
    EXPECT_EQ(controls_.withCodename("NoSuchThing"), nullptr);
    EXPECT_EQ(controls_.withCodename("TiltGain"), &control(pidTiltGain));
}

TEST_F(ParameterControlsTest, ADisplacedOneStandsAroundItsClump) {
    EXPECT_EQ(control(pidFilterListenLow).superview(), &root_);
    EXPECT_NE(control(pidTiltGain).superview(), &root_);
    EXPECT_EQ(control(pidTiltGain).superview(), control(pidTiltGain).clumpView());
}

TEST_F(ParameterControlsTest, WhatTheUserMovesIsToldAndShown) {
    control(pidTiltGain).primaryControl()->setFloatValue(3);
    control(pidTiltGain).primaryControl()->reportInterfaceInitiatedValueChange();
    EXPECT_THAT(surface_.calls, ElementsAre("send 1", "changed 1"));
    EXPECT_EQ(values().memoized(pidTiltGain), 3);
    const auto shown = controls_.shownValues();
    ASSERT_EQ(shown.size(), controls_.all().size());
    for (const ShownValue& each : shown)
        EXPECT_EQ(each.value, each.pid == 1 ? 3 : GetParameter(each.pid)->initialValue) << each.pid;
}

TEST_F(ParameterControlsTest, AFurtherControlOfAParameterSendsAndIsFoundButNotListed) {
    QVMParameterControl& further = root_.addSubview(
        std::make_unique<QVMParameterControl>(Rect{0, 0, 60, 60}, Rect{}, GetParameter(pidTiltGain), 0.0f));
    EXPECT_FALSE(controls_.contains(&further));
    const std::size_t listed = controls_.all().size();
    controls_.addStandIn(further);
    EXPECT_TRUE(controls_.contains(&further));
    EXPECT_EQ(controls_.around(further.primaryControl()), &further);
    EXPECT_EQ(controls_.withPid(pidTiltGain), &control(pidTiltGain));
    EXPECT_EQ(controls_.all().size(), listed);
    further.primaryControl()->setFloatValue(3);
    further.primaryControl()->reportInterfaceInitiatedValueChange();
    EXPECT_EQ(values().memoized(pidTiltGain), 3);
    EXPECT_EQ(further.delegate(), &delegate_);
}

TEST_F(ParameterControlsTest, EachShowsWhatTheValuesSay) {
    for (const QVMParameterControl* each : controls_.all()) {
        const QVMParameter& parameter = *each->parameter();
        const float value = parameter.initialValue == parameter.maxValue ? parameter.minValue : parameter.maxValue;
        values().receive(parameter.pid, value);
        EXPECT_EQ(each->floatValue(), parameter.normalizeFloatValue(value, QVMGranularityFine)) << parameter.pid;
    }
}

TEST_F(ParameterControlsTest, TheEndsOfARangeShareABand) {
    ASSERT_NE(control(pidTiltRangeLow).range(), nullptr);
    EXPECT_EQ(control(pidTiltRangeLow).range(), control(pidTiltRangeHigh).range());
    EXPECT_EQ(control(pidTiltGain).range(), nullptr);
}

TEST_F(ParameterControlsTest, AViewInsideAControlLeadsToIt) {
    EXPECT_EQ(controls_.around(control(pidTiltGain).primaryControl()), &control(pidTiltGain));
    EXPECT_EQ(controls_.around(&root_), nullptr);
    EXPECT_EQ(controls_.around(nullptr), nullptr);
    EXPECT_TRUE(controls_.contains(&control(pidTiltGain)));
    EXPECT_FALSE(controls_.contains(control(pidTiltRangeLow).range()));
}

TEST_F(ParameterControlsTest, EffectsReachTheControlsThatTheyName) {
    SideEffects effects;
    effects.dimsControls = true;
    effects.dimmed = {"OutputGain"};
    effects.prevented = {{"TiltRangeLow", true}, {"NoSuchThing", true}};
    effects.hidden = {{"TiltGain", true}};
    controls_.apply(effects, control(pidTiltLoudnessMode), {});
    EXPECT_EQ(control(pidOutputGain).dimHolds().at(control(pidTiltLoudnessMode).parameter()->codesafeName), 10u);
    EXPECT_FALSE(control(pidTiltGain).isDimmed());
    EXPECT_TRUE(control(pidTiltRangeLow).primaryControl()->isDisabled());
    EXPECT_TRUE(control(pidTiltRangeLow).range()->primaryControl()->isDisabled()) << "its band too";
    EXPECT_TRUE(control(pidTiltGain).isHidden());
    effects.dimmed.clear();
    effects.hidden = {{"TiltGain", false}};
    controls_.apply(effects, control(pidTiltLoudnessMode), {});
    EXPECT_FALSE(control(pidOutputGain).isDimmed());
    EXPECT_FALSE(control(pidTiltGain).isHidden());
}

TEST_F(ParameterControlsTest, AScopeReachesTheViewsOfItsArea) {
    auto* const clumpView = dynamic_cast<QVMClumpView*>(control(pidTiltGain).clumpView());
    SideEffects effects;
    effects.scope = SideEffects::Scope::editor;
    effects.dimsScope = true;
    controls_.apply(effects, control(pidMasterOnOff), {nullptr, &root_});
    EXPECT_TRUE(clumpView->dimmed());
    EXPECT_EQ(control(pidFilterListenLow).dimHolds().at("Clump"), 0u) << "displaced";
    effects.dimsScope = false;
    controls_.apply(effects, control(pidMasterOnOff), {&root_});
    EXPECT_FALSE(clumpView->dimmed());
    effects.scope = SideEffects::Scope::clump;
    effects.dimsScope = true;
    controls_.apply(effects, control(pidTiltGain), {});
    EXPECT_TRUE(clumpView->dimmed());
}

// Puts the rules of a shared record back.
class ScopedRules {
public:
    ScopedRules(std::uint32_t pid, QVMChannelLayoutRule rule) : parameter_(*GetParameter(pid)) {
        saved_ = std::exchange(parameter_.channelLayoutRules, {std::move(rule)});
    }
    ~ScopedRules() { parameter_.channelLayoutRules = saved_; }

private:
    QVMParameter& parameter_;
    std::vector<QVMChannelLayoutRule> saved_;
};

TEST_F(ParameterControlsTest, ARuleHoldsForItsChannelsOnly) {
    QVMChannelLayoutRule rule;
    rule.map = {1, 1};
    rule.disabled = true;
    rule.immutable = 2.0f;
    const ScopedRules rules(1, rule);
    controls_.applyChannelLayoutRules(*config_, {2, 2});
    EXPECT_FALSE(control(pidTiltGain).isDimmed());
    controls_.applyChannelLayoutRules(*config_, {1, 1});
    EXPECT_EQ(control(pidTiltGain).dimHolds().at("Absolute"), 1000u);
    EXPECT_TRUE(control(pidTiltGain).primaryControl()->isDisabled());
    EXPECT_EQ(control(pidTiltGain).immutableFloatValue(), 2.0f);
}

} // namespace
} // namespace QVM_NAMESPACE
