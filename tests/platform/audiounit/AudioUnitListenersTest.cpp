// When listeners are told, and in which order.
#include "platform/audiounit/ListenerFixture.h"

#include <thread>
#include <utility>

namespace QVM_NAMESPACE {
namespace {

using AudioUnitListeners = ListenerFixture;

TEST_F(AudioUnitListeners, AValueIsStoredAtOnceAndHeardOnTheRunLoop) {
    Ear& ear = listener();
    set(1, 0.5F);
    EXPECT_EQ(unit.values[1], 0.5F);
    EXPECT_TRUE(ear.heard.empty());
    time.settle();
    EXPECT_EQ(ear.heard, Heard{"value 1 = 0.5"});
    time.advance(1);
    EXPECT_EQ(ear.heard.size(), 1U);
}

TEST_F(AudioUnitListeners, TheSendingListenerHearsNothing) {
    Ear &sender = listener(), &other = listener();
    set(1, 0.5F, sender.handle);
    time.settle();
    EXPECT_TRUE(sender.heard.empty());
    EXPECT_EQ(other.heard, Heard{"value 1 = 0.5"});
}

TEST_F(AudioUnitListeners, ValuesOfOneParameterCollapseIntoTheLatest) {
    Ear& ear = listener();
    set(1, 0.1F);
    set(2, 0.2F);
    set(1, 0.3F);
    time.settle();
    EXPECT_EQ(ear.heard, (Heard{"value 1 = 0.3", "value 2 = 0.2"}));
}

TEST_F(AudioUnitListeners, NotMoreThanOneRoundAnInterval) {
    Ear& ear = listener(0.1F);
    set(1, 0.1F);
    time.settle();
    EXPECT_EQ(ear.heard.size(), 1U) << "the first is not held back";
    set(1, 0.2F);
    time.advance(0.05);
    set(1, 0.3F);
    EXPECT_EQ(ear.heard.size(), 1U);
    time.advance(0.06);
    EXPECT_EQ(ear.heard, (Heard{"value 1 = 0.1", "value 1 = 0.3"}));
}

TEST_F(AudioUnitListeners, BeginValueAndEndKeepTheirOrder) {
    Ear& ear = eventListener();
    notify(1, 1);
    set(1, 0.1F);
    set(1, 0.2F);
    notify(2, 1);
    set(1, 0.3F);
    time.settle();
    EXPECT_EQ(ear.heard, (Heard{"begin 1", "value 1 = 0.2", "end 1", "value 1 = 0.3"}));
}

TEST_F(AudioUnitListeners, AGestureEndsTheWaitForTheInterval) {
    Ear& ear = eventListener(AUEventDelivery::queued, 10);
    set(1, 0.1F);
    time.settle();
    set(1, 0.2F);
    notify(2, 1);
    time.settle();
    EXPECT_EQ(ear.heard, (Heard{"value 1 = 0.1", "value 1 = 0.2", "end 1"}));
}

// The round that was due before the gesture's own does not come any more.
TEST_F(AudioUnitListeners, AGestureBeginsTheIntervalAnew) {
    Ear& ear = eventListener(AUEventDelivery::queued, 0.1F);
    set(1, 0.1F);
    time.settle();
    time.advance(0.02);
    set(1, 0.2F);
    time.advance(0.03);
    notify(2, 1);
    time.settle();
    EXPECT_EQ(ear.heard, (Heard{"value 1 = 0.1", "value 1 = 0.2", "end 1"}));
    set(1, 0.3F);
    time.advance(0.07);
    EXPECT_EQ(ear.heard.size(), 3U) << "the next round is a whole interval after the gesture's";
    time.advance(0.04);
    EXPECT_EQ(ear.heard.back(), "value 1 = 0.3");
}

TEST_F(AudioUnitListeners, ImmediateDeliveryHappensBeforeTheCallReturns) {
    Ear& ear = eventListener(AUEventDelivery::immediate);
    notify(1, 1);
    EXPECT_EQ(ear.heard, Heard{"begin 1"});
    set(1, 0.5F);
    set(1, 0.6F);
    notify(0, 1);
    notify(2, 1);
    EXPECT_EQ(ear.heard, (Heard{"begin 1", "value 1 = 0.5", "value 1 = 0.6", "value 1 = 0.6", "end 1"}));
    time.advance(1);
    EXPECT_EQ(ear.heard.size(), 5U);
}

TEST_F(AudioUnitListeners, AParameterBecomesAnotherOnlyWhereTheUnitMadeAnotherValueOfIt) {
    Ear& ear = eventListener(AUEventDelivery::immediate);
    const AudioUnitEvent another = event(kQVMEvent_ParameterBecameAnother, 1);
    ASSERT_EQ(AUEventListenerAddEventType(ear.handle, nullptr, &another), noErr);
    unit.limits[1] = {0, 1};
    set(1, 0.5F);
    set(1, 0.5F);
    EXPECT_EQ(std::exchange(ear.heard, {}), (Heard{"another 1", "value 1 = 0.5", "value 1 = 0.5"}));
    set(1, 7);
    set(1, 9);
    EXPECT_EQ(std::exchange(ear.heard, {}), (Heard{"another 1", "value 1 = 1.0", "value 1 = 1.0"})) << "it clamps";
    set(1, 0.5F, ear.handle);
    EXPECT_EQ(ear.heard, Heard{}) << "its own";
    EXPECT_EQ(AUEventListenerNotify(nullptr, nullptr, &another), kAudio_ParamError) << "there was no value";
}

TEST_F(AudioUnitListeners, ImmediateDeliveryFromAnotherThreadIsQueued) {
    Ear& ear = eventListener(AUEventDelivery::immediate);
    std::thread([this] { set(1, 0.1F); }).join();
    EXPECT_TRUE(ear.heard.empty());
    notify(1, 1);
    EXPECT_EQ(ear.heard, (Heard{"value 1 = 0.1", "begin 1"})) << "what waits goes first";
    std::thread([this] { set(2, 0.2F); }).join();
    time.settle();
    EXPECT_EQ(ear.heard.back(), "value 2 = 0.2");
}

TEST_F(AudioUnitListeners, ACallbackThatSendsKeepsTheOrder) {
    Ear& ear = eventListener(AUEventDelivery::immediate);
    ear.then = [this, &ear] {
        if (ear.heard.size() == 1) set(2, 0.7F);
    };
    set(1, 0.5F);
    EXPECT_EQ(ear.heard, (Heard{"value 1 = 0.5", "value 2 = 0.7"}));
}

} // namespace
} // namespace QVM_NAMESPACE
