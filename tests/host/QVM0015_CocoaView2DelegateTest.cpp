#include "host/HostViewFixture.h"

#include "link/SharedState.h"

namespace QVM_NAMESPACE {
namespace {

class AsDelegate : public HostView {
protected:
    AsDelegate() {
        bind();
        takeCalls();
        EXPECT_EQ(AUEventListenerCreate(hear, this, &RunLoop::main(), 0, AUEventDelivery::immediate, &host), noErr);
        for (std::uint32_t pid = 0; pid < 24; ++pid) {
            for (const auto type : {kAudioUnitEvent_ParameterValueChange, kAudioUnitEvent_BeginParameterChangeGesture,
                                    kAudioUnitEvent_EndParameterChangeGesture}) {
                const AudioUnitEvent event{type, {&unit, pid}};
                EXPECT_EQ(AUEventListenerAddEventType(host, nullptr, &event), noErr);
            }
        }
    }
    ~AsDelegate() override { AUListenerDispose(host); }

    static void hear(void* self, void*, const AudioUnitEvent* event, float) {
        const char* names[] = {"value ", "begin ", "end "};
        static_cast<AsDelegate*>(self)->heard.push_back(names[event->mEventType] +
                                                        std::to_string(event->mArgument.mParameterID));
    }

    Lines heard; // what a host that listens is told, in order
    AUEventListenerRef host = nullptr;
};

TEST_F(AsDelegate, AnUpdateIsStoredAtOnceAndTheHostIsTold) {
    delegate().interfaceUpdatedParameterKeyedValue(pidTiltGain, 4.5F);
    EXPECT_EQ(unit.values[1], 4.5F);
    EXPECT_EQ(unit.lastBufferOffset, 0U);
    EXPECT_EQ(heard, Lines{"value 1"});
    EXPECT_EQ(view->valueForParameterID(1), 4.5F);
}

TEST_F(AsDelegate, TheEditorsValuesReachTheUnitInTheHostDomain) {
    ui().notifyParameterUpdatedTo(pidTiltRangeLow, 489.9F);
    EXPECT_NEAR(unit.values[2], 12005.0F, 1.0F);
}

TEST_F(AsDelegate, BeginningAnInteractionNotifiesBegin) {
    delegate().interfaceBeganInteractionWithParameterKeyedEvent(ui(), 3, nullptr);
    EXPECT_EQ(heard, Lines{"begin 3"});
}

TEST_F(AsDelegate, EndingAnInteractionAlwaysSendsAValueChangeBeforeTheEnd) {
    delegate().interfaceEndedInteractionWithParameterKeyed(ui(), 3);
    EXPECT_EQ(heard, (Lines{"value 3", "end 3"}));
}

TEST_F(AsDelegate, ADiscreteInteractionIsBeginValueEnd) {
    delegate().interfaceDiscretelyInteractedWithParameterKeyed(ui(), 23);
    EXPECT_EQ(heard, (Lines{"begin 23", "value 23", "end 23"}));
}

TEST_F(AsDelegate, AWholeGestureReachesTheHostInOrder) {
    delegate().interfaceBeganInteractionWithParameterKeyedEvent(ui(), 7, nullptr);
    delegate().interfaceUpdatedParameterKeyedValue(pidOutputGain, -1);
    delegate().interfaceUpdatedParameterKeyedValue(pidOutputGain, -2);
    delegate().interfaceEndedInteractionWithParameterKeyed(ui(), 7);
    EXPECT_EQ(heard, (Lines{"begin 7", "value 7", "value 7", "value 7", "end 7"}));
    EXPECT_EQ(unit.values[7], -2.0F);
}

// The view's own listener does nothing with what it hears, so what is looked at is whether it is called.
TEST_F(AsDelegate, ItsOwnListenerIsNotToldOfItsChangesButOfThoseOfOthers) {
    time.advance(5); // nothing is left to do
    ASSERT_EQ(RunLoop::main().nextDue(), std::nullopt);
    delegate().interfaceUpdatedParameterKeyedValue(pidTiltGain, 4.5F);
    EXPECT_EQ(RunLoop::main().nextDue(), std::nullopt);
    for (std::uint32_t pid = 0; pid < 24; ++pid) {
        const AudioUnitParameter each{&unit, pid};
        ASSERT_EQ(AUParameterSet(host, nullptr, &each, 1, 0), noErr);
        EXPECT_NE(RunLoop::main().nextDue(), std::nullopt) << pid;
        time.settle();
    }
}

TEST_F(AsDelegate, AutomationIsNotEchoed) {
    QVMGenericUI& editor = ui();
    Window window;
    window.setContentView(std::move(view));
    time.advance(1);
    frame();
    auto* vizRef = unit.property<SharedState*>(64011);
    ASSERT_NE(vizRef, nullptr);
    frame();
    AudioUnitSetParameter(&unit, pidTiltGain, kAudioUnitScope_Global, 0, -7, 0);
    vizRef->glide.parameterStates[1].value = -7; // as a unit that draws does
    takeCalls();
    frame();
    time.advance(2);
    EXPECT_EQ(editor.getMemoizedPValueDirectly(pidTiltGain), -7.0F);
    EXPECT_EQ(takeCalls(), Lines{"get property 64011"});
    EXPECT_TRUE(heard.empty());
}

TEST_F(AsDelegate, AnUnknownPidIsIgnored) {
    delegate().interfaceUpdatedParameterKeyedValue(24, 1);
    delegate().interfaceBeganInteractionWithParameterKeyedEvent(ui(), 24, nullptr);
    delegate().interfaceEndedInteractionWithParameterKeyed(ui(), 0xFFFFFFFF);
    EXPECT_TRUE(heard.empty());
    EXPECT_TRUE(takeCalls().empty());
}

TEST_F(AsDelegate, SampleRateAndMaximumFramesComeFromTheUnit) {
    double sampleRate = 0;
    std::uint32_t maxFrames = 0;
    delegate().interfaceWantsSampleRateMaxFrames(ui(), sampleRate, maxFrames);
    EXPECT_EQ(sampleRate, 48000.0);
    EXPECT_EQ(maxFrames, 1024U);
    EXPECT_EQ(takeCalls(), (Lines{"get property 2", "get property 14"}));
}

TEST_F(AsDelegate, ResettingTheMetersSetsOne) {
    ui().meterTapped();
    EXPECT_EQ(unit.property<std::uint32_t>(64007), 1U);
}

TEST_F(AsDelegate, TheVizRefIsSetAndReadBack) {
    EXPECT_EQ(delegate().interfaceWantsVizRef(ui()), nullptr);
    auto* drawing = reinterpret_cast<SharedState*>(&unit);
    delegate().interfaceHasReadiedVizRef(ui(), drawing);
    EXPECT_EQ(delegate().interfaceWantsVizRef(ui()), drawing);
}

TEST_F(AsDelegate, APreferenceIsSentAsOneByteWithoutItsName) {
    delegate().interfaceDidUpdateInterfacePreferenceValue(ui(), "theme", 256);
    EXPECT_EQ(unit.property<std::uint8_t>(64003), 1);
    delegate().interfaceDidUpdateInterfacePreferenceValue(ui(), "theme", 0);
    EXPECT_EQ(unit.property<std::uint8_t>(64003), 0);
}

TEST_F(AsDelegate, ThePresetNameIsSentAsAReference) {
    delegate().interfaceDidUpdateCurrentPresetToValueNamedPid(ui(), "Sub Love", 7);
    EXPECT_EQ(*unit.property<const std::string*>(64004), "Sub Love");
}

TEST_F(AsDelegate, TheAlternateStateIsSentAsARecord) {
    delegate().interfaceWantsToSaveAlternateStateSettings(ui(), 1, "0;1;2");
    const auto record = unit.property<QVMABRecord>(64008);
    EXPECT_EQ(record.state, 1U);
    EXPECT_EQ(*record.settings, "0;1;2");
}

TEST_F(AsDelegate, TheInterfaceStateIsSent) {
    delegate().interfaceWantsToSaveUIState(ui(), 2);
    EXPECT_EQ(unit.property<std::uint32_t>(64010), 2U);
}

TEST_F(AsDelegate, TheBufferPathIsSentAsAReference) {
    delegate().interfaceWantsToUploadBufferAtURL(ui(), "/music/impulse.wav");
    EXPECT_EQ(*unit.property<const std::string*>(64009), "/music/impulse.wav");
}

TEST_F(AsDelegate, TheAlternateFramesHaveTheirSizes) {
    const Rect sizes[] = {{0, 0, 480, 320}, {0, 0, 680, 320}, {0, 0, 200, 200}};
    for (const std::int32_t index : {1, 2, 0}) {
        delegate().interfaceWantsToAssumeFrame(ui(), index);
        EXPECT_EQ(view->frame(), sizes[index]);
        EXPECT_EQ(ui().altFrame(), index);
        EXPECT_EQ(ui().frame(), view->bounds());
        EXPECT_EQ(unit.property<std::uint32_t>(64010), static_cast<std::uint32_t>(index));
    }
}

TEST_F(AsDelegate, AtAnotherScaleTheFramesHaveWholeSizesRoundedDown) {
    ui().scale().adoptPreference(0.77);
    delegate().interfaceWantsToAssumeFrame(ui(), 0);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 369, 246})); // of 369.6 by 246.4
    delegate().interfaceWantsToAssumeFrame(ui(), 1);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 523, 246})); // of 523.6
    ui().scale().adoptPreference(1.5);
    delegate().interfaceWantsToAssumeFrame(ui(), 2);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 300, 300}));
}

TEST_F(AsDelegate, FrameIndex3SetsTheViewTo0By0) {
    delegate().interfaceWantsToAssumeFrame(ui(), 3);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 0, 0}));
    delegate().interfaceWantsToAssumeFrame(ui(), -1);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 0, 0}));
}

TEST_F(AsDelegate, AssumingAFrameKeepsTheViewsPlace) {
    view->setFrame({30, 40, 480, 320});
    delegate().interfaceWantsToAssumeFrame(ui(), 1);
    EXPECT_EQ(view->frame(), (Rect{30, 40, 680, 320}));
}

TEST_F(AsDelegate, TheGearOpensAndClosesTheWideForm) {
    ui().gearTapped();
    EXPECT_EQ(view->frame().width, 680);
    ui().gearTapped();
    EXPECT_EQ(view->frame().width, 480);
}

TEST_F(AsDelegate, TheHostsRequestsReachTheEditor) {
    view->requestPresetNamed("Warmer");
    EXPECT_EQ(ui().currentPreset(), 4U);
    EXPECT_EQ(*unit.property<const std::string*>(64004), "Warmer");
    view->setParameterValuePairs({{"TiltGain", -2.5F}, {"NoSuchParameter", 9.0F}});
    EXPECT_EQ(unit.values[1], -2.5F);
}

} // namespace
} // namespace QVM_NAMESPACE
