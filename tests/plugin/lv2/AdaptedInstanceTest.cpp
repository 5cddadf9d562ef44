#include "plugin/lv2/AdaptedInstance.h"

#include "description/Description.h"
#include "plugin/lv2/Messages.h"
#include "plugin/lv2/Properties.h"
#include "support/RealtimeTrap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* uri = "urn:plugin";
constexpr std::uint32_t controlPort = 4, notifyPort = 5;

// Renders, and would write whatever it likes into its port.
struct Toolkit {
    const LV2_Atom_Sequence* in = nullptr;
    LV2_Atom_Sequence* out = nullptr;
    std::string calls;
    std::uint32_t heard = 0;

    void run() {
        heard += in->atom.size - std::uint32_t{sizeof(LV2_Atom_Sequence_Body)};
        out->atom.size = sizeof(LV2_Atom_Sequence_Body);
    }
};

// The unit: it remembers what it is set to, as it is.
struct Unit final : PropertyValues {
    float hostValue(std::uint32_t pid) const override { return values[pid]; }
    void setHostValue(std::uint32_t pid, float value) override { values[pid] = value; }
    DueMessages takeDue() override { return std::exchange(due, {}); }

    std::array<float, QVMParameterCount> values{};
    DueMessages due;
};

Toolkit& of(LV2_Handle handle) {
    return *static_cast<Toolkit*>(handle);
}

const LV2_Descriptor descriptor{uri,
                                nullptr,
                                [](LV2_Handle handle, std::uint32_t port, void* data) {
                                    of(handle).calls += "connect" + std::to_string(port) + " ";
                                    if (port == controlPort) of(handle).in = static_cast<LV2_Atom_Sequence*>(data);
                                    if (port == notifyPort) of(handle).out = static_cast<LV2_Atom_Sequence*>(data);
                                },
                                [](LV2_Handle handle) { of(handle).calls += "activate "; },
                                [](LV2_Handle handle, std::uint32_t) { of(handle).run(); },
                                [](LV2_Handle handle) { of(handle).calls += "deactivate "; },
                                [](LV2_Handle handle) { of(handle).calls += "cleanup "; },
                                nullptr};

class AdaptedInstanceTest : public testing::Test {
protected:
    AdaptedInstanceTest() {
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            unit_.values[pid] = hostValueOfProperty(*GetParameter(pid), 10);
        control_.begin();
        for (std::uint32_t port = 0; port < controlPort; ++port)
            instance_->connectPort(port, audio_.data());
        instance_->connectPort(controlPort, control_.sequence());
        instance_->connectPort(notifyPort, notify_.sequence());
    }

    // What the host is told by one block.
    std::vector<std::string> told() {
        notify_.offer();
        instance_->run(64);
        control_.begin();
        return notify_.words(uri);
    }
    std::vector<std::string> all() const {
        std::vector<std::string> values;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            values.push_back(
                propertyName(*GetParameter(pid)) + "=" +
                (isWholeProperty(*GetParameter(pid)) ? "int " + std::to_string(std::lround(unit_.values[pid])) : "10"));
        return values;
    }
    using Words = std::vector<std::string>;

    messages::Urids urids_;
    messages::Port control_{urids_}, notify_{urids_};
    std::array<float, 64> audio_{};
    Toolkit toolkit_;
    Unit unit_;
    std::unique_ptr<AdaptedInstance> instance_ =
        std::make_unique<AdaptedInstance>(descriptor, &toolkit_, urids_.map(), unit_);
};

TEST_F(AdaptedInstanceTest, TheFirstBlockAfterEachActivationTellsAllValues) {
    instance_->activate();
    EXPECT_EQ(told(), all());
    EXPECT_EQ(told(), Words());
    instance_->deactivate();
    instance_->activate();
    EXPECT_EQ(told(), all());
}

TEST_F(AdaptedInstanceTest, ARequestIsAnsweredByTheSameBlock) {
    control_.addGet("urn:plugin:OutputGain");
    EXPECT_EQ(told(), Words{"OutputGain=10"});
    control_.addGet({});
    EXPECT_EQ(told(), all());
    EXPECT_EQ(told(), Words());
}

TEST_F(AdaptedInstanceTest, WhatHasChangedIsToldOnce) {
    unit_.values[pidTiltRangeLow] = hostValueOfProperty(*GetParameter(pidTiltRangeLow), 489.9F);
    unit_.due = {1U << pidTiltGain | 1U << pidTiltRangeLow, true};
    EXPECT_EQ(told(), (Words{"TiltGain=10", "TiltRangeLowHz=489.9", "changed"}));
    EXPECT_EQ(told(), Words());
}

TEST_F(AdaptedInstanceTest, WhatTheHostSetsReachesTheUnitAloneAndIsNotGivenBack) {
    control_.addSet("urn:plugin:TiltGain", 4.5F);
    EXPECT_EQ(told(), Words());
    EXPECT_EQ(unit_.values[pidTiltGain], 4.5F);
    EXPECT_EQ(toolkit_.heard, 0U);
}

// Sessions have automation of the numbers that the frequencies once were.
TEST_F(AdaptedInstanceTest, AFormerPropertyIsObeyedAndAnsweredByNoName) {
    control_.addSet("urn:plugin:TiltRangeLow", 12005.0F);
    control_.addGet("urn:plugin:TiltRangeLowHz");
    control_.addGet("urn:plugin:TiltRangeLow");
    EXPECT_EQ(told(), Words{"TiltRangeLowHz=489.89777"});
}

TEST_F(AdaptedInstanceTest, AStateOfValuesSetsThoseThatItHasAndTheyAreTold) {
    struct Value {
        LV2_URID type;
        float number;
    };
    using State = std::map<LV2_URID, Value>;
    const auto retrieve = [](LV2_State_Handle from, std::uint32_t key, std::size_t* bytes, std::uint32_t* type,
                             std::uint32_t*) -> const void* {
        const State& state = *static_cast<const State*>(from);
        const auto found = state.find(key);
        if (found == state.end()) return nullptr;
        *bytes = sizeof found->second.number;
        *type = found->second.type;
        return &found->second.number;
    };
    State state = {{urids_["urn:plugin:TiltRangeLowHz"], {urids_[LV2_ATOM__Float], 500}},
                   {urids_["urn:plugin:TiltRangeHigh"], {urids_[LV2_ATOM__Float], 20000}}, // by its former name
                   {urids_["urn:plugin:OutputGain"], {urids_[LV2_ATOM__String], 3}},
                   {urids_["urn:plugin:TiltGain"], {urids_[LV2_ATOM__Double], 3}}}; // in four bytes
    EXPECT_TRUE(instance_->restoreValues(retrieve, &state));
    EXPECT_EQ(unit_.values[pidTiltRangeHigh], 20000);
    const Words heard = told();
    ASSERT_EQ(heard.size(), 2U);
    EXPECT_EQ(heard[0], "TiltRangeLowHz=500");
    EXPECT_TRUE(heard[1].starts_with("TiltRangeHighHz=6555.5")) << heard[1];
    state.clear();
    EXPECT_FALSE(instance_->restoreValues(retrieve, &state));
}

TEST_F(AdaptedInstanceTest, WhatHasNoRoomIsToldByALaterBlockAndNothingByHalves) {
    instance_->activate();
    unit_.due.stateChange = true;
    notify_.setRoom(8 + 5 * 72 + 71);
    Words heard;
    for (int block = 0; block < 5; ++block)
        for (const std::string& word : told())
            heard.push_back(word);
    std::ranges::sort(heard);
    Words expected = all();
    expected.emplace_back("changed");
    std::ranges::sort(expected);
    EXPECT_EQ(heard, expected);
    EXPECT_EQ(told(), Words());
}

TEST_F(AdaptedInstanceTest, NoRoomAtAllIsLeftAlone) {
    instance_->activate();
    for (const std::uint32_t room : {0U, 7U, 8U, 79U}) {
        notify_.setRoom(room);
        notify_.offer();
        instance_->run(64);
        EXPECT_EQ(notify_.sequence()->atom.size, room < 8 ? room : 8) << room;
    }
    instance_->connectPort(notifyPort, nullptr);
    instance_->run(64);
    instance_->connectPort(notifyPort, notify_.sequence());
    notify_.setRoom(9920);
    EXPECT_EQ(told(), all());
}

TEST_F(AdaptedInstanceTest, TheToolkitHearsOfAllElse) {
    toolkit_.calls.clear();
    instance_->connectPort(0, nullptr);
    instance_->activate();
    instance_->deactivate();
    instance_.reset();
    EXPECT_EQ(toolkit_.calls, "connect0 activate deactivate cleanup ");
}

TEST_F(AdaptedInstanceTest, ItsRenderThreadNeitherAllocatesNorLocksNorCallsTheSystem) {
    instance_->activate();
    control_.addGet({});
    control_.addSet("urn:plugin:TiltRangeLowHz", 1000.0F);
    notify_.setRoom(200);
    notify_.offer();
    EXPECT_FALSE(realtime::offencesOf([&] { instance_->run(64); }).any());
}

} // namespace
} // namespace QVM_NAMESPACE
