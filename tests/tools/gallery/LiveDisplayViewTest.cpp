#include "tools/gallery/LiveDisplayView.h"

#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"
#include "tools/gallery/Displays.h"
#include "tools/gallery/TestSignal.h"
#include "viz/displays/LiveDisplays.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

constexpr double kRate = 48000;

// Counts what it is told, and has a new picture when asked to.
class CountingDisplay final : public LiveDisplay {
public:
    struct Counts {
        int inits = 0, frames = 0, drawings = 0;
        unsigned heard = 0, longestBlock = 0;
        double seconds = 0;
        PBGLCanvas canvas;
        Redraw answer = Redraw::yes;
    };
    explicit CountingDisplay(Counts& counts) : counts_(counts) {}
    void init(PBGLCanvas canvas, float, unsigned) override {
        ++counts_.inits;
        counts_.canvas = canvas;
    }
    void processAudio(const QVMAudioBuffer<float>&, unsigned nFrames) override {
        counts_.heard += nFrames;
        counts_.longestBlock = std::max(counts_.longestBlock, nFrames);
    }
    Redraw prepareForDrawing(float dt) override {
        ++counts_.frames;
        counts_.seconds += static_cast<double>(dt);
        return counts_.answer;
    }
    void draw(DrawingSurface&) override { ++counts_.drawings; }

private:
    Counts& counts_;
};

class LiveDisplayViewTest : public testing::Test {
protected:
    ~LiveDisplayViewTest() override { window.takeContentView(); }

    LiveDisplayView& show() {
        View& content = window.setContentView(std::make_unique<View>(Rect{0, 0, 200, 200}));
        return content.addSubview(
            std::make_unique<LiveDisplayView>(Rect{10, 10, 120, 80}, feed, std::make_unique<CountingDisplay>(counts)));
    }
    // Display frames, and whoever looks at the view after each.
    void frames(int count, const LiveDisplayView& view) {
        for (int i = 0; i < count; ++i) {
            time.advance(1.0 / 60);
            ticks.tick(time.now());
            time.settle();
            if (!view.isHidden()) view.picture().contents();
        }
    }

    VirtualTime time{1};
    ManualTickSource ticks;
    CountingDisplay::Counts counts;
    StereoFeed feed{*testSignal("sine", kRate), "sine"};
    Window window;
};

TEST_F(LiveDisplayViewTest, HearsTheFeedInBlocksAndDrawsEachFrame) {
    const LiveDisplayView& view = show();
    frames(60, view);
    EXPECT_EQ(counts.inits, 1);
    EXPECT_NEAR(counts.heard, kRate, kRate / 30);
    EXPECT_LE(counts.longestBlock, 512u);
    EXPECT_EQ(counts.frames, 60);
    EXPECT_NEAR(counts.seconds, 1, 1e-3);
    EXPECT_GE(counts.drawings, 59);
    EXPECT_EQ(counts.canvas.width, 120);
    EXPECT_EQ(counts.canvas.height, 80);
}

TEST_F(LiveDisplayViewTest, APictureThatStaysIsNotDrawnAgain) {
    const LiveDisplayView& view = show();
    frames(2, view);
    counts.answer = Redraw::no;
    frames(1, view);
    const int drawings = counts.drawings;
    frames(30, view);
    EXPECT_EQ(counts.drawings, drawings);
}

TEST_F(LiveDisplayViewTest, HiddenItPreparesNothingUntilItIsShownAgain) {
    LiveDisplayView& view = show();
    frames(2, view);
    const int before = counts.frames, drawings = counts.drawings;
    view.superview()->setHidden(true);
    time.advance(1.0 / 60);
    ticks.tick(time.now());
    time.settle();
    view.superview()->setHidden(false);
    view.setHidden(true);
    frames(10, view);
    EXPECT_EQ(counts.frames, before);
    EXPECT_EQ(counts.drawings, drawings);
    view.setHidden(false);
    frames(2, view);
    EXPECT_EQ(counts.frames, before + 2);
}

TEST_F(LiveDisplayViewTest, OutsideAWindowNothingTicksAndNothingIsHeard) {
    LiveDisplayView& view = show();
    EXPECT_TRUE(view.isRunning());
    EXPECT_TRUE(ticks.isStarted());
    frames(2, view);
    std::unique_ptr<View> taken = view.removeFromSuperview();
    const unsigned heard = counts.heard;
    EXPECT_FALSE(view.isRunning());
    EXPECT_FALSE(ticks.isStarted());
    frames(10, view);
    EXPECT_EQ(counts.heard, heard);
    window.contentView()->addSubview(std::move(taken));
    EXPECT_TRUE(view.isRunning());
}

TEST_F(LiveDisplayViewTest, IsSetUpAnewForAnotherSizeOrScaleAndForNothingElse) {
    LiveDisplayView& view = show();
    view.setFrame({30, 20, 120, 80});
    window.setBackingScaleFactor(1);
    EXPECT_EQ(counts.inits, 1);
    window.setBackingScaleFactor(2);
    EXPECT_EQ(counts.inits, 2);
    EXPECT_EQ(counts.canvas.scale, 2);
    view.setFrame({30, 20, 60, 80});
    EXPECT_EQ(counts.inits, 3);
    EXPECT_EQ(counts.canvas.width, 60);
    EXPECT_EQ(view.picture().bounds().width, 60);
}

TEST_F(LiveDisplayViewTest, AStalledProgramDoesNotCatchUp) {
    const LiveDisplayView& view = show();
    frames(1, view);
    counts.seconds = 0;
    time.advance(30);
    ticks.tick(time.now());
    time.settle();
    EXPECT_NEAR(counts.seconds, 0.25, 1e-6);
}

// How much of a display's picture is drawn, after half a second of a signal.
class RealDisplayTest : public LiveDisplayViewTest, public testing::WithParamInterface<LiveDisplayEntry> {
protected:
    std::vector<std::uint32_t> pictureOf(const AudioClip& clip) {
        StereoFeed played(clip, "clip");
        View& content = window.setContentView(std::make_unique<View>(Rect{0, 0, 200, 200}));
        auto& view =
            content.addSubview(std::make_unique<LiveDisplayView>(Rect{0, 0, 160, 100}, played, GetParam().make()));
        frames(30, view);
        std::vector<std::uint32_t> pixels = view.picture().contents()->pixels;
        window.takeContentView();
        return pixels;
    }
};

TEST_P(RealDisplayTest, ShowsASignalAndIsTheSameForTheSameOne) {
    const AudioClip noise = *testSignal("noise", kRate);
    const AudioClip silence{kRate, {std::vector<float>(4800), std::vector<float>(4800)}};
    const auto shown = pictureOf(noise);
    EXPECT_EQ(shown, pictureOf(noise));
    EXPECT_NE(shown, pictureOf(silence));
}

INSTANTIATE_TEST_SUITE_P(All, RealDisplayTest,
                         testing::ValuesIn(std::vector<LiveDisplayEntry>(LiveDisplays.begin(), LiveDisplays.end())),
                         [](const auto& each) {
                             std::string name = each.param.name;
                             std::erase(name, '-');
                             return name;
                         });

TEST(GalleryDisplays, ShowEveryLiveDisplayAndTheSignalItself) {
    EXPECT_EQ(galleryDisplays().size(), LiveDisplays.size() + 1);
}

} // namespace
} // namespace QVM_NAMESPACE
