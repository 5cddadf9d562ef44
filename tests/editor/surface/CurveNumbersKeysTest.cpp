#include "editor/surface/CurveNumbersFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

using CurveNumbersKeys = CurveNumbersFixture;

TEST_F(CurveNumbersKeys, TabWalksTheCornersInTheirOrder) {
    std::vector<std::string> walked;
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(typeKey(Key::codeTab));
        ASSERT_NE(ui_->focusedControl(), nullptr);
        walked.emplace_back(ui_->focusedControl()->codename());
    }
    EXPECT_THAT(walked,
                ElementsAre("TiltRangeLow", "TiltRangeHigh", "FilterRangeLow", "FilterRangeHigh", "TiltRangeLow"));
    EXPECT_TRUE(handle(pidTiltRangeLow).highlit());
    EXPECT_FALSE(handle(pidFilterRangeHigh).highlit());
    EXPECT_TRUE(readout().isShown()) << "what has the keyboard is told";
    EXPECT_EQ(readout().content().frequency, "20 Hz");
    EXPECT_EQ(readout().content().cents, "+49 ct");
    EXPECT_TRUE(typeKey(Key::codeTab, 0, EventModifier::shift));
    EXPECT_EQ(ui_->focusedControl(), &corner(pidFilterRangeHigh));
}

TEST_F(CurveNumbersKeys, ArrowsMoveTheCornerThatHasTheKeyboard) {
    typeKey(Key::codeTab);
    EXPECT_TRUE(arrow(Key::right));
    frames(0.2);
    EXPECT_EQ(memoized(pidTiltRangeLow), 21);
    EXPECT_TRUE(arrow(Key::right, EventModifier::shift));
    frames(0.2);
    EXPECT_EQ(memoized(pidTiltRangeLow), 30) << "as the slider does";
    EXPECT_TRUE(arrow(Key::down, EventModifier::command));
    frames(0.2);
    EXPECT_FLOAT_EQ(memoized(pidTiltRangeLow), 29.9f);
    EXPECT_EQ(readout().content().frequency, "30 Hz");
    EXPECT_THAT(delegate_.calls,
                ElementsAre("updated 2", "discrete 2", "updated 2", "discrete 2", "updated 2", "discrete 2"));
}

TEST_F(CurveNumbersKeys, ANumberIsTypedIntoThePlateAndEscapeGivesTheKeyboardBack) {
    typeKey(Key::codeTab);
    for (const char32_t each : {U'1', U'.', U'2', U'k'})
        EXPECT_TRUE(typeKey(0, each));
    EXPECT_EQ(readout().content().frequency, "1.2k|");
    EXPECT_TRUE(typeKey(Key::codeReturn));
    frames(0.2);
    EXPECT_EQ(memoized(pidTiltRangeLow), 1200);
    EXPECT_EQ(readout().content().frequency, "1.20 kHz");
    EXPECT_TRUE(typeKey(Key::codeEscape));
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    EXPECT_FALSE(readout().isShown());
    EXPECT_FALSE(arrow(Key::right)) << "what nobody has is the host's";
}

TEST_F(CurveNumbersKeys, TheKeyboardLeavesACornerThatIsHidden) {
    typeKey(Key::codeTab);
    ui_->toggleSketchVisibility();
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    ui_->toggleSketchVisibility();
    typeKey(Key::codeTab);
    ASSERT_EQ(ui_->focusedControl(), &corner(pidTiltRangeLow));
    ui_->requestFrame(QVMAltFrameNormal);
    EXPECT_EQ(ui_->focusedControl(), nullptr);
    typeKey(Key::codeTab);
    EXPECT_EQ(ui_->focusedControl(), ui_->parameterControlWithCodename(ui_->config().metadata->tabOrder.front()));
}

} // namespace
} // namespace QVM_NAMESPACE
