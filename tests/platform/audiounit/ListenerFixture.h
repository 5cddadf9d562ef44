// Listeners that write down what they hear of a unit, in virtual time.
#pragma once

#include "platform/audiounit/AudioUnitListeners.h"

#include "platform/runloop/VirtualTime.h"
#include "support/FakeAudioUnit.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class ListenerFixture : public testing::Test {
protected:
    // What a listener heard, in words: "begin 3", "value 3 = 0.5", "end 3".
    struct Ear {
        AUListener* handle = nullptr;
        std::vector<std::string> heard;
        std::function<void()> then = [] {};
    };

    ListenerFixture() { time.settle(); }
    ~ListenerFixture() override {
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
        std::string line = (type < std::size(names) ? names[type] : "another ") + std::to_string(pid);
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

} // namespace QVM_NAMESPACE
