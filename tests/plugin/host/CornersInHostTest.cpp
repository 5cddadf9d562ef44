// The corners of the large curve in the small window: dragged with the pointer and moved with keys.
#include "plugin/host/InHost.h"
#include "plugin/host/Jalv.h"

namespace QVM_NAMESPACE {
namespace {

// Where a corner of this frequency is drawn, and how much of its white is there.
Rect discOf(double hertz) {
    const Point at = EditorMap::cornerOf(hertz);
    return {at.x - 4, at.y - 4, 8, 8};
}
std::size_t whiteIn(const Picture& picture) {
    return picture.countOf(0xFFFFFF, 40);
}
constexpr std::size_t mostOfADisc = 35, lineOfTheCurve = 20; // pixels of it, at least and at most

class CornersInHost : public InHost {
protected:
    // By keys, with a control in focus that the small window hides.
    void openSmall() {
        open();
        clickOnControl(gainHandle(0));
        pointAt(beside); // a row under the pointer would be marked
        const Picture before = wholePicture();
        type("Menu");
        ASSERT_TRUE(comesTrue([&] { return wholePicture().boxOfNew(EditorMap::menuColour, before); }));
        typeAll({"Up", "Right", "Down", "Down", "Down", "Down", "Down", "Return"});
        ASSERT_TRUE(comesTrue([this] { return plugin_.editor()->getWidth() == 200; }));
        ASSERT_TRUE(comesToHaveCorner(20));
        plugin_.recorder().lines.clear();
        plugin_.recorder().stateChanges = 0;
    }
    bool comesToHaveCorner(double hertz) {
        return comesTrue([&] { return whiteAt(hertz) > mostOfADisc; });
    }
    std::size_t whiteAt(double hertz) { return whiteIn(pictureOf(discOf(hertz))); }
};

TEST_P(CornersInHost, AreDraggedAsOneGestureAndMovedByKeysFromThereOn) {
    openSmall();
    if (HasFatalFailure()) return;
    EXPECT_LT(whiteAt(200), lineOfTheCurve) << "the negative control: none where none belongs";
    pointAt(EditorMap::cornerOf(20));
    press();
    glideTo(EditorMap::cornerOf(200));
    release();
    EXPECT_TRUE(becomes(pidTiltRangeLow, 200, 10));
    EXPECT_TRUE(hasHeardOneGesture(3));
    EXPECT_TRUE(comesToHaveCorner(200));
    EXPECT_LT(whiteAt(20), lineOfTheCurve);

    ASSERT_TRUE(keepsKeyboard());
    const double dragged = shownValue(pidTiltRangeLow);
    type("Right");
    EXPECT_TRUE(comesTrue([&] { return shownValue(pidTiltRangeLow) > dragged + 0.5; }));
    const double stepped = shownValue(pidTiltRangeLow);
    typeAll({"Tab", "Left"});
    EXPECT_TRUE(becomes(pidTiltRangeHigh, 19900, 10)) << "the next one";
    EXPECT_EQ(shownValue(pidTiltRangeLow), stepped);
    EXPECT_TRUE(hostGets({}));
}

INSTANTIATE_TEST_SUITE_P(Vst3, CornersInHost, testing::Values(Format::vst3), [](const auto&) { return "Bundle"; });
INSTANTIATE_TEST_SUITE_P(Lv2, CornersInHost, testing::Values(Format::lv2), [](const auto&) { return "Bundle"; });

class JalvCorners : public Jalv {
protected:
    std::size_t whiteAt(double hertz) { return whiteIn(pictureOf(discOf(hertz))); }
};

TEST_F(JalvCorners, AreDraggedAsOneGestureInTheSmallWindow) {
    constexpr Point frameButton{467, 205};
    ASSERT_NO_FATAL_FAILURE(openEditor());
    pointAt(frameButton);
    click();
    // The host's window stays as it is, and has the small one in its middle.
    window_->x += (480 - 200) / 2;
    window_->y += (320 - 200) / 2;
    ASSERT_TRUE(comesTrue([this] { return whiteAt(20) > mostOfADisc && whiteAt(200) < lineOfTheCurve; }));
    const std::size_t valuesBefore = sent().size(), changesBefore = stateChanges();
    const Point from = EditorMap::cornerOf(20), to = EditorMap::cornerOf(200);
    pointAt(from);
    screen_.button(1, true);
    for (int i = 1; i <= 8; ++i)
        pointAt({from.x + (to.x - from.x) * i / 8, from.y});
    EXPECT_EQ(stateChanges(), changesBefore) << "the button is down";
    screen_.button(1, false);
    EXPECT_TRUE(comesTrue([&] { return stateChanges() > changesBefore; }));
    EXPECT_TRUE(becomes(pidTiltRangeLow, 200, 10)) << shown(pidTiltRangeLow);
    EXPECT_TRUE(comesTrue([this] { return whiteAt(200) > mostOfADisc; }));
    EXPECT_LT(whiteAt(20), lineOfTheCurve);
    EXPECT_EQ(stateChanges(), changesBefore + 1) << "one for the whole drag";
    const std::vector<Sent> all = sent();
    EXPECT_GE(all.size(), valuesBefore + 3);
    for (std::size_t i = valuesBefore; i < all.size(); ++i)
        EXPECT_EQ(all[i].codename, propertyName(*GetParameter(pidTiltRangeLow)));
    EXPECT_EQ(close(), 0) << textOf(log_);
}

} // namespace
} // namespace QVM_NAMESPACE
