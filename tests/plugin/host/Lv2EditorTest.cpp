// The editor of the built LV2 bundle in a host that lets go of the plug-in first and of its editor afterwards.
#include "plugin/host/XScreen.h"
#include "plugin/lv2/Messages.h"

#include <lv2/buf-size/buf-size.h>
#include <lv2/core/lv2.h>
#include <lv2/instance-access/instance-access.h>
#include <lv2/options/options.h>
#include <lv2/ui/ui.h>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <thread>
#include <utility>

#include <dlfcn.h>

#include <X11/Xlib.h>

namespace QVM_NAMESPACE {
namespace {

struct Closing {
    void operator()(Display* display) const { XCloseDisplay(display); }
};

class Lv2Editor : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(display_);
        parent_ = XCreateSimpleWindow(display_.get(), DefaultRootWindow(display_.get()), 50, 50, 480, 320, 0, 0, 0);
        XMapWindow(display_.get(), parent_);
        XSync(display_.get(), False);
        library_ = dlopen(SLANTWISE_LV2_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library_, nullptr) << dlerror();
        plugin_ = reinterpret_cast<LV2_Descriptor_Function>(dlsym(library_, "lv2_descriptor"))(0);
        editor_ = reinterpret_cast<LV2UI_DescriptorFunction>(dlsym(library_, "lv2ui_descriptor"))(0);
        ASSERT_TRUE(plugin_ && editor_);
    }

    LV2_Handle insert() {
        const std::int32_t length = 64;
        const LV2_Options_Option options[] = {{LV2_OPTIONS_INSTANCE, 0, urids_[LV2_BUF_SIZE__maxBlockLength],
                                               sizeof length, urids_[LV2_ATOM__Int], &length},
                                              {}};
        const LV2_Feature map{LV2_URID__map, &urids_.map()}, bounded{LV2_BUF_SIZE__boundedBlockLength, nullptr};
        const LV2_Feature with{LV2_OPTIONS__options, const_cast<LV2_Options_Option*>(options)};
        const LV2_Feature* const features[] = {&map, &bounded, &with, nullptr};
        return plugin_->instantiate(plugin_, 48000, "", features);
    }
    LV2UI_Handle open(LV2_Handle instance) {
        const LV2_Feature map{LV2_URID__map, &urids_.map()}, access{LV2_INSTANCE_ACCESS_URI, instance};
        const LV2_Feature parent{LV2_UI__parent, reinterpret_cast<void*>(parent_)};
        const LV2_Feature* const features[] = {&map, &access, &parent, nullptr};
        LV2UI_Widget widget = nullptr;
        return editor_->instantiate(
            editor_, SLANTWISE_LV2_URI, "",
            [](LV2UI_Controller, std::uint32_t, std::uint32_t, std::uint32_t, const void*) {}, nullptr, &widget,
            features);
    }
    // On the screen, wherever the window manager has put the window.
    std::pair<int, int> parentCorner() const {
        int x = 0, y = 0;
        Window child = 0;
        XTranslateCoordinates(display_.get(), parent_, DefaultRootWindow(display_.get()), 0, 0, &x, &y, &child);
        return {x, y};
    }
    void idle(LV2UI_Handle editor, std::chrono::milliseconds time) const {
        const auto* const loop =
            static_cast<const LV2UI_Idle_Interface*>(editor_->extension_data(LV2_UI__idleInterface));
        for (const auto end = std::chrono::steady_clock::now() + time; std::chrono::steady_clock::now() < end;) {
            EXPECT_EQ(loop->idle(editor), 0);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    messages::Urids urids_;
    const std::unique_ptr<Display, Closing> display_{XOpenDisplay(nullptr)};
    Window parent_ = 0;
    void* library_ = nullptr; // stays loaded: the toolkit's threads may outlive an editor by a moment
    const LV2_Descriptor* plugin_ = nullptr;
    const LV2UI_Descriptor* editor_ = nullptr;
};

TEST_F(Lv2Editor, OutlivesTheInstanceThatTheHostHasLetGoOf) {
    for (int round = 0; round < 2; ++round) {
        const LV2_Handle instance = insert();
        ASSERT_NE(instance, nullptr);
        const LV2UI_Handle editor = open(instance);
        ASSERT_NE(editor, nullptr);
        idle(editor, std::chrono::milliseconds(600));
        plugin_->cleanup(instance);
        idle(editor, std::chrono::milliseconds(600));
        const auto* const resize = static_cast<const LV2UI_Resize*>(editor_->extension_data(LV2_UI__resize));
        EXPECT_EQ(resize->ui_resize(editor, 480, 320), 0);
        editor_->cleanup(editor);
    }
}

// By the interface that the format has for it. The column at the right is of one colour beside its buttons.
TEST_F(Lv2Editor, TakesTheScaleThatFitsASizeOfTheHosts) {
    slantwise_tests::XScreen screen;
    ASSERT_TRUE(screen.isOpen());
    screen.movePointer(5, 5);
    const LV2_Handle instance = insert();
    const LV2UI_Handle editor = open(instance);
    ASSERT_NE(editor, nullptr);
    const auto* const resize = static_cast<const LV2UI_Resize*>(editor_->extension_data(LV2_UI__resize));
    idle(editor, std::chrono::milliseconds(800));
    const std::uint32_t column =
        screen.capture(parentCorner().first + 470, parentCorner().second + 130, 1, 1).pixels[0];
    const auto columnIn = [&](int x, int y, int width, int height) {
        return screen.capture(parentCorner().first + x, parentCorner().second + y, width, height).countOf(column, 3);
    };
    const std::size_t before = columnIn(418, 0, 62, 70);
    EXPECT_GT(before, 2000U);
    for (const int scale : {2, 1}) {
        XResizeWindow(display_.get(), parent_, static_cast<unsigned>(480 * scale), static_cast<unsigned>(320 * scale));
        XSync(display_.get(), False);
        EXPECT_EQ(resize->ui_resize(editor, 480 * scale, 320 * scale), 0);
        idle(editor, std::chrono::milliseconds(800));
        const double expected = static_cast<double>(before) * scale * scale;
        EXPECT_NEAR(static_cast<double>(columnIn(418 * scale, 0, 62 * scale, 70 * scale)), expected, expected / 20);
    }
    editor_->cleanup(editor);
    plugin_->cleanup(instance);
}

TEST_F(Lv2Editor, WithoutAnInstanceThereIsNone) {
    EXPECT_EQ(open(nullptr), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
