#include "controls/FocusableControl.h"

#include "controls/Gestures.h"

#include <gtest/gtest.h>

#include <memory>

namespace QVM_NAMESPACE {
namespace {

// The least that there is to say about one.
class Plain final : public FocusableControl {
public:
    using FocusableControl::FocusableControl;

    bool incrementWithArrowGranularity(char32_t, std::int32_t) override { return true; }
    bool toggleBooleanControl() override { return true; }
    bool tap() override { return true; }
    void setTransientStringValue(const std::string&) override {}
};

// What a control stands on, and what reaches it from there.
class Ground final : public View {
public:
    using View::View;

    void mouseDown(const Event&) override { ++presses; }
    void mouseDragged(const Event&) override { ++drags; }
    void mouseUp(const Event&) override { ++releases; }

    int presses = 0, drags = 0, releases = 0;
};

TEST(FocusableControl, KnowsWhetherItHasTheKeyboard) {
    Plain control({0, 0, 10, 10});
    EXPECT_FALSE(control.focused());
    control.setFocused(true);
    EXPECT_TRUE(control.focused());
    control.setFocused(false);
    EXPECT_FALSE(control.focused());
}

TEST(FocusableControl, WithNothingSaidStandsInNoTabOrderAndNoClumpAndTakesNoText) {
    Plain control({0, 0, 10, 10});
    EXPECT_EQ(control.codename(), "");
    EXPECT_EQ(control.clump(), nullptr);
    EXPECT_FALSE(control.hasTap());
    EXPECT_FALSE(control.acceptsTransientStringBuffers());
    control.setStringValue("12");
    control.clearTransientStringValue();
    EXPECT_EQ(control.floatValue(), 0);
}

TEST(FocusableControl, APressEndsInItAndOnlyItsBeginningIsPassedOn) {
    Ground ground({0, 0, 10, 10});
    Plain& control = ground.addSubview(std::make_unique<Plain>(Rect{0, 0, 10, 10}));
    press(control, {5, 5});
    drag(control, {6, 5});
    release(control, {6, 5});
    EXPECT_EQ(ground.presses, 1) << "who holds the controls takes the keyboard by it";
    EXPECT_EQ(ground.drags, 0);
    EXPECT_EQ(ground.releases, 0) << "the focus would go to what is under the pointer";
}

} // namespace
} // namespace QVM_NAMESPACE
