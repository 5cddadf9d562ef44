#include "editor/surface/ScaleGrip.h"

#include "editor/EditorFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;

// In a window that grants every size. As on screen, the pointer is where it is in the window around, and the window's
// own coordinates shrink under it as the editor grows.
class ScaleGripTest : public EditorFixture {
protected:
    ScaleGrip& grip() { return *ui_->parts().scaleGrip(); }
    void sendAt(EventType type, Point inFrame, int clicks = 1) {
        const double shown = double{ui_->currentScale()};
        Event event = mouseEvent(type, {inFrame.x / shown, inFrame.y / shown});
        event.clickCount = clicks;
        window_.sendEvent(event);
    }
    void move(Point at) { window_.sendEvent(mouseEvent(EventType::mouseMoved, at)); }
    std::size_t reports() const {
        return static_cast<std::size_t>(std::count_if(delegate_.calls.begin(), delegate_.calls.end(),
                                                      [](const auto& call) { return call.starts_with("preference"); }));
    }
};

TEST_F(ScaleGripTest, ShowsOnlyNearItsCorner) {
    EXPECT_EQ(grip().alpha(), 0);
    move({440, 290});
    EXPECT_EQ(grip().alpha(), 0.75);
    move(middleOf(grip()));
    EXPECT_EQ(grip().alpha(), 1);
    move({300, 310});
    EXPECT_EQ(grip().alpha(), 0);
    move({440, 290});
    window_.sendEvent(mouseEvent(EventType::mouseExited, {}));
    EXPECT_EQ(grip().alpha(), 0);
}

TEST_F(ScaleGripTest, StandsInTheCornerOfEachForm) {
    for (const auto& [form, size] :
         {std::pair(1, Size{680, 320}), std::pair(2, Size{200, 200}), std::pair(0, Size{480, 320})}) {
        ui_->requestFrame(form);
        EXPECT_EQ(grip().frame(), (Rect{size.width - 18, size.height - 18, 16, 16}));
        EXPECT_EQ(ui_->hitTest({size.width - 10, size.height - 10}), &grip());
    }
}

TEST_F(ScaleGripTest, TheCornerFollowsThePointerAndStaysUnderIt) {
    sendAt(EventType::mouseDown, {472, 312}); // 8 points beside the corner
    for (const double part : {0.2, 0.5, 1.0}) {
        time_.advance(0.02);
        sendAt(EventType::mouseDragged, {472 + 240 * part, 312 + 160 * part});
        EXPECT_NEAR(480 * double{ui_->currentScale()}, 480 + 240 * part, 0.51);
    }
    sendAt(EventType::mouseUp, {712, 472});
    EXPECT_EQ(ui_->currentScale(), 1.5F);
    EXPECT_EQ(reports(), 1U);
}

TEST_F(ScaleGripTest, KeepsTheShapeWhateverWayThePointerGoes) {
    sendAt(EventType::mouseDown, {472, 312});
    time_.advance(0.02);
    sendAt(EventType::mouseDragged, {712, 312}); // to the right alone
    const double along = (720.0 * 480 + 320.0 * 320) / (480.0 * 480 + 320.0 * 320);
    EXPECT_NEAR(double{ui_->currentScale()}, along, 0.002);
    time_.advance(0.02);
    sendAt(EventType::mouseDragged, {-5000, -5000});
    EXPECT_EQ(ui_->currentScale(), 0.75F);
    sendAt(EventType::mouseUp, {-5000, -5000});
}

TEST_F(ScaleGripTest, AFastPointerIsFollowedOncePerRefreshAndToItsEnd) {
    sendAt(EventType::mouseDown, {472, 312});
    time_.advance(0.02);
    delegate_.calls.clear();
    for (int i = 1; i <= 100; ++i) {
        sendAt(EventType::mouseDragged, {472.0 + 2 * i, 312});
        time_.advance(0.001);
    }
    EXPECT_LE(std::count(delegate_.calls.begin(), delegate_.calls.end(), "frame 0"), 8);
    const double beforeEnd = double{ui_->currentScale()};
    sendAt(EventType::mouseUp, {672, 312});
    EXPECT_GE(double{ui_->currentScale()}, beforeEnd);
    EXPECT_NEAR(double{ui_->currentScale()}, (680.0 * 480 + 320.0 * 320) / (480.0 * 480 + 320.0 * 320), 0.002);
}

TEST_F(ScaleGripTest, APointerThatIsTakenAwayLeavesTheSizeAsItIs) {
    sendAt(EventType::mouseDown, {472, 312});
    time_.advance(0.02);
    sendAt(EventType::mouseDragged, {592, 392});
    const float reached = ui_->currentScale();
    window_.cancelPress();
    EXPECT_EQ(ui_->currentScale(), reached);
    EXPECT_EQ(reports(), 1U);
}

TEST_F(ScaleGripTest, AClickChangesNothingAndADoubleClickLeadsBackToThePlainSize) {
    ui_->scale().adoptPreference(2);
    sendAt(EventType::mouseDown, {952, 632});
    sendAt(EventType::mouseUp, {952, 632});
    EXPECT_EQ(ui_->currentScale(), 2);
    EXPECT_EQ(reports(), 0U);
    sendAt(EventType::mouseDown, {952, 632}, 2);
    sendAt(EventType::mouseUp, {952, 632}, 2);
    EXPECT_EQ(ui_->currentScale(), 1);
    EXPECT_EQ(reports(), 1U);
}

} // namespace
} // namespace QVM_NAMESPACE
