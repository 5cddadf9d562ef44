// What a window paints, at every scale and wherever it is.
#include "toolkit/WindowComponent.h"

#include "toolkit/Conversions.h"
#include "toolkit/WindowPainting.h"

#include <gmock/gmock.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Box = juce::Rectangle<int>;

using WindowComponentTest = WindowPainting;

TEST_F(WindowComponentTest, HasTheSizeOfItsContent) {
    EXPECT_EQ(component->getWidth(), 100);
    EXPECT_EQ(component->getHeight(), 80);
    component->window().contentView()->setFrame({0, 0, 150, 90});
    EXPECT_EQ(component->getWidth(), 150);
    EXPECT_EQ(component->getHeight(), 90);
}

TEST_F(WindowComponentTest, PaintsItsContent) {
    const Image picture = fromToolkit(peer().paintAll());
    EXPECT_TRUE(agrees(picture, expected()));
    EXPECT_FALSE(agrees(blank(picture), expected()));
    EXPECT_FALSE(agrees(shifted(picture, 1, 0), expected()));
}

TEST_F(WindowComponentTest, ConstructorDoesNoPaintWork) {
    WindowComponent other(WindowComponent::Embedding::inHost);
    other.window().setContentView(std::make_unique<View>(Rect{0, 0, 10, 10})).layer()->look().setBorder(1, red);
    EXPECT_THAT(other.lastFrame().rasterised, IsEmpty());
}

class WindowComponentScaleTest : public WindowComponentTest, public ::testing::WithParamInterface<double> {};

TEST_P(WindowComponentScaleTest, DrawsSharplyAtThePeersScale) {
    peer().scale = GetParam();
    const Image picture = fromToolkit(peer().paintAll());
    EXPECT_EQ(component->window().backingScaleFactor(), GetParam());
    EXPECT_EQ(square->look().contentsScale(), GetParam());
    const auto whole = [](double v) { return static_cast<int>(std::lround(v * GetParam())); };
    EXPECT_TRUE(agrees(picture, [&](int x, int y) {
        const bool isInside = x >= whole(20) && x < whole(30) && y >= whole(30) && y < whole(40);
        return isInside ? red : grey;
    }));
}

INSTANTIATE_TEST_SUITE_P(Scales, WindowComponentScaleTest, ::testing::Values(1.0, 1.25, 1.5, 2.0, 3.0));

TEST_F(WindowComponentTest, FollowsAScaleThatTheHostSetsByATransform) {
    settle();
    component->setTransform(juce::AffineTransform::scale(2)); // what a plug-in's editor does on the host's word
    desktop->setSize(200, 160);
    peer().bounds = {0, 0, 200, 160};
    EXPECT_TRUE(agrees(fromToolkit(peer().paintAll()), expected(2)));
    EXPECT_EQ(component->window().backingScaleFactor(), 2);
}

TEST_F(WindowComponentTest, DamageAtAScaleIsInPointsAndCoversIt) {
    peer().scale = 1.5;
    settle();
    square->look().setBackgroundColor(blue);
    peer().vBlank();
    EXPECT_THAT(peer().repaints, ElementsAre(Box(20, 30, 10, 10)));
    peer().repaints.clear();
    square->setPosition({26, 35}); // 1.5 pixels
    peer().vBlank();
    ASSERT_EQ(peer().repaints.size(), 1u);
    EXPECT_TRUE(peer().repaints[0].contains(Box(20, 30, 11, 10)));
    EXPECT_TRUE(Box(19, 29, 13, 12).contains(peer().repaints[0]));
}

TEST_F(WindowComponentTest, PaintsOnlyInsideTheClip) {
    settle();
    juce::RectangleList<int> clip(Box(20, 30, 5, 5));
    clip.add(Box(60, 60, 5, 5));
    const Image picture = fromToolkit(peer().paint(clip));
    EXPECT_TRUE(
        agrees(picture, [&](int x, int y) { return clip.containsPoint(x, y) ? expected()(x, y) : Color::clear(); }));
}

TEST_F(WindowComponentTest, PaintedPiecesMakeTheWholePicture) {
    settle();
    const Image whole = fromToolkit(peer().paintAll());
    Image pieced = blank(whole);
    for (int y = 0; y < 80; y += 7) {
        const Image piece = fromToolkit(peer().paint(juce::RectangleList<int>(Box(0, y, 100, 7))));
        for (std::size_t i = 0; i < pieced.pixels.size(); ++i)
            pieced.pixels[i] |= piece.pixels[i];
    }
    EXPECT_EQ(pieced.pixels, whole.pixels);
}

TEST_F(WindowComponentTest, WithoutContentItIsBlack) {
    component->window().takeContentView();
    EXPECT_TRUE(agrees(fromToolkit(peer().paintAll()), [](int, int) { return Color::white(0); }));
}

TEST_F(WindowComponentTest, ShowsANewContentView) {
    settle();
    component->window()
        .setContentView(std::make_unique<View>(Rect{0, 0, 100, 80}))
        .layer()
        ->look()
        .setBackgroundColor(blue);
    runPostedMessages();
    EXPECT_THAT(peer().repaints, ElementsAre(Box(0, 0, 100, 80)));
    EXPECT_TRUE(agrees(fromToolkit(peer().paintAll()), [](int, int) { return blue; }));
}

TEST_F(WindowComponentTest, ScreenshotLeavesItAlive) {
    settle();
    EXPECT_TRUE(agrees(renderWindowToImage(component->window(), 2), expected(2)));
    EXPECT_EQ(component->window().backingScaleFactor(), 1);
    runPostedMessages();
    peer().paintAll();
    time.advance(1);
    square->look().setBackgroundColor(blue);
    runPostedMessages();
    EXPECT_THAT(peer().repaints, ElementsAre(Box(20, 30, 10, 10)));
}

TEST_F(WindowComponentTest, MayBeDestroyedWithAFramePending) {
    settle();
    square->look().setBackgroundColor(blue);
    desktop.reset();
    component.reset();
    runPostedMessages();
    square->look().setBackgroundColor(red); // nobody listens any more
}

TEST_F(WindowComponentTest, MayBeMovedToAnotherDesktopWindow) {
    settle();
    desktop.reset();
    square->look().setBackgroundColor(blue);
    runPostedMessages();
    desktop = std::make_unique<FakeDesktopWindow>(*component);
    peer().vBlank();
    EXPECT_FALSE(peer().repaints.empty());
    EXPECT_TRUE(isNear(pixelAt(fromToolkit(peer().paintAll()), 25, 35), blue, 1));
}

} // namespace
} // namespace QVM_NAMESPACE
