#include "platform/audiounit/AudioUnitListeners.h"

#include "platform/runloop/VirtualTime.h"
#include "support/FakeAudioUnit.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

class AudioUnitListeners : public testing::Test {
protected:
    // What a listener heard, in words: "begin 3", "value 3 = 0.5", "end 3".
    struct Ear {
        AUListener* handle = nullptr;
        std::vector<std::string> heard;
        std::function<void()> then = [] {};
    };

    AudioUnitListeners() { time.settle(); }
    ~AudioUnitListeners() override {
        for (const auto& ear : ears)
            AUListenerDispose(ear->handle);
    }

    static void hearValue(void* ear, void*, const AudioUnitParameter* parameter, float value) {
        record(*static_cast<Ear*>(ear), 0, parameter->mParameterID, value);
    }
    static void hearEvent(void* ear, void*, const AudioUnitEvent* event, float value) {
        record(*static_cast<Ear*>(ear), event->mEventType, event->mArgument.mParameterID, value);
    }
    static void record(Ear& ear, std::uint32_t type, std::uint32_t pid, float value) {
        const char* names[] = {"value ", "begin ", "end "};
        std::string line = names[type] + std::to_string(pid);
        if (type == 0) line += " = " + std::to_string(value).substr(0, 3);
        ear.heard.push_back(line);
        ear.then();
    }

    Ear& listener(float interval = 0) {
        ears.push_back(std::make_unique<Ear>());
        Ear& ear = *ears.back();
        EXPECT_EQ(AUListenerCreate(hearValue, &ear, &RunLoop::main(), interval, &ear.handle), noErr);
        for (const std::uint32_t pid : {1U, 2U}) {
            const AudioUnitParameter p = parameter(pid);
            EXPECT_EQ(AUListenerAddParameter(ear.handle, nullptr, &p), noErr);
        }
        return ear;
    }
    Ear& eventListener(AUEventDelivery delivery = AUEventDelivery::queued, float interval = 0) {
        ears.push_back(std::make_unique<Ear>());
        Ear& ear = *ears.back();
        EXPECT_EQ(AUEventListenerCreate(hearEvent, &ear, &RunLoop::main(), interval, delivery, &ear.handle), noErr);
        for (const std::uint32_t pid : {1U, 2U}) {
            for (const std::uint32_t type : {0U, 1U, 2U}) {
                const AudioUnitEvent e = event(type, pid);
                EXPECT_EQ(AUEventListenerAddEventType(ear.handle, nullptr, &e), noErr);
            }
        }
        return ear;
    }

    AudioUnitParameter parameter(std::uint32_t pid) { return {&unit, pid}; }
    AudioUnitEvent event(std::uint32_t type, std::uint32_t pid) {
        return {static_cast<AudioUnitEventType>(type), parameter(pid)};
    }
    void set(std::uint32_t pid, float value, AUListener* sender = nullptr) {
        const AudioUnitParameter p = parameter(pid);
        EXPECT_EQ(AUParameterSet(sender, nullptr, &p, value, 0), noErr);
    }
    void notify(std::uint32_t type, std::uint32_t pid, AUListener* sender = nullptr) {
        const AudioUnitEvent e = event(type, pid);
        EXPECT_EQ(AUEventListenerNotify(sender, nullptr, &e), noErr);
    }

    using Heard = std::vector<std::string>;
    VirtualTime time;
    FakeAudioUnit unit;
    std::vector<std::unique_ptr<Ear>> ears;
};

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

TEST_F(AudioUnitListeners, ADisposedListenerHearsNothingEvenOfWhatWasSentBefore) {
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

TEST_F(AudioUnitListeners, AListenerMayDisposeOfItselfInItsCallback) {
    Ear& ear = listener();
    ear.then = [&ear] { AUListenerDispose(ear.handle); };
    set(1, 0.5F);
    set(2, 0.6F);
    time.settle();
    EXPECT_EQ(ear.heard, Heard{"value 1 = 0.5"});
}

TEST_F(AudioUnitListeners, ARemovedParameterIsHeardNoMore) {
    Ear& ear = listener();
    const AudioUnitParameter p = parameter(1);
    set(1, 0.5F);
    EXPECT_EQ(AUListenerRemoveParameter(ear.handle, nullptr, &p), noErr);
    set(2, 0.6F);
    time.settle();
    EXPECT_EQ(ear.heard, Heard{"value 2 = 0.6"});
    EXPECT_EQ(AUListenerRemoveParameter(ear.handle, nullptr, &p), noErr) << "removing twice is no error";
}

TEST_F(AudioUnitListeners, ARemovedEventTypeIsHeardNoMore) {
    Ear& ear = eventListener(AUEventDelivery::immediate);
    const AudioUnitEvent begin = event(1, 1);
    EXPECT_EQ(AUEventListenerRemoveEventType(ear.handle, nullptr, &begin), noErr);
    notify(1, 1);
    notify(2, 1);
    EXPECT_EQ(ear.heard, Heard{"end 1"});
}

TEST_F(AudioUnitListeners, AddingTwiceIsHeardOnce) {
    Ear& ear = listener();
    const AudioUnitParameter p = parameter(1);
    EXPECT_EQ(AUListenerAddParameter(ear.handle, nullptr, &p), noErr);
    set(1, 0.5F);
    time.settle();
    EXPECT_EQ(ear.heard.size(), 1U);
}

TEST_F(AudioUnitListeners, EachObjectOfAListenerIsTold) {
    Ear& ear = listener();
    int object = 0;
    const AudioUnitParameter p = parameter(1);
    EXPECT_EQ(AUListenerAddParameter(ear.handle, &object, &p), noErr);
    set(1, 0.5F);
    time.settle();
    EXPECT_EQ(ear.heard.size(), 2U);
}

TEST_F(AudioUnitListeners, AFailedSetTellsNobody) {
    Ear& ear = listener();
    unit.parameterErrors[1] = kAudioUnitErr_InvalidParameter;
    const AudioUnitParameter p = parameter(1);
    EXPECT_EQ(AUParameterSet(nullptr, nullptr, &p, 0.5F, 0), kAudioUnitErr_InvalidParameter);
    time.settle();
    EXPECT_TRUE(ear.heard.empty());
}

TEST_F(AudioUnitListeners, AutomationByTheHostTellsNobody) {
    Ear& ear = listener();
    EXPECT_EQ(AudioUnitSetParameter(&unit, 1, 0, 0, 0.5F, 0), noErr);
    time.settle();
    EXPECT_TRUE(ear.heard.empty());
}

TEST_F(AudioUnitListeners, AUnitThatDiesTakesItsEventsAlong) {
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

TEST_F(AudioUnitListeners, BadArgumentsGiveErrors) {
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

TEST_F(AudioUnitListeners, ManyThreadsMaySend) {
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
