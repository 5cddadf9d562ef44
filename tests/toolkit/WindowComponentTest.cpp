// What a window paints, and when.
#include "toolkit/WindowComponent.h"

#include "platform/layer/GLLayer.h"
#include "platform/layer/Transaction.h"
#include "platform/runloop/VirtualTime.h"
#include "toolkit/Conversions.h"
#include "toolkit/FakePeer.h"
#include "toolkit/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Box = juce::Rectangle<int>;

const Color red{1, 0, 0, 1}, blue{0, 0, 1, 1}, grey = Color::white(0.5f);

// A grey window of 100 x 80 with a red square of 10 at (20, 30).
class WindowComponentTest : public ::testing::Test {
protected:
    WindowComponentTest() {
        View& content = component->window().setContentView(std::make_unique<View>(Rect{0, 0, 100, 80}));
        content.layer()->setBackgroundColor(grey);
        square = plainLayer({20, 30, 10, 10}, red);
        content.layer()->addSublayer(square);
        desktop = std::make_unique<FakeDesktopWindow>(*component);
    }
    ~WindowComponentTest() override {
        desktop.reset();
        component.reset();
        runPostedMessages();
    }
    // Brings the window up to date and on screen.
    void settle() {
        time.advance(1);
        runPostedMessages();
        peer().vBlank();
        peer().paintAll();
        peer().flushes = 0;
        time.advance(1);
    }
    FakePeer& peer() { return desktop->peer(); }
    Expected expected(int scale = 1) {
        return [scale](int x, int y) {
            return x >= 20 * scale && x < 30 * scale && y >= 30 * scale && y < 40 * scale ? red : grey;
        };
    }
    VirtualTime time{100};
    std::unique_ptr<WindowComponent> component = std::make_unique<WindowComponent>(WindowComponent::Embedding::inHost);
    std::shared_ptr<Layer> square;
    std::unique_ptr<FakeDesktopWindow> desktop;
};

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
    other.window().setContentView(std::make_unique<View>(Rect{0, 0, 10, 10})).layer()->setBorder(1, red);
    EXPECT_THAT(other.lastFrame().rasterised, IsEmpty());
}

TEST_F(WindowComponentTest, ItsWindowIsVisibleUntilItIsHiddenOnAScreen) {
    WindowComponent unseen(WindowComponent::Embedding::inHost);
    EXPECT_TRUE(unseen.window().isVisible()) << "no screen yet: who asks for a picture sees it";
    settle();
    const Window& window = component->window();
    EXPECT_TRUE(window.isVisible());
    component->setVisible(false);
    EXPECT_FALSE(window.isVisible());
    component->setVisible(true);
    EXPECT_TRUE(window.isVisible());
    desktop->removeChildComponent(component.get());
    EXPECT_FALSE(window.isVisible());
    desktop->addAndMakeVisible(*component);
    EXPECT_TRUE(window.isVisible());
}

// The period of the next tick of all display links, in seconds.
double linkPeriod() {
    std::atomic<double> seconds = 0;
    const auto link = DisplayLink::create();
    link->setOutputCallback(
        [](const std::shared_ptr<DisplayLink>&, const DisplayTimeStamp& stamp, void* found) {
            *static_cast<std::atomic<double>*>(found) =
                static_cast<double>(stamp.videoRefreshPeriod) / stamp.videoTimeScale;
            return 0;
        },
        &seconds);
    link->start();
    while (seconds == 0)
        std::this_thread::yield();
    link->stop();
    return seconds;
}

TEST_F(WindowComponentTest, DisplayThatDoesNotSayItsRateIsOneOfSixtyAlsoWhileItsWindowRests) {
    DisplayRate another;
    another.setHertz(24);
    const FakeDisplay display;
    settle();
    EXPECT_NEAR(linkPeriod(), 1.0 / 60, 1e-6);
    for (int i = 0; i < 20; ++i) {
        time.advance(0.3);
        peer().vBlank();
    }
    EXPECT_NEAR(linkPeriod(), 1.0 / 60, 1e-6);
}

// Of these nobody tells: a look now and then finds out.
TEST_F(WindowComponentTest, ItsWindowIsHiddenByAMinimisedOrHiddenWindowAround) {
    settle();
    const Window& window = component->window();
    for (const auto& hide : {std::function<void(bool)>([&](bool hidden) { peer().minimised = hidden; }),
                             std::function<void(bool)>([&](bool hidden) { desktop->setVisible(!hidden); })}) {
        hide(true);
        time.advance(0.3);
        peer().vBlank();
        EXPECT_FALSE(window.isVisible());
        hide(false);
        time.advance(0.3);
        peer().vBlank();
        EXPECT_TRUE(window.isVisible());
    }
}

TEST_F(WindowComponentTest, ChangeRepaintsExactlyWhatItDamaged) {
    settle();
    square->setBackgroundColor(blue);
    peer().vBlank();
    EXPECT_THAT(peer().repaints, ElementsAre(Box(20, 30, 10, 10)));
    square->setPosition({26, 35}); // by one
    peer().vBlank();
    ASSERT_EQ(peer().repaints.size(), 2u);
    EXPECT_EQ(peer().repaints[1], Box(20, 30, 11, 10));
}

TEST_F(WindowComponentTest, IdleWindowRepaintsNothing) {
    settle();
    for (int i = 0; i < 10; ++i) {
        time.advance(1.0 / 60);
        peer().vBlank();
        runPostedMessages();
    }
    EXPECT_THAT(peer().repaints, IsEmpty());
    EXPECT_EQ(peer().flushes, 0);
}

TEST_F(WindowComponentTest, ChangeIsShownAsSoonAsTheEventsAtHandAreDealtWith) {
    settle();
    square->setBackgroundColor(blue);
    EXPECT_THAT(peer().repaints, IsEmpty()); // not in place
    runPostedMessages();
    EXPECT_THAT(peer().repaints, ElementsAre(Box(20, 30, 10, 10)));
    EXPECT_EQ(peer().flushes, 1);
}

TEST_F(WindowComponentTest, BurstOfChangesIsOneFrame) {
    settle();
    for (int i = 0; i < 5; ++i)
        square->setBackgroundColor({0, 0, 0.1f * static_cast<float>(i), 1});
    runPostedMessages();
    EXPECT_EQ(peer().repaints.size(), 1u);
    square->setBackgroundColor(blue); // at once again: waits for the display
    runPostedMessages();
    EXPECT_EQ(peer().repaints.size(), 1u);
    peer().vBlank();
    EXPECT_EQ(peer().repaints.size(), 2u);
}

TEST_F(WindowComponentTest, AnimationGetsAFrameWithEachRefreshUntilItsEnd) {
    settle();
    {
        const auto gliding = Transaction::animated(0.1);
        square->setPosition({75, 35});
    }
    int frames = 0;
    for (int i = 0; i < 30; ++i) {
        time.advance(1.0 / 60);
        peer().repaints.clear();
        peer().vBlank();
        frames += peer().repaints.empty() ? 0 : 1;
    }
    EXPECT_GE(frames, 5);
    EXPECT_LE(frames, 9);
    EXPECT_EQ(square->presentation().position.x, 75);
}

// Each picture of it takes a tenth of a second.
class SlowLayer final : public GLLayer {
public:
    explicit SlowLayer(VirtualTime& time) : time_(time) {}

protected:
    void draw(DrawingSurface& surface) const override {
        surface.drawLineStrip(std::vector<Vertex>{{0, 0}, {10, 10}}, {}, red);
        time_.advance(0.1);
    }

private:
    VirtualTime& time_;
};

TEST_F(WindowComponentTest, AfterALongFrameItRestsSoThatInputIsSeen) {
    const auto slow = std::make_shared<SlowLayer>(time);
    slow->setFrame({50, 10, 10, 10});
    component->window().contentView()->layer()->addSublayer(slow);
    settle();
    const auto drawsAfter = [&](double seconds) {
        peer().repaints.clear();
        time.advance(seconds);
        slow->setNeedsDisplay();
        runPostedMessages();
        peer().vBlank();
        return !peer().repaints.empty();
    };
    EXPECT_TRUE(drawsAfter(0));
    EXPECT_FALSE(drawsAfter(0.03)) << "it drew for a tenth of a second";
    EXPECT_FALSE(drawsAfter(0.01));
    EXPECT_TRUE(drawsAfter(0.02));
    slow->setHidden(true);
    time.advance(0.06);
    peer().vBlank();
    for (int i = 0; i < 3; ++i) {
        square->setBackgroundColor(i % 2 == 0 ? blue : red);
        EXPECT_TRUE(drawsAfter(1.0 / 60)) << "quick frames come with each refresh";
    }
}

TEST_F(WindowComponentTest, HiddenWindowDrawsNothingUntilItIsShown) {
    settle();
    const auto lookAround = [this] { // several times a second
        time.advance(0.25);
        peer().vBlank();
    };
    peer().minimised = true;
    lookAround();
    square->setBackgroundColor(blue);
    peer().vBlank();
    runPostedMessages();
    EXPECT_THAT(peer().repaints, IsEmpty());
    peer().minimised = false;
    lookAround();
    EXPECT_EQ(peer().repaints.size(), 1u);
}

TEST_F(WindowComponentTest, AnimatedDrawingIsShownWithoutTheWindowsRefresh) {
    settle();
    for (int i = 0; i < 20; ++i) { // a display link's frames, each with a change
        time.advance(1.0 / 60);
        square->setBackgroundColor(i % 2 == 0 ? blue : red);
        runPostedMessages();
    }
    EXPECT_EQ(peer().repaints.size(), 20u);
    EXPECT_EQ(peer().flushes, 20);
}

TEST_F(WindowComponentTest, ChangeThatComesTooSoonIsShownWithoutTheWindowsRefresh) {
    settle();
    square->setBackgroundColor(blue);
    runPostedMessages();
    time.advance(0.004);
    square->setBackgroundColor(red);
    runPostedMessages();
    EXPECT_EQ(peer().flushes, 1) << "quicker than any display";
    time.advance(0.008);
    EXPECT_EQ(peer().flushes, 2);
}

class WindowComponentScaleTest : public WindowComponentTest, public ::testing::WithParamInterface<double> {};

TEST_P(WindowComponentScaleTest, DrawsSharplyAtThePeersScale) {
    peer().scale = GetParam();
    const Image picture = fromToolkit(peer().paintAll());
    EXPECT_EQ(component->window().backingScaleFactor(), GetParam());
    EXPECT_EQ(square->contentsScale(), GetParam());
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
    square->setBackgroundColor(blue);
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
    component->window().setContentView(std::make_unique<View>(Rect{0, 0, 100, 80})).layer()->setBackgroundColor(blue);
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
    square->setBackgroundColor(blue);
    runPostedMessages();
    EXPECT_THAT(peer().repaints, ElementsAre(Box(20, 30, 10, 10)));
}

TEST_F(WindowComponentTest, MayBeDestroyedWithAFramePending) {
    settle();
    square->setBackgroundColor(blue);
    desktop.reset();
    component.reset();
    runPostedMessages();
    square->setBackgroundColor(red); // nobody listens any more
}

TEST_F(WindowComponentTest, MayBeMovedToAnotherDesktopWindow) {
    settle();
    desktop.reset();
    square->setBackgroundColor(blue);
    runPostedMessages();
    desktop = std::make_unique<FakeDesktopWindow>(*component);
    peer().vBlank();
    EXPECT_FALSE(peer().repaints.empty());
    EXPECT_TRUE(isNear(pixelAt(fromToolkit(peer().paintAll()), 25, 35), blue, 1));
}

} // namespace
} // namespace QVM_NAMESPACE
