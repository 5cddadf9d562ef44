// An instance of the toolkit's as the adapter sees it: it writes what it was asked to announce into its port with the
// next block, without a look at the room.
#include "plugin/lv2/AdaptedInstance.h"

#include "description/Description.h"
#include "plugin/lv2/Messages.h"
#include "support/RealtimeTrap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* uri = "urn:plugin";
constexpr std::uint32_t controlPort = 4, notifyPort = 5;

struct Toolkit final : HostAnnouncements {
    explicit Toolkit(messages::Urids& names) : urids(names) { lv2_atom_forge_init(&forge, &names.map()); }

    void announceValue(std::uint32_t pid) override { values |= 1U << pid; }
    void announceStateChange() override { isChanged = true; }

    void run() {
        lv2_atom_forge_set_buffer(&forge, reinterpret_cast<std::uint8_t*>(out), out->atom.size);
        LV2_Atom_Forge_Frame sequence, object;
        lv2_atom_forge_sequence_head(&forge, &sequence, 0);
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            if (!(std::exchange(values, values & ~(1U << pid)) >> pid & 1)) continue;
            lv2_atom_forge_frame_time(&forge, 0);
            lv2_atom_forge_object(&forge, &object, 0, set);
            lv2_atom_forge_key(&forge, property);
            lv2_atom_forge_urid(&forge, properties[pid]);
            lv2_atom_forge_key(&forge, value);
            lv2_atom_forge_float(&forge, static_cast<float>(pid));
            lv2_atom_forge_pop(&forge, &object);
        }
        if (std::exchange(isChanged, false)) {
            lv2_atom_forge_frame_time(&forge, 0);
            lv2_atom_forge_object(&forge, &object, 0, stateChanged);
            lv2_atom_forge_pop(&forge, &object);
        }
        lv2_atom_forge_pop(&forge, &sequence);
    }

    messages::Urids& urids;
    LV2_Atom_Forge forge{};
    LV2_Atom_Sequence* out = nullptr;
    std::uint32_t values = 0;
    bool isChanged = false;
    std::string calls;
    const LV2_URID set = urids[LV2_PATCH__Set], property = urids[LV2_PATCH__property], value = urids[LV2_PATCH__value];
    const LV2_URID stateChanged = urids[LV2_STATE__StateChanged];
    std::vector<LV2_URID> properties = [this] {
        std::vector<LV2_URID> made;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            made.push_back(urids[std::string(uri) + ":" + GetParameter(pid)->codesafeName]);
        return made;
    }();
};

Toolkit& of(LV2_Handle handle) {
    return *static_cast<Toolkit*>(handle);
}

const LV2_Descriptor descriptor{uri,
                                nullptr,
                                [](LV2_Handle handle, std::uint32_t port, void* data) {
                                    of(handle).calls += "connect" + std::to_string(port) + " ";
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
        control_.begin();
        instance_->connectPort(controlPort, control_.sequence());
        instance_->connectPort(notifyPort, notify_.sequence());
    }

    // What the host is told by one block.
    std::vector<std::string> told() {
        notify_.offer();
        instance_->run(64, toolkit_);
        control_.begin();
        return notify_.words(uri);
    }
    std::vector<std::string> all() const {
        std::vector<std::string> values;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            values.push_back(std::string(GetParameter(pid)->codesafeName) + "=" + std::to_string(pid));
        return values;
    }
    using Words = std::vector<std::string>;

    messages::Urids urids_;
    messages::Port control_{urids_}, notify_{urids_};
    Toolkit toolkit_{urids_};
    std::unique_ptr<AdaptedInstance> instance_ = std::make_unique<AdaptedInstance>(descriptor, &toolkit_, urids_.map());
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
    EXPECT_EQ(told(), Words{"OutputGain=7"});
    control_.addGet({});
    EXPECT_EQ(told(), all());
    EXPECT_EQ(told(), Words());
}

TEST_F(AdaptedInstanceTest, WhatTheToolkitTellsByItselfIsHandedOn) {
    toolkit_.announceValue(1);
    toolkit_.announceStateChange();
    EXPECT_EQ(told(), (Words{"TiltGain=1", "changed"}));
    EXPECT_EQ(told(), Words());
}

TEST_F(AdaptedInstanceTest, WhatHasNoRoomIsToldByALaterBlockAndNothingByHalves) {
    instance_->activate();
    toolkit_.announceStateChange();
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
        instance_->run(64, toolkit_);
        EXPECT_EQ(notify_.sequence()->atom.size, room < 8 ? room : 8) << room;
    }
    instance_->connectPort(notifyPort, nullptr);
    instance_->run(64, toolkit_);
    instance_->connectPort(notifyPort, notify_.sequence());
    notify_.setRoom(9920);
    EXPECT_EQ(told(), all());
}

TEST_F(AdaptedInstanceTest, TheToolkitHearsOfAllElse) {
    instance_->connectPort(0, nullptr);
    instance_->activate();
    instance_->deactivate();
    instance_.reset();
    EXPECT_EQ(toolkit_.calls, "connect5 connect4 connect0 activate deactivate cleanup ")
        << "it writes into a port of ours";
}

TEST_F(AdaptedInstanceTest, ItsRenderThreadNeitherAllocatesNorLocksNorCallsTheSystem) {
    instance_->activate();
    control_.addGet({});
    notify_.setRoom(200);
    notify_.offer();
    EXPECT_FALSE(realtime::offencesOf([&] { instance_->run(64, toolkit_); }).any());
}

} // namespace
} // namespace QVM_NAMESPACE
