#include "editor/EditorFixture.h"

#include "controls/QVMSymbolButton.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/FrameButton.h"
#include "editor/surface/QVMPowerBox.h"

namespace QVM_NAMESPACE {
namespace {

class FrameButtonTest : public EditorFixture {
protected:
    void move(Point at) { window_.sendEvent(mouseEvent(EventType::mouseMoved, at)); }
    void doubleClick(Point at) {
        for (const int count : {1, 2}) {
            for (const EventType type : {EventType::mouseDown, EventType::mouseUp}) {
                Event event = mouseEvent(type, at);
                event.clickCount = count;
                window_.sendEvent(event);
            }
        }
    }
    Point curve() const { return ui_->powerBox()->coordinates().toWindow(Rect{10, 230, 20, 20}).center(); }
    FrameButton& button() { return *ui_->parts().frameButton(); }
};

TEST_F(FrameButtonTest, LeadsToTheCompactFormAndBack) {
    EXPECT_TRUE(button().toolTip().starts_with("Compact View\n"));
    click(middleOf(button()));
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameCompact);
    EXPECT_TRUE(button().toolTip().starts_with("Full View\n"));
    EXPECT_TRUE(ui_->bounds().contains(button().frame()));
    click(middleOf(button()));
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal);
    EXPECT_EQ(button().destination(), FrameButton::Destination::compactForm);
}

TEST_F(FrameButtonTest, ShowsOnlyWhileThePointerIsInThePowerBox) {
    EXPECT_EQ(button().alpha(), 0);
    move(curve());
    EXPECT_GT(button().alpha(), 0.5);
    move(middleOf(button()));
    EXPECT_EQ(button().alpha(), 1);
    move({100, 200});
    EXPECT_EQ(button().alpha(), 0);
}

TEST_F(FrameButtonTest, ADoubleClickOnTheCurveTogglesTheForm) {
    doubleClick(curve());
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameCompact);
    doubleClick({100, 100}); // anywhere in it
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal);
}

TEST_F(FrameButtonTest, ADoubleClickOnAButtonIsTheButtonsTwice) {
    doubleClick(middleOf(*ui_->powerBox()->gear()));
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal); // there and back
    doubleClick(middleOf(control(pidMasterOnOff)));
    EXPECT_EQ(ui_->altFrame(), QVMAltFrameNormal);
}

TEST_F(FrameButtonTest, IsGoneWithoutFrames) {
    ui_->assumeAltFrameScaleChanged(5, false);
    EXPECT_TRUE(button().isHidden());
}

} // namespace
} // namespace QVM_NAMESPACE
