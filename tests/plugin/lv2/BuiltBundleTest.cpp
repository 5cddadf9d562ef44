// The library of the built LV2 bundle in a host of a few lines: what passes between the two, byte by byte.
#include "description/Description.h"
#include "plugin/lv2/Messages.h"

#include <lv2/buf-size/buf-size.h>
#include <lv2/core/lv2.h>
#include <lv2/options/options.h>
#include <lv2/state/state.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <dlfcn.h>
#include <memory>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using Words = std::vector<std::string>;

class BuiltBundle : public testing::Test {
protected:
    void SetUp() override {
        setenv("DISPLAY", "none", 1); // no editor is opened
        library_ = dlopen(SLANTWISE_LV2_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library_, nullptr) << dlerror();
        const auto entry = reinterpret_cast<LV2_Descriptor_Function>(dlsym(library_, "lv2_descriptor"));
        ASSERT_NE(entry, nullptr);
        plugin_ = entry(0);
        ASSERT_NE(plugin_, nullptr);
        EXPECT_STREQ(plugin_->URI, SLANTWISE_LV2_URI);
        EXPECT_EQ(entry(1), nullptr);
    }
    void TearDown() override { remove(); }

    // With a block length of this size and type; false where the plug-in refuses.
    bool insert(std::uint32_t bytes = 4, const char* type = LV2_ATOM__Int) {
        const std::int64_t length = frames;
        const LV2_Options_Option options[] = {{LV2_OPTIONS_INSTANCE, 0, urids_[LV2_BUF_SIZE__maxBlockLength], bytes,
                                               urids_[type], &length}, // its first bytes are the lowest
                                              {}};
        const LV2_Feature map{LV2_URID__map, &urids_.map()}, bounded{LV2_BUF_SIZE__boundedBlockLength, nullptr};
        const LV2_Feature with{LV2_OPTIONS__options, const_cast<LV2_Options_Option*>(options)};
        const LV2_Feature* const features[] = {&map, &bounded, &with, nullptr};
        instance_ = plugin_->instantiate(plugin_, 48000, "", features);
        if (!instance_) return false;
        for (std::uint32_t port = 0; port < 4; ++port)
            plugin_->connect_port(instance_, port, audio_.at(port).data());
        plugin_->connect_port(instance_, 4, control_.sequence());
        plugin_->connect_port(instance_, 5, notify_.sequence());
        for (std::uint32_t port = 6; port < 9; ++port)
            plugin_->connect_port(instance_, port, nullptr);
        control_.begin();
        plugin_->activate(instance_);
        return true;
    }
    void remove() {
        if (!instance_) return;
        plugin_->deactivate(instance_);
        plugin_->cleanup(instance_);
        instance_ = nullptr;
    }
    // What it says with one block in answer to what is in the control port, which is empty afterwards.
    Words run() {
        notify_.offer();
        plugin_->run(instance_, frames);
        control_.begin();
        return notify_.words(SLANTWISE_LV2_URI);
    }
    static std::string property(const char* name) { return std::string(SLANTWISE_LV2_URI) + ":" + name; }
    static bool isAll(const Words& words) {
        bool isIt = words.size() == QVMParameterCount;
        for (std::uint32_t pid = 0; isIt && pid < QVMParameterCount; ++pid)
            isIt = words[pid].starts_with(std::string(GetParameter(pid)->codesafeName) + "=");
        return isIt;
    }
    const LV2_State_Interface& state() const {
        return *static_cast<const LV2_State_Interface*>(plugin_->extension_data(LV2_STATE__interface));
    }

    static constexpr std::uint32_t frames = 64;
    void* library_ = nullptr; // stays, as it does in hosts
    const LV2_Descriptor* plugin_ = nullptr;
    LV2_Handle instance_ = nullptr;
    messages::Urids urids_;
    messages::Port control_{urids_}, notify_{urids_};
    std::array<std::array<float, frames>, 4> audio_{};
};

// One host hands a size of the C library's as an integer.
TEST_F(BuiltBundle, TakesABlockLengthOfFourOrEightBytes) {
    for (const char* const type : {LV2_ATOM__Int, LV2_ATOM__Long}) {
        ASSERT_TRUE(insert(8, type)) << type;
        EXPECT_TRUE(isAll(run())) << type;
        remove();
    }
    ASSERT_TRUE(insert(4, LV2_ATOM__Int));
    EXPECT_TRUE(isAll(run()));
    remove();
    EXPECT_FALSE(insert(4, LV2_ATOM__URID)) << "no number";
}

TEST_F(BuiltBundle, TellsAllValuesWhenItStartsAndNothingOfItsOwnAccordAfterwards) {
    ASSERT_TRUE(insert());
    EXPECT_TRUE(isAll(run()));
    EXPECT_EQ(run(), Words());
    plugin_->deactivate(instance_);
    plugin_->activate(instance_);
    EXPECT_TRUE(isAll(run()));
}

TEST_F(BuiltBundle, AnswersRequestsForValues) {
    ASSERT_TRUE(insert());
    run();
    control_.addSet(property("TiltGain"), 4.5F);
    control_.addGet(property("TiltGain"));
    EXPECT_EQ(run(), Words{"TiltGain=4.5"});
    control_.addGet({}, SLANTWISE_LV2_URI);
    EXPECT_TRUE(isAll(run()));
}

TEST_F(BuiltBundle, WhatTheHostSetsIsNeitherGivenBackNorAChangeOfTheSession) {
    ASSERT_TRUE(insert());
    run();
    control_.addSet(property("TiltGain"), 4.5F);
    EXPECT_EQ(run(), Words());
}

TEST_F(BuiltBundle, TellsAllValuesOfARestoredStateAndSavesWhatItGot) {
    ASSERT_TRUE(insert());
    run();
    control_.addSet(property("TiltGain"), 4.5F);
    run();
    std::string saved;
    const auto store = [](LV2_State_Handle to, std::uint32_t, const void* value, size_t size, std::uint32_t,
                          std::uint32_t) {
        static_cast<std::string*>(to)->assign(static_cast<const char*>(value), size);
        return LV2_STATE_SUCCESS;
    };
    EXPECT_EQ(state().save(instance_, store, &saved, 0, nullptr), LV2_STATE_SUCCESS);
    ASSERT_FALSE(saved.empty());
    remove();
    ASSERT_TRUE(insert());
    run();
    struct Source {
        const std::string& text;
        LV2_URID key, type;
    } source{saved, urids_[property("StateString")], urids_[LV2_ATOM__String]};
    const auto retrieve = [](LV2_State_Handle from, std::uint32_t key, size_t* size, std::uint32_t* kind,
                             std::uint32_t* flags) -> const void* {
        const Source& given = *static_cast<Source*>(from);
        if (key != given.key) return nullptr;
        *size = given.text.size();
        *kind = given.type;
        *flags = LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE;
        return given.text.data();
    };
    EXPECT_EQ(state().restore(instance_, retrieve, &source, 0, nullptr), LV2_STATE_SUCCESS);
    const Words told = run();
    EXPECT_TRUE(isAll(told));
    EXPECT_EQ(std::ranges::count(told, "TiltGain=4.5"), 1) << "and no change of the session";
}

} // namespace
} // namespace QVM_NAMESPACE
