// What all controls that are drawn as a box do alike, on a box of two halves.
#include "controls/BoxControl.h"

#include "controls/Gestures.h"
#include "controls/QVMFocusBorder.h"
#include "platform/runloop/VirtualTime.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr Rect kLeft = {0, 0, 40, 30}, kRight = {40, 0, 40, 30};

// The right half lights up, the left one does not, and there is room beside them.
class Halves final : public BoxControl {
public:
    Halves(const QVMParameter& parameter, BoxShape shape) : BoxControl({0, 0, 100, 30}, parameter, shape) {
        addPart(hover(), "hover");
        addPart(mark, "mark");
        Halves::redraw();
    }
    using BoxControl::drawPlainBox;
    using BoxControl::hover;
    using BoxControl::moveChoice;

    int redraws = 0;
    const std::shared_ptr<Layer> mark = std::make_shared<Layer>(YAxis::up);

protected:
    void redraw() override {
        ++redraws;
        drawPlainBox();
    }
    int indexAt(Point point) const override { return kLeft.contains(point) ? 0 : kRight.contains(point) ? 1 : -1; }
    std::optional<Rect> hoverFrame(int index) const override {
        return index == 1 ? std::optional(kRight) : std::nullopt;
    }
};

class BoxControlTest : public testing::Test {
protected:
    void pointTo(Point point) { box.mouseMoved(eventAt(EventType::mouseMoved, box, point)); }
    bool isLit() const { return box.hover()->opacity() == 1; }

    VirtualTime time;
    QVMParameter parameter = parameterLike(pidTiltGain);
    Halves box{parameter, BoxShape::rounded};
};

TEST_F(BoxControlTest, PartsStandInTheOrderInWhichTheyWereAddedBelowTheFocusBorder) {
    const auto& layers = box.layer()->tree().sublayers();
    ASSERT_EQ(layers.size(), 4u);
    EXPECT_EQ(layers[0], box.bg());
    EXPECT_EQ(layers[1], box.hover());
    EXPECT_EQ(layers[2], box.mark);
    EXPECT_EQ(layers[3], box.highlight());
}

TEST_F(BoxControlTest, ThePartUnderThePointerLightsUp) {
    EXPECT_FALSE(isLit());
    pointTo({60, 10});
    EXPECT_TRUE(isLit());
    EXPECT_EQ(box.hover()->frame(), kRight);
    pointTo({10, 10});
    EXPECT_FALSE(isLit()) << "a part that does not light up";
    box.mouseEntered(eventAt(EventType::mouseMoved, box, {60, 10}));
    EXPECT_TRUE(isLit()) << "also where the pointer comes in";
    pointTo({90, 10});
    EXPECT_FALSE(isLit()) << "no part at all";
    pointTo({60, 10});
    pointAway(box);
    EXPECT_FALSE(isLit());
}

TEST_F(BoxControlTest, NothingLightsUpWhileItIsDimmedOrDisabled) {
    pointTo({60, 10});
    box.setDimmed(true);
    EXPECT_FALSE(isLit());
    box.setDimmed(false);
    EXPECT_TRUE(isLit());
    box.setPreventInteraction(true);
    EXPECT_FALSE(isLit());
    box.setPreventInteraction(false);
    EXPECT_TRUE(isLit());
}

TEST_F(BoxControlTest, AThemeAndAFrameDrawItAnew) {
    const int before = box.redraws;
    {
        const DarkTheme dark;
        EXPECT_EQ(box.redraws, before + 1);
        EXPECT_EQ(box.bg()->look().backgroundColor(), QVMUITheme::dark().palette.boxFill);
    }
    box.setFrame({0, 0, 120, 40});
    EXPECT_EQ(box.redraws, before + 3);
    EXPECT_EQ(box.bg()->frame(), box.bounds());
}

TEST_F(BoxControlTest, TheShapeGivesBoxAndFocusBorderTheirCorners) {
    EXPECT_EQ(box.bg()->look().cornerRadius(), 8);
    box.setHighlit(true);
    EXPECT_EQ(box.highlight()->frame(), (Rect{-4, -3, 108, 36}));
    EXPECT_EQ(box.highlight()->rounding(), 11);
    box.setFrame({0, 0, 100, 12});
    EXPECT_EQ(box.bg()->look().cornerRadius(), 6) << "no more than half the height";

    Halves capsule(parameter, BoxShape::capsule);
    EXPECT_EQ(capsule.bg()->look().cornerRadius(), 15);
    capsule.setHighlit(true);
    EXPECT_EQ(capsule.highlight()->rounding(), 18);
}

TEST_F(BoxControlTest, TheFocusBorderHasTheParametersColourInBothThemes) {
    const auto stroke = [this] {
        box.setFrame({0, 0, 90, 30}); // drawn anew
        return box.highlight()->strokeNSColor();
    };
    EXPECT_EQ(stroke(), QVMCGColor(parameter.color));
    const DarkTheme dark;
    EXPECT_EQ(stroke(), QVMCGColor(parameter.color));
}

TEST_F(BoxControlTest, AChoiceGlidesOnlyFromWhereItWasSeen) {
    const auto move = [this](const Rect& frame, Animate animate) {
        const Transaction transaction = Halves::moveChoice(*box.mark, true, animate);
        box.mark->setFrame(frame);
    };
    move(kLeft, Animate::no);
    EXPECT_FALSE(box.mark->animations().isRunning());
    move(kRight, Animate::yes);
    EXPECT_TRUE(box.mark->animations().isRunning());
    time.advance(0.11);
    EXPECT_EQ(box.mark->presentation().position, kRight.center());
    { const Transaction none = Halves::moveChoice(*box.mark, false, Animate::yes); }
    EXPECT_TRUE(box.mark->isHidden());
    move(kLeft, Animate::yes);
    EXPECT_FALSE(box.mark->isHidden());
    EXPECT_FALSE(box.mark->animations().isRunning()) << "it appears where it belongs";
}

} // namespace
} // namespace QVM_NAMESPACE
