// A number that is being typed, and all that ends it.
#include "editor/keyboard/KeyboardFixture.h"

#include "controls/QVMVerticalSlider.h"

namespace QVM_NAMESPACE {
namespace {

TEST_F(QVMKeyboardHandlerTest, ATypedNumberShowsInTheFocusedControlWhileItIsTyped) {
    for (const std::uint32_t pid : {1u, 14u}) {
        focus(pid);
        auto* display = dynamic_cast<QVMTransientBufferDisplay*>(control(pid).primaryControl());
        EXPECT_FALSE(display->displayingTransientBufferValue());
        type("12");
        EXPECT_TRUE(display->displayingTransientBufferValue());
        key(0, Key::codeReturn);
        EXPECT_FALSE(display->displayingTransientBufferValue());
        EXPECT_EQ(memoized(pid), 12);
    }
}

// A number half typed into a slider of the editor, and the real gestures that may come in between.
class HalfTypedNumber : public QVMKeyboardHandlerTest {
protected:
    static constexpr std::uint32_t kTiltGain = 1, kPower = 0;
    void SetUp() override {
        QVMKeyboardHandlerTest::SetUp();
        focus(kTiltGain);
        type("12");
        ASSERT_EQ(readout(), "12");
    }
    QVMVerticalSlider& slider() { return dynamic_cast<QVMVerticalSlider&>(*control(kTiltGain).primaryControl()); }
    std::string readout() { return slider().readout()->string().string(); }
    Point handle() { return slider().coordinates().toWindow(slider().readoutBulb()->position()); }
    void send(EventType type, Point at, std::uint32_t modifiers = 0, int clicks = 1) {
        Event event = mouseEvent(type, at, modifiers);
        event.clickCount = clicks;
        window_.sendEvent(event);
    }
    void doubleClickHandle() {
        for (const int clicks : {1, 2}) {
            send(EventType::mouseDown, handle(), 0, clicks);
            send(EventType::mouseUp, handle(), 0, clicks);
        }
    }
    // Nothing is left of what was typed: neither seen nor applied.
    void expectValueShown() {
        frames(0.2);
        EXPECT_FALSE(slider().displayingTransientBufferValue());
        EXPECT_EQ(buffer(), "");
        std::string text;
        GetParameter(kTiltGain)->valueString(&text, nullptr, memoized(kTiltGain));
        EXPECT_EQ(readout().substr(0, text.size()), text);
        const float value = memoized(kTiltGain);
        EXPECT_FALSE(key(0, Key::codeReturn));
        EXPECT_EQ(memoized(kTiltGain), value);
    }
};

TEST_F(HalfTypedNumber, APressOnItsHandleEndsIt) {
    send(EventType::mouseDown, handle());
    expectValueShown();
}

TEST_F(HalfTypedNumber, ADragEndsIt) {
    send(EventType::mouseDown, handle());
    type("5"); // with the handle held
    EXPECT_EQ(readout(), "5");
    send(EventType::mouseDragged, handle() + Point{40, 0});
    EXPECT_NE(memoized(kTiltGain), 0);
    expectValueShown();
}

TEST_F(HalfTypedNumber, WhatIsTypedWhileTheHandleIsHeldEndsWithTheRelease) {
    send(EventType::mouseDown, handle());
    type("5");
    send(EventType::mouseUp, handle());
    expectValueShown();
}

TEST_F(HalfTypedNumber, ArrowsEndIt) {
    for (const char32_t which : {Key::up, Key::left}) {
        type("3");
        EXPECT_TRUE(arrow(which));
        expectValueShown();
    }
}

TEST_F(HalfTypedNumber, AnOptionClickEndsIt) {
    send(EventType::mouseDown, handle(), EventModifier::option);
    send(EventType::mouseUp, handle(), EventModifier::option);
    expectValueShown();
}

TEST_F(HalfTypedNumber, AClickThatLeavesTheFocusWhereItIsEndsIt) {
    click(middleOf(control(kPower)));
    EXPECT_EQ(focusedPid(), kTiltGain);
    expectValueShown();
}

TEST_F(HalfTypedNumber, AResetFromTheMenuEndsIt) {
    userSets(kTiltGain, 6);
    type("3");
    control(kTiltGain).primaryControl()->contextMenuResetInitialValue();
    expectValueShown();
}

TEST_F(HalfTypedNumber, ADoubleClickOpensAnEmptyFieldThatTakesDigits) {
    doubleClickHandle();
    EXPECT_EQ(buffer(), "");
    EXPECT_EQ(readout(), "");
    type("7");
    EXPECT_EQ(readout(), "7");
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(memoized(kTiltGain), 7);
}

TEST_F(HalfTypedNumber, ADoubleClickThatBecomesADragClosesItsField) {
    doubleClickHandle();
    send(EventType::mouseDown, handle(), 0, 2);
    EXPECT_TRUE(slider().displayingTransientBufferValue());
    send(EventType::mouseDragged, handle() + Point{40, 0}, 0, 2);
    EXPECT_GT(memoized(kTiltGain), 0);
    send(EventType::mouseUp, handle(), 0, 2);
    expectValueShown();
}

TEST_F(HalfTypedNumber, APressThatMovesNothingKeepsTheFieldOfADoubleClick) {
    doubleClickHandle();
    send(EventType::mouseDown, handle(), 0, 2);
    send(EventType::mouseDragged, handle() + Point{0, 3}, 0, 2);
    send(EventType::mouseUp, handle(), 0, 2);
    EXPECT_TRUE(slider().displayingTransientBufferValue());
}

TEST_F(HalfTypedNumber, AFieldOfWhichEverythingWasDeletedEndsWithTheNextPress) {
    key(0, Key::codeDelete);
    key(0, Key::codeDelete);
    EXPECT_EQ(readout(), "");
    send(EventType::mouseDown, handle());
    expectValueShown();
}

TEST_F(HalfTypedNumber, ReturnClosesAnEmptyField) {
    doubleClickHandle();
    EXPECT_FALSE(key(0, Key::codeReturn)) << "nothing was typed: the key is the host's";
    expectValueShown();
}

TEST_F(HalfTypedNumber, ChangesOfTheHostLeaveIt) {
    hostSets(kTiltGain, 3);
    frames(0.2);
    EXPECT_EQ(memoized(kTiltGain), 3);
    EXPECT_EQ(readout(), "12");
    EXPECT_TRUE(key(0, Key::codeReturn));
    EXPECT_EQ(memoized(kTiltGain), 12);
}

} // namespace
} // namespace QVM_NAMESPACE
