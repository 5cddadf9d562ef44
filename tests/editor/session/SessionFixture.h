// A session with nothing to be seen: the surface writes down what it is asked, and its unit keeps what it can hold.
#pragma once

#include "description/Description.h"
#include "editor/session/EditorSession.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class RecordingSurface : public SessionSurface, public EditorValuesDelegate {
public:
    // What shows a parameter: it writes down what it was shown last.
    struct Display final : ParameterDisplay {
        RecordingSurface* surface = nullptr;
        std::uint32_t pid = 0;
        void setFloatValue(float value) override { surface->shown[pid] = value; }
    };

    RecordingSurface() {
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            unit[pid] = GetParameter(pid)->reverseCastValue(GetParameter(pid)->initialValue);
    }

    // Takes what the values send, and shows what they show.
    void follow(EditorValues& values) {
        values.setDelegate(this);
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            displays[pid].surface = this;
            displays[pid].pid = pid;
            values.setDisplay(pid, displays[pid]);
        }
    }

    void interfaceUpdatedParameterKeyedValue(std::uint32_t pid, float hostValue) override {
        calls.push_back("send " + std::to_string(pid));
        // As the unit: what is out of range ends at the range's end, and what is no number changes nothing.
        const QVMFloat32Range range = GetParameter(pid)->heldRange();
        if (std::isfinite(hostValue)) unit.at(pid) = std::clamp(hostValue, range.min, range.max);
    }
    void controlWillChangeValue() override { callsBeforeMoves.push_back(calls.size()); }
    void valueDidChange(std::uint32_t pid) override { calls.push_back("changed " + std::to_string(pid)); }
    void valueWasReceived(std::uint32_t pid, float value, float was) override { received.push_back({pid, value, was}); }
    // A control for each of these, which shows what it was shown last.
    std::vector<ShownValue> shownValues() const override {
        std::vector<ShownValue> values;
        for (const std::uint32_t pid : {0u, 1u, 7u, 9u, 13u}) {
            const auto found = shown.find(pid);
            values.push_back({pid, found == shown.end() ? GetParameter(pid)->initialValue : found->second});
        }
        return values;
    }
    bool isGestureUnderWay() const override { return gesture; }
    void historyDidChange() override { calls.push_back("history"); }
    void sideDidChange(std::uint32_t side, SideMove move) override {
        calls.push_back("side " + std::to_string(side) + (move == SideMove::glides ? " glides" : ""));
    }
    void showPreset(std::uint32_t index) override { shownPreset = index; }
    void showPresetDirty(bool isDirty) override { dirty.push_back(isDirty); }
    void presetWasApplied() override { calls.push_back("applied"); }
    void presetDidBecomeCurrent(const std::string& name, std::uint32_t index) override {
        calls.push_back("preset " + name + " " + std::to_string(index));
    }
    void presetListDidChange() override { calls.push_back("list"); }
    void presetWasRefused(const std::string& what, const std::string& why) override {
        refusals.push_back(what + ": " + why);
    }
    void settingsWereRefused(const std::string& why) override { refusals.push_back(why); }

    struct Received {
        std::uint32_t pid;
        float value, was;
    };
    std::array<float, QVMParameterCount> unit{}; // host domain
    std::vector<std::string> calls;
    std::vector<std::size_t> callsBeforeMoves; // how many there were before each move of a control
    std::map<std::uint32_t, float> shown;      // by pid
    std::array<Display, QVMParameterCount> displays;
    std::vector<Received> received;
    bool gesture = false;
    std::uint32_t shownPreset = 0;
    std::vector<bool> dirty; // each time that it was told
    std::vector<std::string> refusals;
};

class SessionFixture : public testing::Test {
protected:
    SessionFixture() { surface_.follow(values()); }
    EditorValues& values() { return session_.values(); }
    // One display frame: what the unit holds comes back.
    void frame() {
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            values().receiveIfNew(pid, GetParameter(pid)->heldValueFromHostValue(surface_.unit[pid]), true);
        values().frameWasReceived();
    }
    // An editor that has been open for a while.
    void open() {
        values().setComesBack();
        session_.resetComparison(values().memoized());
        frame();
        time_.advance(1);
        surface_.calls.clear();
        surface_.received.clear();
    }
    void set(std::uint32_t pid, float value) {
        values().sendFromControl(pid, value);
        frame();
    }

    VirtualTime time_;
    std::unique_ptr<QVMConfig> config_ = QVMConfig::inlinedConfig();
    RecordingSurface surface_;
    EditorSession session_{*config_, surface_};
};

} // namespace QVM_NAMESPACE
