// At what scale an editor is shown that a host, and the desktop, say something about or nothing.
#include "plugin/host/Vst3View.h"
#include "plugin/host/XScreen.h"

#include <gtest/gtest.h>

#include <string>

namespace slantwise_tests {
namespace {

class ScaleInHost : public testing::Test {
protected:
    using Size = Vst3View::Size;
    static constexpr Size plain = {480, 320}, half = {720, 480}, twice = {960, 640};

    void SetUp() override { ASSERT_TRUE(screen_.isOpen()) << "needs a display"; }
    void TearDown() override { screen_.setResources(""); }
    void setDpi(int dpi) { screen_.setResources("Xcursor.size:\t24\nXft.dpi:\t" + std::to_string(dpi) + "\n"); }

    XScreen screen_;
    Vst3Module module_;
    Vst3Instance instance_{module_};
};

TEST_F(ScaleInHost, WhereNobodySaysAnythingAPointIsAPixel) {
    EXPECT_EQ(Vst3View(instance_).size(), plain);
}

TEST_F(ScaleInHost, ASilentHostGetsTheDesktopsScaleFromTheFirstSizeOn) {
    for (const auto& [dpi, size] : {std::pair{96, plain}, {120, Size{600, 400}}, {144, half}, {192, twice}}) {
        setDpi(dpi);
        Vst3View view(instance_);
        EXPECT_EQ(view.size(), size) << dpi;
        view.attach();
        view.run(0.2);
        EXPECT_EQ(view.size(), size) << dpi;
    }
}

TEST_F(ScaleInHost, TheDesktopsScaleIsFollowedWhileTheEditorIsOpen) {
    Vst3View view(instance_);
    view.attach();
    view.run(0.5);
    setDpi(144);
    ASSERT_TRUE(view.runUntil([&] { return view.size() == half; }));
    EXPECT_EQ(view.takeAsked().back(), half);
    screen_.setResources("");
    EXPECT_TRUE(view.runUntil([&] { return view.size() == plain; }));
}

TEST_F(ScaleInHost, TheHostsOwnScaleWinsEvenIfItIsOne) {
    setDpi(192);
    for (const auto& [factor, size] : {std::pair{1.0f, plain}, {1.5f, half}, {2.0f, twice}}) {
        Vst3Instance another(module_);
        Vst3View view(another);
        EXPECT_EQ(view.setScale(factor), Steinberg::kResultTrue);
        EXPECT_EQ(view.size(), size) << factor;
        view.attach();
        view.run(0.2);
        EXPECT_EQ(view.size(), size) << factor;
    }
}

TEST_F(ScaleInHost, AHostMaySayItsScaleLateAndSayAnother) {
    setDpi(192);
    Vst3View view(instance_);
    view.attach();
    view.run(0.2);
    EXPECT_EQ(view.setScale(1), Steinberg::kResultTrue);
    view.run(0.2);
    EXPECT_EQ(view.size(), plain);
    EXPECT_EQ(view.takeAsked().back(), plain);
    view.setScale(1.5f);
    view.run(1.5);
    EXPECT_EQ(view.size(), half);
    view.setScale(1);
    view.run(0.2);
    EXPECT_EQ(view.size(), plain);
}

TEST_F(ScaleInHost, WhatTheHostHasSaidHoldsForTheNextEditor) {
    setDpi(192);
    for (const float factor : {1.0f, 1.5f}) {
        {
            Vst3View view(instance_);
            view.setScale(factor);
            view.attach();
            view.run(0.1);
        }
        Vst3View view(instance_);
        view.attach();
        view.run(0.1);
        EXPECT_EQ(view.size(), factor == 1 ? plain : half) << factor;
    }
}

} // namespace
} // namespace slantwise_tests
