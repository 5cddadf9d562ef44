// The library of the built LV2 bundle in a host of a few lines: what passes between the two, byte by byte.
#pragma once

#include "description/Description.h"
#include "plugin/lv2/Messages.h"
#include "plugin/lv2/Properties.h"

#include <lv2/buf-size/buf-size.h>
#include <lv2/core/lv2.h>
#include <lv2/options/options.h>
#include <lv2/state/state.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <dlfcn.h>
#include <limits>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

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
            isIt = words[pid].starts_with(propertyName(*GetParameter(pid)) + "=");
        return isIt;
    }
    // NaN where it is not told of.
    static float numberIn(const Words& words, const std::string& name) {
        for (const std::string& word : words)
            if (word.starts_with(name + "=")) return std::stof(word.substr(name.size() + 1));
        return std::numeric_limits<float>::quiet_NaN();
    }
    const LV2_State_Interface& state() const {
        return *static_cast<const LV2_State_Interface*>(plugin_->extension_data(LV2_STATE__interface));
    }

    // What it saves: the text under its one key.
    std::string save() const {
        std::string saved;
        const auto store = [](LV2_State_Handle to, std::uint32_t, const void* value, size_t size, std::uint32_t,
                              std::uint32_t) {
            static_cast<std::string*>(to)->assign(static_cast<const char*>(value), size);
            return LV2_STATE_SUCCESS;
        };
        EXPECT_EQ(state().save(instance_, store, &saved, 0, nullptr), LV2_STATE_SUCCESS);
        return saved;
    }
    // From a state with one entry.
    LV2_State_Status restore(const std::string& key, const std::string& value, const char* type = LV2_ATOM__String) {
        struct Source {
            const std::string& value;
            LV2_URID key, type;
        } source{value, urids_[property(key.c_str())], urids_[type]};
        const auto retrieve = [](LV2_State_Handle from, std::uint32_t asked, size_t* size, std::uint32_t* kind,
                                 std::uint32_t* flags) -> const void* {
            const Source& given = *static_cast<Source*>(from);
            if (asked != given.key) return nullptr;
            *size = given.value.size();
            *kind = given.type;
            *flags = LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE;
            return given.value.data();
        };
        return state().restore(instance_, retrieve, &source, 0, nullptr);
    }

    static constexpr std::uint32_t frames = 64;
    void* library_ = nullptr; // stays, as it does in hosts
    const LV2_Descriptor* plugin_ = nullptr;
    LV2_Handle instance_ = nullptr;
    messages::Urids urids_;
    messages::Port control_{urids_}, notify_{urids_};
    std::array<std::array<float, frames>, 4> audio_{};
};

} // namespace QVM_NAMESPACE
