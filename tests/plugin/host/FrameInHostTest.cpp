// An editor in a frame that the host forces on it: one that refuses another size, and one that takes its own. The
// window stands for any host's; a pixel is a point.
#include "plugin/host/Vst3View.h"
#include "plugin/host/XScreen.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace slantwise_tests {
namespace {

using Size = Vst3View::Size;
using Resizing = Vst3View::Resizing;

class FrameInHost : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(screen_.isOpen()) << "needs a display";
        screen_.movePointer(5, 5);
    }
    void open(Resizing resizing, std::optional<Size> frame = std::nullopt) {
        view_ = std::make_unique<Vst3View>(instance_, resizing);
        view_->attach(frame);
        ASSERT_TRUE(view_->runUntil([this] { return picture({480, 320}).distinctColours() > 50; }));
        view_->run(0.3);
        view_->takeAsked();
    }
    Picture picture(Size size) {
        return screen_.capture(view_->corner().first, view_->corner().second, size.first, size.second);
    }
    Picture part(int x, int y, int width, int height) {
        return screen_.capture(view_->corner().first + x, view_->corner().second + y, width, height);
    }
    void click(int x, int y) {
        screen_.movePointer(view_->corner().first + x, view_->corner().second + y);
        view_->run(0.2);
        screen_.button(1, true);
        view_->run(0.1);
        screen_.button(1, false);
        view_->run(0.2);
        screen_.movePointer(5, 5);
        view_->run(0.2);
    }

    XScreen screen_;
    Vst3Module module_;
    Vst3Instance instance_{module_};
    std::unique_ptr<Vst3View> view_;
};

class FrameInStubbornHost : public FrameInHost, public testing::WithParamInterface<Resizing> {};

TEST_P(FrameInStubbornHost, TheDrawerOpensOverTheControlsAndTheGearStandsWhereItStood) {
    open(GetParam());
    view_->run(1); // the live pictures and the clip light have come
    const Picture drawerPlace = part(218, 0, 200, 320), gear = part(424, 76, 50, 40), column = part(418, 120, 62, 60),
                  left = part(0, 30, 210, 290);
    click(449, 96);
    EXPECT_EQ(view_->takeAsked().front(), (Size{680, 320})) << "it does ask";
    ASSERT_TRUE(view_->runUntil([&] { return part(218, 0, 200, 320).differingPixels(drawerPlace) > 20000; }));
    EXPECT_TRUE(view_->runUntil([&] { return part(424, 76, 50, 40).differingPixels(gear) > 500; })) << "it is lit";
    EXPECT_EQ(part(418, 120, 62, 60).differingPixels(column), 0U) << "the column has not moved";
    EXPECT_EQ(part(0, 30, 210, 290).differingPixels(left), 0U) << "nor has what the drawer leaves of the controls";
    EXPECT_EQ(view_->size(), (Size{480, 320}));
    click(449, 96);
    EXPECT_TRUE(view_->runUntil([&] { return part(218, 0, 200, 320).differingPixels(drawerPlace) == 0; }))
        << "and closes";
    EXPECT_EQ(part(0, 30, 210, 290).differingPixels(left), 0U);
}

INSTANTIATE_TEST_SUITE_P(Vst3, FrameInStubbornHost, testing::Values(Resizing::refused, Resizing::ignored),
                         [](const auto& given) { return given.param == Resizing::refused ? "SaysNo" : "SaysNothing"; });

TEST_F(FrameInHost, AHostThatGrantsTheSizeLateHasTheDrawerBesideTheControls) {
    open(Resizing::ignored);
    click(449, 96);
    view_->run(1);
    view_->resize({680, 320});
    EXPECT_TRUE(view_->runUntil([&] { return part(480, 0, 200, 320).distinctColours() > 20; }));
    view_->run(0.7);
    EXPECT_EQ(view_->size(), (Size{680, 320}));
    EXPECT_GT(part(480, 0, 200, 320).distinctColours(), 20U);
}

TEST_F(FrameInHost, ALargerFrameIsFilledAndHasTheEditorInItsMiddle) {
    open(Resizing::allowed);
    const Picture whole = picture({480, 320});
    const std::uint32_t columnColour = part(470, 130, 1, 1).pixels[0];
    view_->resize({720, 600}); // at one and a half
    ASSERT_TRUE(view_->runUntil([&] { return part(627, 240, 93, 90).countOf(columnColour, 3) > 4000; }));
    EXPECT_EQ(part(0, 0, 720, 60).countOf(0, 0), 0U) << "no black beside it";
    EXPECT_EQ(part(0, 0, 720, 60).distinctColours(), 1U);
    EXPECT_EQ(part(0, 540, 720, 60).distinctColours(), 1U);
    EXPECT_TRUE(view_->takeAsked().empty()) << "who is given a size asks for none";
    view_->resize({480, 320});
    EXPECT_TRUE(view_->runUntil([&] { return picture({480, 320}).differingPixels(whole) < 500; }));
}

TEST_F(FrameInHost, ASmallerFrameHasAllOfTheEditorAndItsControlsAreWhereTheyAreSeen) {
    open(Resizing::allowed);
    const std::uint32_t columnColour = part(470, 130, 1, 1).pixels[0];
    view_->resize({240, 160});
    ASSERT_TRUE(view_->runUntil([&] { return part(209, 60, 31, 40).countOf(columnColour, 3) > 500; }));
    const Picture gear = part(212, 38, 25, 20);
    click(449 / 2, 96 / 2);
    EXPECT_TRUE(view_->runUntil([&] { return part(212, 38, 25, 20).differingPixels(gear) > 100; })) << "it opens";
}

TEST_F(FrameInHost, TheCompactFormOfARefusingHostStandsInTheFramesMiddle) {
    open(Resizing::refused);
    click(466, 284 - 80); // in the corner of the curve
    ASSERT_TRUE(view_->runUntil(
        [&] { return part(0, 0, 140, 320).distinctColours() == 1 && part(340, 0, 140, 320).distinctColours() == 1; }));
    EXPECT_EQ(part(0, 0, 140, 320).countOf(0, 8), 0U) << "no black beside it";
    EXPECT_GE(part(140, 60, 200, 200).distinctColours(), 3U);
    click(140 + 187, 60 + 13); // back
    EXPECT_TRUE(view_->runUntil([&] { return picture({480, 320}).distinctColours() > 200; }));
}

TEST_F(FrameInHost, MayBeDraggedToAnySizeOfItsShapeBetweenItsLimits) {
    open(Resizing::allowed);
    EXPECT_EQ(view_->view().canResize(), Steinberg::kResultTrue);
    const auto constrained = [this](int width, int height) {
        Steinberg::ViewRect rect(0, 0, width, height);
        EXPECT_EQ(view_->view().checkSizeConstraint(&rect), Steinberg::kResultTrue);
        return Size{rect.getWidth(), rect.getHeight()};
    };
    EXPECT_EQ(constrained(720, 480), (Size{720, 480}));
    EXPECT_EQ(constrained(900, 480), (Size{720, 480}));
    EXPECT_EQ(constrained(10, 10), (Size{360, 240}));
    EXPECT_EQ(constrained(9000, 9000), (Size{1440, 960}));
    click(449, 96); // the drawer
    ASSERT_TRUE(view_->runUntil([this] { return view_->size() == Size{680, 320}; }));
    EXPECT_EQ(constrained(1360, 900), (Size{1360, 640}));
}

TEST_F(FrameInHost, TheGripAsksForEachSizeAndHasTheCornerUnderThePointer) {
    open(Resizing::allowed);
    const auto [x, y] = view_->corner();
    screen_.movePointer(x + 470, y + 310);
    view_->run(0.3);
    screen_.button(1, true);
    view_->run(0.1);
    for (int i = 1; i <= 10; ++i) {
        screen_.movePointer(x + 470 + 24 * i, y + 310 + 16 * i);
        ASSERT_TRUE(view_->runUntil([&] { return std::abs(view_->size().first - (480 + 24 * i)) <= 1; })) << i;
    }
    screen_.button(1, false);
    view_->run(0.3);
    screen_.movePointer(5, 5);
    EXPECT_EQ(view_->size(), (Size{720, 480}));
    // The gear is where it is seen.
    const Picture gear = part(636, 114, 75, 60);
    click(449 * 3 / 2, 96 * 3 / 2);
    EXPECT_TRUE(view_->runUntil([this] { return view_->size() == Size{1020, 480}; }));
    EXPECT_TRUE(view_->runUntil([&] { return part(636, 114, 75, 60).differingPixels(gear) > 500; }));
}

TEST_F(FrameInHost, AnyFrameIsSurvived) {
    open(Resizing::allowed);
    for (const Size& frame : {Size{1, 1}, {2000, 3}, {3, 900}, {0, 0}, {1500, 950}, {17, 400}, {480, 320}}) {
        view_->resize(frame.first > 0 ? frame : Size{1, 1});
        view_->run(0.3);
    }
    EXPECT_TRUE(view_->runUntil([&] { return picture({480, 320}).distinctColours() > 50; }));
}

} // namespace
} // namespace slantwise_tests
