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
    EXPECT_EQ(controls_.withPid(4), nullptr) << "no place";
    EXPECT_EQ(controls_.withPid(8), nullptr) << "hidden";
    EXPECT_EQ(controls_.withPid(99), nullptr);
    EXPECT_EQ(controls_.withCodename("NoSuchThing"), nullptr);
    EXPECT_EQ(controls_.withCodename("TiltGain"), &control(1));
}

TEST_F(ParameterControlsTest, ADisplacedOneStandsAroundItsClump) {
    EXPECT_EQ(control(13).superview(), &root_);
    EXPECT_NE(control(1).superview(), &root_);
    EXPECT_EQ(control(1).superview(), control(1).clumpView());
}

TEST_F(ParameterControlsTest, WhatTheUserMovesIsToldAndShown) {
    control(1).primaryControl()->setFloatValue(3);
    control(1).primaryControl()->reportInterfaceInitiatedValueChange();
    EXPECT_THAT(surface_.calls, ElementsAre("send 1", "changed 1"));
    EXPECT_EQ(values().memoized(1), 3);
    const auto shown = controls_.shownValues();
    ASSERT_EQ(shown.size(), controls_.all().size());
    for (const ShownValue& each : shown)
        EXPECT_EQ(each.value, each.pid == 1 ? 3 : GetParameter(each.pid)->initialValue) << each.pid;
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
    ASSERT_NE(control(2).range(), nullptr);
    EXPECT_EQ(control(2).range(), control(3).range());
    EXPECT_EQ(control(1).range(), nullptr);
}

TEST_F(ParameterControlsTest, AViewInsideAControlLeadsToIt) {
    EXPECT_EQ(controls_.around(control(1).primaryControl()), &control(1));
    EXPECT_EQ(controls_.around(&root_), nullptr);
    EXPECT_EQ(controls_.around(nullptr), nullptr);
    EXPECT_TRUE(controls_.contains(&control(1)));
    EXPECT_FALSE(controls_.contains(control(2).range()));
}

TEST_F(ParameterControlsTest, EffectsReachTheControlsThatTheyName) {
    SideEffects effects;
    effects.dimsControls = true;
    effects.dimmed = {"OutputGain"};
    effects.prevented = {{"TiltRangeLow", true}, {"NoSuchThing", true}};
    effects.hidden = {{"TiltGain", true}};
    controls_.apply(effects, control(6), {});
    EXPECT_EQ(control(7).dimHolds().at(control(6).parameter()->codesafeName), 10u);
    EXPECT_FALSE(control(1).isDimmed());
    EXPECT_TRUE(control(2).primaryControl()->isDisabled());
    EXPECT_TRUE(control(2).range()->primaryControl()->isDisabled()) << "its band too";
    EXPECT_TRUE(control(1).isHidden());
    effects.dimmed.clear();
    effects.hidden = {{"TiltGain", false}};
    controls_.apply(effects, control(6), {});
    EXPECT_FALSE(control(7).isDimmed());
    EXPECT_FALSE(control(1).isHidden());
}

TEST_F(ParameterControlsTest, AScopeReachesTheViewsOfItsArea) {
    auto* const clumpView = dynamic_cast<QVMClumpView*>(control(1).clumpView());
    SideEffects effects;
    effects.scope = SideEffects::Scope::editor;
    effects.dimsScope = true;
    controls_.apply(effects, control(0), {nullptr, &root_});
    EXPECT_TRUE(clumpView->dimmed());
    EXPECT_EQ(control(13).dimHolds().at("Clump"), 0u) << "displaced";
    effects.dimsScope = false;
    controls_.apply(effects, control(0), {&root_});
    EXPECT_FALSE(clumpView->dimmed());
    effects.scope = SideEffects::Scope::clump;
    effects.dimsScope = true;
    controls_.apply(effects, control(1), {});
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
    EXPECT_FALSE(control(1).isDimmed());
    controls_.applyChannelLayoutRules(*config_, {1, 1});
    EXPECT_EQ(control(1).dimHolds().at("Absolute"), 1000u);
    EXPECT_TRUE(control(1).primaryControl()->isDisabled());
    EXPECT_EQ(control(1).immutableFloatValue(), 2.0f);
}

} // namespace
} // namespace QVM_NAMESPACE
