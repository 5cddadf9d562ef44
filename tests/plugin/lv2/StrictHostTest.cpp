// What strict hosts and validators do to a plug-in, done to the built bundle: as little as they may give it, and as
// much as it must bear.
#include "plugin/lv2/BuiltBundle.h"

#include <lv2/instance-access/instance-access.h>
#include <lv2/ui/ui.h>

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {
namespace {

class StrictHost : public BuiltBundle {
protected:
    using Features = std::vector<const LV2_Feature*>;

    LV2_Handle instantiate(Features features) {
        features.push_back(nullptr);
        return plugin_->instantiate(plugin_, 48000, "", features.data());
    }
    const LV2UI_Descriptor& editor() const {
        const auto entry = reinterpret_cast<LV2UI_DescriptorFunction>(dlsym(library_, "lv2ui_descriptor"));
        EXPECT_EQ(entry(1), nullptr);
        return *entry(0);
    }
    // The outputs of a block, with noise in.
    std::vector<float> rendered(float* in1, float* in2, float* out1, float* out2) {
        EXPECT_TRUE(insert());
        control_.addSet(property("TiltGain"), 9.0F);
        run();
        for (std::uint32_t i = 0; i < frames; ++i)
            in1[i] = std::sin(static_cast<float>(i)), in2[i] = std::cos(static_cast<float>(i * i));
        float* const ports[] = {in1, in2, out1, out2};
        for (std::uint32_t port = 0; port < 4; ++port)
            plugin_->connect_port(instance_, port, ports[port]);
        notify_.offer();
        plugin_->run(instance_, frames);
        std::vector<float> out(out1, out1 + frames);
        out.insert(out.end(), out2, out2 + frames);
        remove();
        return out;
    }

    const LV2_Feature map_{LV2_URID__map, &urids_.map()}, bounded_{LV2_BUF_SIZE__boundedBlockLength, nullptr};
};

TEST_F(StrictHost, WithoutARequiredFeatureThereIsNoInstance) {
    LV2_Options_Option none[] = {{}};
    const LV2_Feature options{LV2_OPTIONS__options, none};
    EXPECT_EQ(plugin_->instantiate(plugin_, 48000, "", nullptr), nullptr);
    for (const Features& features : {Features{}, Features{&map_}, Features{&bounded_}, Features{&map_, &bounded_},
                                     Features{&map_, &options}, Features{&map_, &bounded_, &options}})
        EXPECT_EQ(instantiate(features), nullptr) << features.size();
}

TEST_F(StrictHost, WithoutARequiredFeatureThereIsNoEditor) {
    ASSERT_TRUE(insert());
    int parent = 1;
    const LV2_Feature instance{LV2_INSTANCE_ACCESS_URI, instance_}, window{LV2_UI__parent, &parent};
    const auto open = [this](const char* plugin, Features features) {
        features.push_back(nullptr);
        LV2UI_Widget widget = nullptr;
        return editor().instantiate(&editor(), plugin, "", nullptr, nullptr, &widget, features.data());
    };
    EXPECT_EQ(open(SLANTWISE_LV2_URI, {}), nullptr);
    EXPECT_EQ(open(SLANTWISE_LV2_URI, {&map_, &window}), nullptr);
    EXPECT_EQ(open(SLANTWISE_LV2_URI, {&map_, &instance}), nullptr);
    EXPECT_EQ(open(SLANTWISE_LV2_URI, {&window, &instance}), nullptr);
    EXPECT_EQ(open("urn:another", {&map_, &window, &instance}), nullptr);
}

// As Gtk's hosts call it between the end of the editor's window and their own.
TEST_F(StrictHost, AnEditorThatHasGoneTakesWhatIsStillToldToIt) {
    const auto data = [this](const char* uri) { return editor().extension_data(uri); };
    const float value = 1;
    editor().port_event(nullptr, 0, sizeof value, 0, &value);
    EXPECT_NE(static_cast<const LV2UI_Idle_Interface*>(data(LV2_UI__idleInterface))->idle(nullptr), 0);
    EXPECT_NE(static_cast<const LV2UI_Resize*>(data(LV2_UI__resize))->ui_resize(nullptr, 480, 320), 0);
    const auto* const options = static_cast<const LV2_Options_Interface*>(data(LV2_OPTIONS__interface));
    EXPECT_NE(options->get(nullptr, nullptr), LV2_OPTIONS_SUCCESS);
    EXPECT_NE(options->set(nullptr, nullptr), LV2_OPTIONS_SUCCESS);
    editor().cleanup(nullptr);
}

TEST_F(StrictHost, InterfacesAreThoseThatTheBundleNames) {
    EXPECT_NE(plugin_->extension_data(LV2_STATE__interface), nullptr);
    EXPECT_EQ(plugin_->extension_data("urn:none"), nullptr);
    for (const char* const named : {LV2_UI__idleInterface, LV2_UI__resize, LV2_OPTIONS__interface})
        EXPECT_NE(editor().extension_data(named), nullptr) << named;
    for (const char* const other : {LV2_UI__showInterface, LV2_UI__noUserResize, "urn:none"})
        EXPECT_EQ(editor().extension_data(other), nullptr) << other;
}

TEST_F(StrictHost, RunsNoFramesAndStartsAndStopsAtWill) {
    ASSERT_TRUE(insert());
    for (int again = 0; again < 3; ++again) {
        notify_.offer();
        plugin_->run(instance_, 0);
        EXPECT_TRUE(isAll(notify_.words(SLANTWISE_LV2_URI))) << "also with nothing to render";
        plugin_->deactivate(instance_);
        plugin_->activate(instance_);
    }
    remove();
    ASSERT_TRUE(insert());
    plugin_->cleanup(instance_); // never run, and not deactivated
    instance_ = nullptr;
}

TEST_F(StrictHost, PortsThatAreLeftOutAreNoCrash) {
    ASSERT_TRUE(insert());
    for (std::uint32_t port = 0; port < 9; ++port)
        plugin_->connect_port(instance_, port, nullptr);
    plugin_->run(instance_, frames);
    plugin_->run(instance_, 0);
    plugin_->connect_port(instance_, 2, audio_[2].data());
    audio_[2].fill(1);
    plugin_->run(instance_, frames);
    EXPECT_EQ(audio_[2][frames - 1], 0) << "silence in";
}

TEST_F(StrictHost, ABlockLongerThanAnnouncedIsProcessedToItsEnd) {
    ASSERT_TRUE(insert());
    for (const std::uint32_t length : {frames + 1, 100000U, 0U, frames}) {
        std::array<std::vector<float>, 4> longer;
        for (std::uint32_t port = 0; port < 4; ++port) {
            longer.at(port).assign(length, port < 2 ? 0.5F : 0);
            plugin_->connect_port(instance_, port, longer.at(port).data());
        }
        plugin_->run(instance_, length);
        for (const std::size_t output : {2U, 3U})
            for (const float sample : longer.at(output))
                ASSERT_NEAR(sample, 0.5F, 1e-6) << length;
    }
}

TEST_F(StrictHost, OneBufferMayBeInputAndOutput) {
    std::array<float, frames> a{}, b{}, c{}, d{};
    const std::vector<float> apart = rendered(a.data(), b.data(), c.data(), d.data());
    EXPECT_NE(apart[frames - 1], 0);
    EXPECT_EQ(rendered(a.data(), b.data(), a.data(), b.data()), apart);
    EXPECT_EQ(rendered(a.data(), b.data(), b.data(), a.data()), apart) << "crosswise";
}

TEST_F(StrictHost, ReportsNoLatencyAndRunsWithTheControlPortsThatItNames) {
    ASSERT_TRUE(insert());
    float latency = -1, freeWheeling = 1, enabled = 1;
    plugin_->connect_port(instance_, 6, &latency);
    plugin_->connect_port(instance_, 7, &freeWheeling);
    plugin_->connect_port(instance_, 8, &enabled);
    run();
    EXPECT_EQ(latency, 0);
}

TEST_F(StrictHost, AStateThatIsNoneChangesNothingAndSaysSo) {
    ASSERT_TRUE(insert());
    control_.addSet(property("TiltGain"), 4.5F);
    run();
    const std::string saved = save();
    const std::string damaged = saved.substr(0, saved.size() / 2);
    EXPECT_EQ(restore("NoSuchKey", saved), LV2_STATE_ERR_NO_PROPERTY);
    EXPECT_EQ(restore("StateString", saved, LV2_ATOM__Float), LV2_STATE_ERR_BAD_TYPE);
    EXPECT_EQ(restore("Program", "abc", LV2_ATOM__String), LV2_STATE_ERR_NO_PROPERTY);
    for (const std::string& text : {std::string(), std::string("no state"), damaged, std::string(4, '\0')})
        EXPECT_EQ(restore("StateString", text), LV2_STATE_ERR_UNKNOWN) << text;
    EXPECT_EQ(save(), saved);
    EXPECT_EQ(run(), Words()) << "nothing to tell";
    EXPECT_EQ(restore("StateString", saved), LV2_STATE_SUCCESS);
}

TEST_F(StrictHost, AFactoryPresetIsChosenByItsNumberAndTold) {
    ASSERT_TRUE(insert());
    run();
    EXPECT_EQ(restore("Program", std::string("\x16\0\0\0", 4), LV2_ATOM__Int), LV2_STATE_SUCCESS);
    const Words told = run();
    EXPECT_TRUE(isAll(told));
    EXPECT_EQ(std::ranges::count(told, "TiltGain=7"), 1);
}

// A preset that somebody has written by hand, with the bundle's properties alone.
TEST_F(StrictHost, AStateOfValuesAloneIsTaken) {
    ASSERT_TRUE(insert());
    run();
    const float hertz = 120;
    const std::string bytes(reinterpret_cast<const char*>(&hertz), sizeof hertz);
    EXPECT_EQ(restore("TiltRangeLowHz", bytes, LV2_ATOM__Float), LV2_STATE_SUCCESS);
    EXPECT_EQ(run(), Words{"TiltRangeLowHz=120"});
    EXPECT_EQ(restore("TiltRangeLowHz", bytes, LV2_ATOM__String), LV2_STATE_ERR_NO_PROPERTY);
}

TEST_F(StrictHost, TwoInstancesKnowNothingOfEachOther) {
    ASSERT_TRUE(insert());
    const LV2_Handle first = instance_;
    ASSERT_TRUE(insert());
    control_.addSet(property("TiltGain"), 4.5F);
    run();
    control_.addGet(property("TiltGain"));
    EXPECT_EQ(run(), Words{"TiltGain=4.5"});
    remove();
    instance_ = first;
    control_.addGet(property("TiltGain"));
    run();
    control_.addGet(property("TiltGain"));
    EXPECT_EQ(run(), Words{"TiltGain=0"});
}

} // namespace
} // namespace QVM_NAMESPACE
