// Editors on one unit that open and close: who has the shared state then, and that nothing of it is left.
#include "host/OnScreenFixture.h"

#include <algorithm>
#include <random>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace QVM_NAMESPACE {
namespace {

using QVM0015_CocoaView2Closing = OnScreenFixture;

TEST_F(QVM0015_CocoaView2Closing, ClosingTakesTheObjectFromTheUnit) {
    editor.reset();
    EXPECT_EQ(unitsVizRef(), nullptr);
    EXPECT_FALSE(ticks.isStarted());
    automate(pidTiltGain, 3);
    std::vector<float> silence(64);
    float* channels[] = {silence.data(), silence.data()};
    real.process(channels, channels, 64);
}

TEST_F(QVM0015_CocoaView2Closing, TheNextEditorShowsWhatHappenedMeanwhile) {
    editor.reset();
    automate(pidTiltGain, 3);
    editor = std::make_unique<OpenEditor>(&real);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltGain), 3);
    settle();
    EXPECT_EQ(editor->object().parameterStates()[pidTiltGain].displayValue, 3);
    automate(pidTiltGain, 4);
    frame();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(pidTiltGain), 4);
}

TEST_F(QVM0015_CocoaView2Closing, AnEditorThatClosesBeforeItsSketchCameLeavesNothing) {
    editor = std::make_unique<OpenEditor>(&real);
    time.advance(0.3);
    editor.reset();
    time.advance(2);
    EXPECT_EQ(unitsVizRef(), nullptr);
    EXPECT_EQ(RunLoop::main().nextDue(), std::nullopt);
}

// Each takes the unit from the other with every frame. Whichever goes first, and whichever the unit has then, nothing
// of the unit's goes to what is no more, and the one that is left is followed again.
TEST_F(QVM0015_CocoaView2Closing, TwoEditorsOnOneUnitCloseInAnyOrder) {
    for (const bool firstGoesFirst : {true, false}) {
        for (int meeting = 0; meeting < 3; ++meeting) {
            editor = std::make_unique<OpenEditor>(&real);
            settle();
            auto other = std::make_unique<OpenEditor>(&real);
            settle();
            for (int i = 0; i < meeting; ++i)
                playFrames(1, 0.5F, 0.5F);
            const VizRef shares[] = {editor->ui().sketch()->getVizRef(), other->ui().sketch()->getVizRef()};
            EXPECT_TRUE(unitsVizRef() == &shares[0]->sharedState || unitsVizRef() == &shares[1]->sharedState);
            (firstGoesFirst ? editor : other).reset();
            EXPECT_EQ(unitsVizRef(), nullptr) << "whoever closes has the unit let go";
            playFrames(30, 0.5F, 0.5F);
            OpenEditor& left = firstGoesFirst ? *other : *editor;
            EXPECT_EQ(unitsVizRef(), &left.object().sharedState);
            automate(pidTiltGain, 6);
            showFrames(10);
            EXPECT_EQ(left.ui().getMemoizedPValueDirectly(pidTiltGain), 6);
            EXPECT_NEAR(left.object().levelMeter()->channel(0).display, -6.02F, 0.1F);
            EXPECT_EQ(shares[firstGoesFirst ? 0 : 1]->refCount, 0U) << "no layer of the closed one is left";
            automate(pidTiltGain, 0);
            other.reset();
            editor.reset();
            EXPECT_EQ(unitsVizRef(), nullptr);
            playFrames(1, 0.5F, 0.5F);
        }
    }
}

TEST_F(QVM0015_CocoaView2Closing, TwentyEditorsOpenAndCloseInAnyOrder) {
    editor.reset();
    std::mt19937 random(20);
    std::vector<std::unique_ptr<QVM0015_AudioUnit>> units;
    std::vector<std::unique_ptr<OpenEditor>> open;
    for (int i = 0; i < 20; ++i) {
        units.push_back(std::make_unique<QVM0015_AudioUnit>());
        open.push_back(std::make_unique<OpenEditor>(units.back().get()));
        time.advance(0.1);
        frame();
    }
    settle();
    std::vector<std::size_t> order(open.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::shuffle(order.begin(), order.end(), random);
    for (const std::size_t i : order) {
        AudioUnitSetParameter(units[i].get(), 1, 0, 0, 5, 0);
        frame();
        EXPECT_EQ(open[i]->ui().getMemoizedPValueDirectly(pidTiltGain), 5);
        open[i].reset();
        AudioUnitSetParameter(units[i].get(), 1, 0, 0, 6, 0);
    }
    EXPECT_FALSE(ticks.isStarted());
    EXPECT_TRUE(logged.empty());
}

#ifdef __SANITIZE_ADDRESS__
// Closes the editor while somebody still has a share of its object. What is returned does not look like a pointer,
// and nothing in the caller's stack does.
[[gnu::noinline]] std::uintptr_t loseObject(std::unique_ptr<OpenEditor>& editor) {
    auto* const lost = new VizRef(editor->ui().sketch()->getVizRef());
    editor.reset();
    return ~reinterpret_cast<std::uintptr_t>(lost);
}

// So that the silence of the leak check after the test above means something.
TEST_F(QVM0015_CocoaView2Closing, ADrawingObjectThatNobodyReleasesIsNoticed) {
    const std::uintptr_t hidden = loseObject(editor);
    EXPECT_EQ(__lsan_do_recoverable_leak_check(), 1);
    delete reinterpret_cast<VizRef*>(~hidden);
}
#endif

} // namespace
} // namespace QVM_NAMESPACE
