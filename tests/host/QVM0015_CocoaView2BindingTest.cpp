#include "host/HostViewFixture.h"

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using Binding = HostView;

Lines parameterReads() {
    Lines reads;
    for (int pid = 0; pid < 24; ++pid)
        reads.push_back("get " + std::to_string(pid));
    return reads;
}

TEST_F(Binding, ReadsChannelsThenParametersThenWhatWasSaved) {
    bind();
    Lines expected = {"get property 64005", "get property 64006"};
    for (const std::string& read : parameterReads())
        expected.push_back(read);
    for (const char* read : {"get property 64004", "get property 64008", "get property 64010"}) {
        expected.push_back(read);
    }
    EXPECT_EQ(takeCalls(), expected);
    EXPECT_TRUE(logged.empty());
}

TEST_F(Binding, HandsTheChannelCountsToTheEditor) {
    unit.addProperty(64005, std::uint32_t{1});
    bind();
    EXPECT_EQ(ui().config().chanIn, 1U);
    EXPECT_EQ(ui().config().chanOut, 2U);
}

TEST_F(Binding, AHostValueOf12005ForTheLowTiltRangeArrivesAs489Point9) {
    unit.values[2] = 12005;
    bind();
    EXPECT_NEAR(ui().getMemoizedPValueDirectly(pidTiltRangeLow), 489.9F, 0.001F);
}

TEST_F(Binding, AHostValueOf0Point3ForTheMasterSwitchArrivesAs1) {
    unit.values[0] = 0.3F;
    bind();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidMasterOnOff), 1.0F);
}

TEST_F(Binding, ANaNForTheMasterSwitchArrivesAs1) {
    unit.values[0] = std::nanf("");
    bind();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidMasterOnOff), 1.0F);
}

TEST_F(Binding, NaNForAnyParameterArrivesAsANumberOfItsRange) {
    for (auto& value : unit.values)
        value = std::nanf("");
    bind();
    for (std::uint32_t pid = 0; pid < 24; ++pid) {
        const QVMParameter& parameter = *ui().config().parameterForPid(pid);
        const float value = ui().getMemoizedPValueDirectly(pid);
        EXPECT_GE(value, parameter.minValue) << pid;
        EXPECT_LE(value, parameter.maxValue) << pid;
    }
}

TEST_F(Binding, AFrequencyAboveOneKilohertzKeepsItsFineStep) {
    const QVMParameter& parameter = *QVMConfig::inlinedConfig()->parameterForPid(pidTiltRangeHigh);
    unit.values[3] = parameter.reverseCastValue(1234.56F);
    bind();
    EXPECT_NEAR(ui().getMemoizedPValueDirectly(pidTiltRangeHigh), 1234.6F, 0.01F);
}

TEST_F(Binding, TheRangeLinkSwitchesAreClampedUpToTheirRange) {
    unit.values[4] = 1;
    unit.values[11] = 0;
    bind();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltRangeLink), 10.0F);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidFilterRangeLink), 4.0F);
}

TEST_F(Binding, ValuesBeyondTheRangeAreClamped) {
    unit.values[1] = -500;
    unit.values[7] = 1e30F;
    bind();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltGain), -18.0F);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidOutputGain), 12.0F);
}

TEST_F(Binding, AFailedReadStillGivesAValueAndBindingContinues) {
    unit.parameterErrors[1] = kAudioUnitErr_InvalidParameter;
    unit.values[7] = -6;
    bind();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltGain), 0.0F);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidOutputGain), -6.0F);
    EXPECT_EQ(takeTags(), Lines{"get"});
}

TEST_F(Binding, SendsNothingToTheUnit) {
    bind();
    time.advance(2);
    for (const std::string& call : takeCalls())
        EXPECT_EQ(call.find("set"), std::string::npos) << call;
}

TEST_F(Binding, RestoresThePresetName) {
    const std::string name = "Warmer";
    unit.addProperty(64004, &name);
    bind();
    EXPECT_EQ(ui().currentPreset(), 4U);
}

TEST_F(Binding, RestoresTheAlternateState) {
    const std::string settings = "1;2;3";
    unit.addProperty(64008, QVMABRecord{0, 0, &settings});
    bind();
    EXPECT_EQ(ui().abState(), 1U) << "the saved slot is the one that is not active";
}

TEST_F(Binding, NothingSavedLeavesTheFirstSlotActive) {
    bind();
    EXPECT_EQ(ui().abState(), 0U);
}

TEST_F(Binding, RestoresTheInterfaceState) {
    unit.addProperty(64010, std::uint32_t{1});
    bind();
    EXPECT_EQ(ui().altFrame(), 1);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 680, 320}));
}

TEST_F(Binding, AGarbageInterfaceStateIsIgnored) {
    unit.addProperty(64010, std::uint32_t{0xFFFFFFFF});
    bind();
    EXPECT_EQ(view->frame(), (Rect{0, 0, 480, 320}));
}

TEST_F(Binding, TeardownClosesTheVisualisationAndStopsListening) {
    bind();
    takeCalls();
    view.reset();
    EXPECT_EQ(takeCalls(), Lines{"set property 64012"});
    EXPECT_EQ(unit.property<std::uint32_t>(64012), 1U);
    EXPECT_TRUE(logged.empty()) << "every listener was removed and disposed of without an error";
}

TEST_F(Binding, ValuesThatWaitForTheListenerDoNotReachADeadView) {
    bind();
    const AudioUnitParameter parameter{&unit, 1};
    EXPECT_EQ(AUParameterSet(nullptr, nullptr, &parameter, 2, 0), noErr);
    view.reset();
    time.advance(2);
    EXPECT_TRUE(logged.empty());
}

TEST_F(Binding, DelayedWorkOfTheEditorDiesWithTheView) {
    bind();
    ui().notifyParameterUpdatedTo(pidTiltGain, 3);
    view.reset();
    takeCalls();
    time.advance(5);
    EXPECT_TRUE(takeCalls().empty());
}

TEST_F(Binding, RebindingLetsTheFirstUnitGoAndReadsTheSecond) {
    FakeAudioUnit second;
    addAllProperties(second);
    second.values[1] = -4;
    bind();
    takeCalls();
    view->setAU(&second);
    EXPECT_EQ(takeCalls(), Lines{"set property 64012"});
    EXPECT_EQ(view->subviews().size(), 1U);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltGain), -4.0F);
    ui().notifyParameterUpdatedTo(pidTiltGain, 5);
    EXPECT_EQ(second.values[1], 5.0F);
    EXPECT_TRUE(takeCalls().empty()) << "nothing more for the first unit";
    EXPECT_TRUE(logged.empty());
    view.reset();
}

TEST_F(Binding, RebindingStopsListeningToTheFirstUnit) {
    FakeAudioUnit second;
    addAllProperties(second);
    bind();
    view->setAU(&second);
    time.advance(5); // nothing is left to do
    ASSERT_EQ(RunLoop::main().nextDue(), std::nullopt);
    const AudioUnitParameter ofFirst{&unit, 1}, ofSecond{&second, 1};
    EXPECT_EQ(AUParameterSet(nullptr, nullptr, &ofFirst, 2, 0), noErr);
    EXPECT_EQ(RunLoop::main().nextDue(), std::nullopt) << "a listener of the first unit waits to be called";
    EXPECT_EQ(AUParameterSet(nullptr, nullptr, &ofSecond, 2, 0), noErr);
    EXPECT_NE(RunLoop::main().nextDue(), std::nullopt);
    view.reset();
}

TEST_F(Binding, AViewThatWasNeverBoundDiesInSilence) {
    QVM0015_CocoaView2 unbound(Rect{0, 0, 10, 10});
    unbound.requestPresetNamed("Warmer");
    unbound.setParameterValuePairs({{"TiltGain", 1.0F}});
    EXPECT_EQ(unbound.valueForParameterID(0), 0.0F);
    EXPECT_TRUE(unbound.subviews().empty());
    EXPECT_TRUE(logged.empty());
}

} // namespace
} // namespace QVM_NAMESPACE
