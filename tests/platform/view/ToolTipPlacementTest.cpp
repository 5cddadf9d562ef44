#include "platform/view/ToolTipPlacement.h"

#include "platform/view/Window.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

// Two rows, one above the other, as the handles of a range are; between the edges of the window and them is room.
class ToolTipPlacement : public testing::Test {
protected:
    ToolTipPlacement() {
        auto content = std::make_unique<View>(Rect{0, 0, 300, 200});
        low = &content->addSubview(std::make_unique<View>(Rect{0, 60, 300, 40}));
        high = &content->addSubview(std::make_unique<View>(Rect{0, 100, 300, 40}));
        low->setToolTip("Low");
        high->setToolTip("High");
        window.setContentView(std::move(content));
    }
    const Size tip{80, 20};
    Window window;
    View* low = nullptr;
    View* high = nullptr;
};

TEST_F(ToolTipPlacement, StandsAboveItsView) {
    EXPECT_EQ(toolTipFrame(window, {150, 80}, tip), (Rect{110, 36, 80, 20}));
}

TEST_F(ToolTipPlacement, StandsBelowWhereAnotherViewIsAbove) {
    EXPECT_EQ(toolTipFrame(window, {150, 120}, tip), (Rect{110, 144, 80, 20}));
}

TEST_F(ToolTipPlacement, StandsBesideThePointerWhereThereIsNoRoomAboveOrBelow) {
    high->setFrame({0, 100, 300, 100});
    EXPECT_EQ(toolTipFrame(window, {200, 180}, tip), (Rect{40, 170, 80, 20}));
    EXPECT_EQ(toolTipFrame(window, {60, 180}, tip), (Rect{140, 170, 80, 20})); // no room at the left
}

TEST_F(ToolTipPlacement, NeverLeavesTheWindow) {
    const Rect all = window.contentView()->bounds();
    for (double x = 0; x < 300; x += 7)
        for (double y = 60; y < 140; y += 7)
            EXPECT_TRUE(all.contains(toolTipFrame(window, {x, y}, tip))) << x << " " << y;
    high->setFrame({0, 0, 300, 200}); // nowhere is free
    EXPECT_TRUE(all.contains(toolTipFrame(window, {150, 100}, {290, 190})));
}

TEST_F(ToolTipPlacement, WithoutAViewItStandsUnderThePointer) {
    EXPECT_EQ(toolTipFrame(window, {10, 10}, tip).x, 10);
}

} // namespace
} // namespace QVM_NAMESPACE
