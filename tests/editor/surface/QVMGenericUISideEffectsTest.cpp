#include "editor/EditorFixture.h"

#include "controls/QVMRangeControl.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPresetBar.h"

namespace QVM_NAMESPACE {
namespace {

class QVMGenericUISideEffects : public EditorFixture {};

// Sets fields of a shared record for one test and puts them back.
class ScopedRecord {
public:
    explicit ScopedRecord(std::uint32_t pid) : parameter(*GetParameter(pid)), saved_(parameter) {}
    ~ScopedRecord() { parameter = saved_; }
    QVMParameter& parameter;

private:
    QVMParameter saved_;
};

TEST_F(QVMGenericUISideEffects, AFilterThatIsOffDimsItsSlopeAndResonance) {
    // The low filter is off at first.
    EXPECT_TRUE(control(pidFilterSlopeLow).isDimmed());
    EXPECT_TRUE(control(pidFilterResonanceLow).isDimmed());
    EXPECT_TRUE(control(pidFilterSlopeHigh).isDimmed());
    hostSets(pidFilterRangeLow, GetParameter(pidFilterRangeLow)->reverseCastValue(80));
    EXPECT_FALSE(control(pidFilterSlopeLow).isDimmed());
    EXPECT_FALSE(control(pidFilterResonanceLow).isDimmed());
    EXPECT_TRUE(control(pidFilterSlopeHigh).isDimmed());
}

TEST_F(QVMGenericUISideEffects, AControlDimmedByTwoStaysDimmedUntilBothLetGo) {
    hostSets(pidFilterListenLow, 1); // listening to the low filter dims its resonance too
    hostSets(pidFilterRangeLow, GetParameter(pidFilterRangeLow)->reverseCastValue(80));
    EXPECT_TRUE(control(pidFilterResonanceLow).isDimmed());
    hostSets(pidFilterListenLow, 0);
    EXPECT_FALSE(control(pidFilterResonanceLow).isDimmed());
}

TEST_F(QVMGenericUISideEffects, PowerOffDimsEveryClumpAndPowerOnBringsThemBack) {
    hostSets(pidMasterOnOff, 0);
    for (const char* clump : {"Tilt", "Output", "Filter", "AdvFilter"})
        EXPECT_TRUE(ui_->clumpViewWithCodename(clump)->dimmed()) << clump;
    EXPECT_FALSE(ui_->masterClump()->dimmed());
    EXPECT_TRUE(control(pidTiltGain).isDimmed());
    EXPECT_TRUE(control(pidFilterListenLow).isDimmed()); // displaced from its clump view
    hostSets(pidMasterOnOff, 1);
    EXPECT_FALSE(ui_->clumpViewWithCodename("Tilt")->dimmed());
    EXPECT_FALSE(control(pidTiltGain).isDimmed());
    EXPECT_FALSE(control(pidFilterListenLow).isDimmed());
}

TEST_F(QVMGenericUISideEffects, EveryHoldHasThePriorityOfItsCause) {
    hostSets(pidMasterOnOff, 0);
    EXPECT_EQ(control(pidTiltGain).dimHolds().at("Clump"), 0u);
    EXPECT_EQ(control(pidFilterListenLow).dimHolds().at("Clump"), 0u) << "displaced from its clump view";
    EXPECT_EQ(control(pidFilterSlopeLow).dimHolds().at("FilterRangeLow"), 10u);
    ScopedRecord record(6);
    record.parameter.scope = 2;
    hostSets(pidMasterOnOff, 1);
    hostSets(pidTiltLoudnessMode, 1);
    hostSets(pidTiltLoudnessMode, 0);
    EXPECT_EQ(control(pidOutputGain).dimHolds().at("Clump"), 5u);
}

TEST_F(QVMGenericUISideEffects, PowerOffRipplesThroughTheControlsOfEachClump) {
    hostSets(pidMasterOnOff, 0);
    for (const char* clump : {"Tilt", "Output", "Filter"}) {
        const std::vector<QVMParameterControl*> controls = ui_->clumpViewWithCodename(clump)->parameterControls();
        ASSERT_GE(controls.size(), 2u) << clump;
        for (std::size_t i = 1; i < controls.size(); ++i) {
            const BasicAnimation* fade = controls[i]->layer()->animations().find("dimRipple");
            ASSERT_NE(fade, nullptr) << clump << ' ' << i;
            EXPECT_DOUBLE_EQ(fade->beginDelay, 0.02 * static_cast<double>(i)) << clump << ' ' << i;
        }
    }
}

TEST_F(QVMGenericUISideEffects, AClumpScopeDimsTheControlsOwnClump) {
    ScopedRecord record(7);
    record.parameter.scope = 2;
    hostSets(pidOutputGain, -0.5f); // its whole part is 0
    EXPECT_TRUE(ui_->clumpViewWithCodename("Output")->dimmed());
    EXPECT_FALSE(ui_->clumpViewWithCodename("Tilt")->dimmed());
}

TEST_F(QVMGenericUISideEffects, DisablesPreventInteractionAtTheirValue) {
    ScopedRecord record(6);
    record.parameter.disables = {{}, {"TiltGain", "TiltRangeLow", "NoSuchThing"}};
    hostSets(pidTiltLoudnessMode, 1);
    EXPECT_TRUE(control(pidTiltGain).primaryControl()->isDisabled());
    EXPECT_TRUE(control(pidTiltRangeLow).primaryControl()->isDisabled());
    hostSets(pidTiltLoudnessMode, 2);
    EXPECT_FALSE(control(pidTiltGain).primaryControl()->isDisabled());
    EXPECT_FALSE(control(pidTiltRangeLow).primaryControl()->isDisabled());
}

// The editor of a product that has links.
class LinkedEditor final : public QVMGenericUI {
public:
    using QVMGenericUI::QVMGenericUI;
    void propagateLinkForPidNotify(std::uint32_t pid, bool notify) override { told.push_back({pid, notify}); }
    std::vector<std::pair<std::uint32_t, bool>> told;
};

TEST_F(QVMGenericUISideEffects, ALinkIsFollowedWhenItsValueComesToZeroAndNotAtTheOpening) {
    ScopedRecord record(6);
    record.parameter.links = {{"OutputGain", "x"}, {}, {"NoSuchThing"}, {"TiltGain"}};
    auto& linked = build<LinkedEditor>(QVMConfig::inlinedConfig());
    time_.advance(0.6);
    frame(); // hands over
    linked.handleParameterControlUpdated(control(pidTiltLoudnessMode));
    frame(); // the first values, zero among them
    ASSERT_EQ(linked.receivedParamUpdateCount(), 1u);
    EXPECT_TRUE(linked.told.empty());
    hostSets(pidTiltLoudnessMode, 1);
    EXPECT_TRUE(linked.told.empty()) << "not zero";
    hostSets(pidTiltLoudnessMode, 0);
    EXPECT_EQ(linked.told, (std::vector<std::pair<std::uint32_t, bool>>{{7, true}, {1, true}}));
    linked.told.clear();
    linked.updateParameterFromSketchState(pidTiltLoudnessMode, 0);
    EXPECT_TRUE(linked.told.empty()) << "zero as before";
}

TEST_F(QVMGenericUISideEffects, DisablingAnEndDisablesTheRangeThatItBelongsTo) {
    ScopedRecord record(6);
    record.parameter.disables = {{}, {"TiltRangeLow"}, {"FilterRangeHigh"}};
    const auto isDisabled = [this](std::uint32_t pid) { return control(pid).range()->primaryControl()->isDisabled(); };
    hostSets(pidTiltLoudnessMode, 1);
    EXPECT_TRUE(isDisabled(2));
    EXPECT_FALSE(isDisabled(10));
    hostSets(pidTiltLoudnessMode, 2);
    EXPECT_FALSE(isDisabled(2));
    EXPECT_TRUE(isDisabled(10));
    hostSets(pidTiltLoudnessMode, 0);
    EXPECT_FALSE(isDisabled(10));
}

TEST_F(QVMGenericUISideEffects, ADisabledRangeMovesNeitherEnd) {
    ScopedRecord record(6);
    record.parameter.disables = {{}, {"TiltRangeLow", "TiltRangeHigh"}};
    const Point band = middleOf(*control(pidTiltRangeLow).range());
    hostSets(pidTiltLoudnessMode, 1);
    delegate_.calls.clear();
    window_.sendEvent(mouseEvent(EventType::mouseDown, band));
    window_.sendEvent(mouseEvent(EventType::mouseDragged, band + Point{20, 0}));
    window_.sendEvent(mouseEvent(EventType::mouseUp, band + Point{20, 0}));
    EXPECT_TRUE(delegate_.calls.empty());
}

TEST_F(QVMGenericUISideEffects, HidesHideAtTheirValue) {
    ScopedRecord record(6);
    record.parameter.hides = {{}, {}, {"OutputGain"}};
    hostSets(pidTiltLoudnessMode, 2);
    EXPECT_TRUE(control(pidOutputGain).isHidden());
    hostSets(pidTiltLoudnessMode, 1);
    EXPECT_FALSE(control(pidOutputGain).isHidden());
}

TEST_F(QVMGenericUISideEffects, ThePresetIsFoundChangedHalfASecondAfterTheLastChange) {
    hostSets(pidTiltGain, 6);
    time_.advance(0.3);
    hostSets(pidTiltGain, 7);
    time_.advance(0.4);
    EXPECT_FALSE(ui_->presetBar()->dirty());
    time_.advance(0.2);
    EXPECT_TRUE(ui_->presetBar()->dirty());
}

TEST_F(QVMGenericUISideEffects, APresetIsCleanAFineStepAwayDirtyAndBackAgainClean) {
    const auto isDirtyAt = [this](float gain) {
        ui_->notifyParameterUpdatedTo(pidTiltGain, gain);
        frame();
        time_.advance(0.6);
        return ui_->presetBar()->dirty();
    };
    ui_->requestPresetNamed("Dull");
    const float chosen = memoized(pidTiltGain), step = GetParameter(pidTiltGain)->fineGranularity;
    EXPECT_EQ(chosen, -7.5f);
    frame();
    time_.advance(0.6);
    EXPECT_FALSE(ui_->presetBar()->dirty());
    EXPECT_TRUE(isDirtyAt(GetParameter(pidTiltGain)->normalizeFloatValue(chosen + step, QVMGranularityFine)));
    EXPECT_FALSE(isDirtyAt(chosen));
}

TEST_F(QVMGenericUISideEffects, NoSettingsEqualAPresetThatDoesNotExist) {
    const auto isDirtyWithPreset = [this](std::uint32_t index) {
        ui_->lastSavedPresetWasKeyed(index);
        hostSets(pidTiltGain, 1);
        hostSets(pidTiltGain, 0); // the values are those of the first preset again
        time_.advance(0.6);
        return ui_->presetBar()->dirty();
    };
    ui_->requestPresetNamed("Default");
    EXPECT_TRUE(isDirtyWithPreset(23));
    EXPECT_FALSE(isDirtyWithPreset(0));
}

TEST_F(QVMGenericUISideEffects, AChannelRuleThatMatchesPinsAndDisablesItsControl) {
    ScopedRecord record(7);
    record.parameter.channelLayoutRules = {{QVMChannelPair{1, 1}, true, 3.0f}, {std::nullopt, true, 9.0f}};
    open(QVMConfig::inlinedConfig(), 1, 1);
    EXPECT_TRUE(control(pidOutputGain).isDimmed());
    EXPECT_EQ(control(pidOutputGain).dimHolds().at("Absolute"), 1000u);
    EXPECT_TRUE(control(pidOutputGain).primaryControl()->isDisabled());
    control(pidOutputGain).setFloatValue(-6);
    EXPECT_EQ(control(pidOutputGain).floatValue(), 3);
}

TEST_F(QVMGenericUISideEffects, AChannelRuleForOtherChannelsIsIgnored) {
    ScopedRecord record(7);
    record.parameter.channelLayoutRules = {{QVMChannelPair{1, 1}, true, 3.0f}};
    open(QVMConfig::inlinedConfig(), 2, 2);
    EXPECT_FALSE(control(pidOutputGain).isDimmed());
    EXPECT_FALSE(control(pidOutputGain).primaryControl()->isDisabled());
}

} // namespace
} // namespace QVM_NAMESPACE
