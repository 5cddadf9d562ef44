// Who is told: what is added, removed and disposed of, senders on many threads, and arguments that make no sense.
#include "platform/audiounit/ListenerFixture.h"

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using ListenerRegistration = ListenerFixture;

TEST_F(ListenerRegistration, ADisposedListenerHearsNothingEvenOfWhatWasSentBefore) {
    Ear& ear = listener();
    set(1, 0.5F);
    EXPECT_EQ(AUListenerDispose(ear.handle), noErr);
    time.advance(1);
    EXPECT_TRUE(ear.heard.empty());
    EXPECT_NE(AUListenerDispose(ear.handle), noErr) << "the handle is known to be stale";
    const AudioUnitParameter p = parameter(1);
    EXPECT_NE(AUListenerAddParameter(ear.handle, nullptr, &p), noErr);
    EXPECT_NE(AUListenerRemoveParameter(ear.handle, nullptr, &p), noErr);
}

TEST_F(ListenerRegistration, AListenerMayDisposeOfItselfInItsCallback) {
    Ear& ear = listener();
    ear.then = [&ear] { AUListenerDispose(ear.handle); };
    set(1, 0.5F);
    set(2, 0.6F);
    time.settle();
    EXPECT_EQ(ear.heard, Heard{"value 1 = 0.5"});
}

TEST_F(ListenerRegistration, ARemovedParameterIsHeardNoMore) {
    Ear& ear = listener();
    const AudioUnitParameter p = parameter(1);
    set(1, 0.5F);
    EXPECT_EQ(AUListenerRemoveParameter(ear.handle, nullptr, &p), noErr);
    set(2, 0.6F);
    time.settle();
    EXPECT_EQ(ear.heard, Heard{"value 2 = 0.6"});
    EXPECT_EQ(AUListenerRemoveParameter(ear.handle, nullptr, &p), noErr) << "removing twice is no error";
}

TEST_F(ListenerRegistration, ARemovedEventTypeIsHeardNoMore) {
    Ear& ear = eventListener(AUEventDelivery::immediate);
    const AudioUnitEvent begin = event(1, 1);
    EXPECT_EQ(AUEventListenerRemoveEventType(ear.handle, nullptr, &begin), noErr);
    notify(1, 1);
    notify(2, 1);
    EXPECT_EQ(ear.heard, Heard{"end 1"});
}

TEST_F(ListenerRegistration, AddingTwiceIsHeardOnce) {
    Ear& ear = listener();
    const AudioUnitParameter p = parameter(1);
    EXPECT_EQ(AUListenerAddParameter(ear.handle, nullptr, &p), noErr);
    set(1, 0.5F);
    time.settle();
    EXPECT_EQ(ear.heard.size(), 1U);
}

TEST_F(ListenerRegistration, EachObjectOfAListenerIsTold) {
    Ear& ear = listener();
    int object = 0;
    const AudioUnitParameter p = parameter(1);
    EXPECT_EQ(AUListenerAddParameter(ear.handle, &object, &p), noErr);
    set(1, 0.5F);
    time.settle();
    EXPECT_EQ(ear.heard.size(), 2U);
}

TEST_F(ListenerRegistration, AFailedSetTellsNobody) {
    Ear& ear = listener();
    unit.parameterErrors[1] = kAudioUnitErr_InvalidParameter;
    const AudioUnitParameter p = parameter(1);
    EXPECT_EQ(AUParameterSet(nullptr, nullptr, &p, 0.5F, 0), kAudioUnitErr_InvalidParameter);
    time.settle();
    EXPECT_TRUE(ear.heard.empty());
}

TEST_F(ListenerRegistration, AutomationByTheHostTellsNobody) {
    Ear& ear = listener();
    EXPECT_EQ(AudioUnitSetParameter(&unit, 1, 0, 0, 0.5F, 0), noErr);
    time.settle();
    EXPECT_TRUE(ear.heard.empty());
}

TEST_F(ListenerRegistration, AUnitThatDiesTakesItsEventsAlong) {
    Ear& ear = listener();
    {
        FakeAudioUnit shortLived;
        const AudioUnitParameter p{&shortLived, 1};
        EXPECT_EQ(AUListenerAddParameter(ear.handle, nullptr, &p), noErr);
        EXPECT_EQ(AUParameterSet(nullptr, nullptr, &p, 0.5F, 0), noErr);
    }
    time.settle();
    EXPECT_TRUE(ear.heard.empty());
}

TEST_F(ListenerRegistration, BadArgumentsGiveErrors) {
    AUListener* handle = nullptr;
    EXPECT_NE(AUListenerCreate(nullptr, nullptr, &RunLoop::main(), 0, &handle), noErr);
    EXPECT_NE(AUListenerCreate(hearValue, nullptr, nullptr, 0, &handle), noErr);
    EXPECT_NE(AUListenerCreate(hearValue, nullptr, &RunLoop::main(), -1, &handle), noErr);
    EXPECT_NE(AUListenerCreate(hearValue, nullptr, &RunLoop::main(), 0, nullptr), noErr);
    EXPECT_NE(AUListenerDispose(nullptr), noErr);
    EXPECT_NE(AUListenerAddParameter(nullptr, nullptr, nullptr), noErr);
    const AudioUnitParameter nowhere;
    EXPECT_NE(AUParameterSet(nullptr, nullptr, &nowhere, 1, 0), noErr);
    EXPECT_NE(AUParameterSet(nullptr, nullptr, nullptr, 1, 0), noErr);
    const AudioUnitEvent unknown = event(3, 1);
    EXPECT_NE(AUEventListenerNotify(nullptr, nullptr, &unknown), noErr);
    EXPECT_NE(AUEventListenerNotify(nullptr, nullptr, nullptr), noErr);
}

TEST_F(ListenerRegistration, ManyThreadsMaySend) {
    struct Quiet final : AudioUnitInstance {
        OSStatus getParameter(AudioUnitParameterID, AudioUnitScope, AudioUnitElement, float* v) const override {
            *v = value;
            return noErr;
        }
        OSStatus setParameter(AudioUnitParameterID, AudioUnitScope, AudioUnitElement, float v, std::uint32_t) override {
            value = v;
            return noErr;
        }
        OSStatus propertyInfo(AudioUnitPropertyID, AudioUnitScope, AudioUnitElement,
                              AudioUnitPropertyInfo*) const override {
            return kAudioUnitErr_InvalidProperty;
        }
        OSStatus getProperty(AudioUnitPropertyID, AudioUnitScope, AudioUnitElement, void*) override { return noErr; }
        OSStatus setProperty(AudioUnitPropertyID, AudioUnitScope, AudioUnitElement, const void*) override {
            return noErr;
        }
        std::atomic<float> value = 0;
    } quiet;
    Ear& ear = listener();
    const AudioUnitParameter p{&quiet, 1};
    EXPECT_EQ(AUListenerAddParameter(ear.handle, nullptr, &p), noErr);
    std::vector<std::thread> senders;
    for (int n = 0; n < 3; ++n) {
        senders.emplace_back([&p] {
            for (int i = 0; i < 2000; ++i)
                AUParameterSet(nullptr, nullptr, &p, 0.5F, 0);
        });
    }
    for (int i = 0; i < 200; ++i)
        time.settle();
    for (auto& sender : senders)
        sender.join();
    time.settle();
    ASSERT_FALSE(ear.heard.empty());
    EXPECT_EQ(ear.heard.back(), "value 1 = 0.5");
}

} // namespace
} // namespace QVM_NAMESPACE
