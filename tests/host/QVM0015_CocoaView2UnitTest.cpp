// The view on the real unit: what one of them writes the other reads.
#include "host/HostViewFixture.h"

#include "controls/QVMCycleControl.h"
#include "editor/surface/QVMPresetBar.h"
#include "unit/QVM0015_AudioUnit.h"

namespace QVM_NAMESPACE {
namespace {

class OnTheRealUnit : public HostView {
protected:
    OnTheRealUnit() { view = make(); }
    std::unique_ptr<QVM0015_CocoaView2> make() {
        return QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&real, {});
    }
    ~OnTheRealUnit() override { view.reset(); }

    QVM0015_AudioUnit real;
};

TEST_F(OnTheRealUnit, EveryPropertyOfTheBindingIsThere) {
    EXPECT_TRUE(logged.empty()) << logged.front();
    EXPECT_EQ(ui().config().chanIn, 2U);
    EXPECT_EQ(ui().abState(), 0U);
    EXPECT_EQ(ui().currentPreset(), 0U);
}

TEST_F(OnTheRealUnit, EveryRequestSucceeds) {
    double sampleRate = 0;
    std::uint32_t maxFrames = 0;
    delegate().interfaceWantsSampleRateMaxFrames(ui(), sampleRate, maxFrames);
    EXPECT_EQ(sampleRate, 44100);
    EXPECT_EQ(maxFrames, 512U);
    delegate().interfaceWantsToResetMetering(ui());
    delegate().interfaceHasReadiedVizRef(ui(), nullptr);
    delegate().interfaceWantsVizRef(ui());
    delegate().interfaceWantsToUploadBufferAtURL(ui(), "/music/impulse.wav");
    EXPECT_EQ(real.bufferPath(), "/music/impulse.wav");
    delegate().interfaceDidUpdateInterfacePreferenceValue(ui(), "theme", 1);
    EXPECT_TRUE(real.interfacePreference());
    view.reset();
    EXPECT_TRUE(logged.empty());
}

TEST_F(OnTheRealUnit, AValueOfTheEditorIsStoredAndComesBackAsItself) {
    ui().notifyParameterUpdatedTo(pidTiltRangeHigh, 12345.6F);
    view = make();
    EXPECT_NEAR(ui().getMemoizedPValueDirectly(pidTiltRangeHigh), 12345.6F, 0.11F);
}

TEST_F(OnTheRealUnit, AReopenedEditorFindsWhatItLeft) {
    view->requestPresetNamed("Sub Love");
    delegate().interfaceWantsToSaveAlternateStateSettings(ui(), 0, "1;2;3");
    delegate().interfaceWantsToAssumeFrame(ui(), 1);
    view = make();
    EXPECT_EQ(ui().currentPreset(), 7U);
    EXPECT_EQ(ui().abState(), 1U);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 680, 320}));
}

// Before the unit's first frame, as the stand-alone program asks for it. The range links start below their range.
TEST_F(OnTheRealUnit, APresetThatIsAskedForAtOnceLeavesWhatTheUnitHeldOnTheOtherSide) {
    const auto held = [this] {
        std::vector<float> values;
        for (std::uint32_t pid = 0; pid < 24; ++pid)
            values.push_back(view->valueForParameterID(pid));
        return values;
    };
    const std::vector<float> before = held();
    view->requestPresetNamed("Air");
    ASSERT_NE(held(), before);
    ui().presetBar()->ab().tap();
    EXPECT_EQ(held(), before);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltRangeLink), 0);
}

TEST_F(OnTheRealUnit, ASavedStateCarriesTheEditorsSettingsToAnotherUnit) {
    view->requestPresetNamed("Sub Love");
    const auto saved = real.saveState();
    QVM0015_AudioUnit other;
    ASSERT_EQ(other.restoreState(saved), UnitStateResult::ok);
    const auto second = QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&other, {});
    EXPECT_EQ(second->ui().currentPreset(), 7U);
    for (std::uint32_t pid = 0; pid < 24; ++pid) {
        EXPECT_EQ(second->valueForParameterID(pid), view->valueForParameterID(pid)) << pid;
    }
}

// What another unit has saved is restored under the open editor.
class RestoredUnder : public OnTheRealUnit {
protected:
    template <class Value>
    void setInOther(AudioUnitPropertyID id, const Value& value) {
        ASSERT_EQ(AudioUnitSetProperty(&other, id, kAudioUnitScope_Global, 0, &value, sizeof value), noErr);
    }
    void restore() {
        const std::uint32_t before = real.restoreCount();
        ASSERT_EQ(real.restoreState(other.saveState()), UnitStateResult::ok);
        EXPECT_EQ(real.restoreCount(), before + 1);
        view->adoptRestoredState();
    }
    std::string shownPreset() {
        const auto& name = dynamic_cast<QVMCycleControl&>(*ui().presetBar()->presetControl()->primaryControl());
        return name.value()->string().string();
    }
    QVM0015_AudioUnit other;
};

TEST_F(RestoredUnder, TheSlotsPresetAndLayoutAreTakenOverAtOnce) {
    const std::string settings = "1;2;3", name = "Sub Love";
    setInOther(kQVMProperty_ABState, QVMABRecord{0, 0, &settings});
    setInOther(kQVMProperty_PresetName, &name);
    setInOther(kQVMProperty_InterfaceState, std::uint32_t{1});
    restore();
    EXPECT_EQ(ui().abState(), 1U);
    EXPECT_EQ(shownPreset(), "Sub Love");
    EXPECT_EQ(view->frame(), (Rect{0, 0, 680, 320}));
    ui().presetBar()->ab().tap();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltRangeLow), 3);
}

TEST_F(RestoredUnder, ANameOfNoPresetIsShownAsSuch) {
    const std::string name = "Of another version";
    setInOther(kQVMProperty_PresetName, &name);
    restore();
    EXPECT_EQ(shownPreset(), "N/A");
    const auto reopened = make();
    EXPECT_EQ(reopened->ui().currentPreset(), GetPresets()->stringValues.size());
}

TEST_F(RestoredUnder, WhereNothingWasSavedBothSlotsHaveTheRestoredValues) {
    ui().notifyParameterUpdatedTo(pidTiltGain, 6);
    ui().presetBar()->ab().tap();
    ASSERT_EQ(ui().abState(), 1U);
    EXPECT_EQ(AudioUnitSetParameter(&other, pidTiltGain, 0, 0, -3, 0), noErr);
    const float frequency = GetParameter(pidTiltRangeLow)->reverseCastValue(500);
    EXPECT_EQ(AudioUnitSetParameter(&other, pidTiltRangeLow, 0, 0, frequency, 0), noErr);
    restore();
    EXPECT_EQ(ui().abState(), 0U);
    ui().presetBar()->ab().tap();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltGain), -3);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltRangeLow), 500);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltRangeLink), 0) << "as the unit holds it, below its range";
}

TEST_F(RestoredUnder, NothingIsSentToTheUnit) {
    EXPECT_EQ(AudioUnitSetParameter(&other, pidTiltGain, 0, 0, -3, 0), noErr);
    restore();
    time.advance(2);
    EXPECT_EQ(real.saveState(), other.saveState());
}

TEST_F(OnTheRealUnit, AViewThatWasNeverBoundHasNothingToAdopt) {
    QVM0015_CocoaView2 unbound(Rect{0, 0, 10, 10});
    unbound.adoptRestoredState();
    EXPECT_TRUE(logged.empty());
}

TEST_F(OnTheRealUnit, OpeningAndClosingManyTimesLeavesNothingBehind) {
    for (int i = 0; i < 50; ++i)
        view = make();
    view.reset();
    EXPECT_EQ(RunLoop::main().nextDue(), std::nullopt);
    EXPECT_TRUE(logged.empty());
}

} // namespace
} // namespace QVM_NAMESPACE
