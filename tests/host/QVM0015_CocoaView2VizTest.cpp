// The view on the real unit and on screen: what the unit does is seen in the editor.
#include "host/HostViewFixture.h"

#include "controls/QVMVerticalSlider.h"
#include "description/Description.h"
#include "description/Presets.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/surface/QVMPresetBar.h"
#include "unit/QVM0015_AudioUnit.h"
#include "viz/sketches/QVM0015GLSketch.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <utility>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace QVM_NAMESPACE {
namespace {

// An editor in a window of its own.
class OpenEditor {
public:
    explicit OpenEditor(AudioUnit unit)
        : view_(window_.setContentView(QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(unit, {}))) {}
    QVM0015_CocoaView2& view() { return view_; }
    QVMGenericUI& ui() { return view_.ui(); }
    QVM0015GLSketch& object() { return static_cast<QVM0015GLSketch&>(*ui().sketch()->getVizRef()); }
    QVMVerticalSlider& slider(std::uint32_t pid) {
        return dynamic_cast<QVMVerticalSlider&>(*ui().parameterControlWithPid(pid)->primaryControl());
    }

private:
    Window window_;
    QVM0015_CocoaView2& view_;
};

class OnScreen : public HostView {
protected:
    OnScreen() { settle(); }
    // Until the pictures are there and at rest.
    void settle() {
        time.advance(1);
        for (int i = 0; i < 12; ++i)
            frame();
    }
    void showFrames(int count) {
        for (int i = 0; i < count; ++i) {
            time.advance(1.0 / 60);
            frame();
        }
    }
    // Display frames with a block before each.
    void playFrames(int count, float leftSample, float rightSample) {
        for (int i = 0; i < count; ++i) {
            std::vector<float> first(512, leftSample), second(512, rightSample);
            float* channels[] = {first.data(), second.data()};
            real.process(channels, channels, 512);
            showFrames(1);
        }
    }
    const QVMLevelMeter::Channel& left() { return editor->object().levelMeter()->channel(0); }
    SharedState* unitsVizRef() {
        SharedState* vizRef = nullptr;
        std::uint32_t size = sizeof(void*);
        EXPECT_EQ(AudioUnitGetProperty(&real, 64011, 0, 0, &vizRef, &size), noErr);
        return vizRef;
    }
    void automate(std::uint32_t pid, float hostValue) {
        EXPECT_EQ(AudioUnitSetParameter(&real, pid, 0, 0, hostValue, 0), noErr);
    }
    QVMGenericUI& ui() { return editor->ui(); }

    QVM0015_AudioUnit real;
    std::unique_ptr<OpenEditor> editor = std::make_unique<OpenEditor>(&real);
};

TEST_F(OnScreen, TheUnitHasWhatTheEditorsDrawingObjectShares) {
    EXPECT_EQ(unitsVizRef(), &editor->object().sharedState);
    EXPECT_EQ(editor->object().sampleRate, 44100);
    EXPECT_TRUE(logged.empty());
}

TEST_F(OnScreen, AutomationMovesHandleAndCurveWithNoAudio) {
    const double before = editor->slider(1).handleValue();
    automate(1, 9);
    frame();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(1), 9);
    EXPECT_GT(editor->slider(1).handleValue(), before);
    EXPECT_GT(editor->object().parameterStates()[1].displayValue, 0);
    for (int i = 0; i < 7; ++i)
        frame();
    EXPECT_EQ(editor->object().parameterStates()[1].displayValue, 9);
}

TEST_F(OnScreen, TheEditorsOwnChangeMovesTheCurve) {
    ui().notifyParameterUpdatedTo(2, 489.9F);
    for (int i = 0; i < 8; ++i)
        frame();
    EXPECT_EQ(editor->object().parameterStates()[2].displayValue, 489.9F);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(2), 489.9F);
}

TEST_F(OnScreen, TheMeterMovesWithRealAudio) {
    playFrames(60, 0.5F, 0.25F);
    EXPECT_NEAR(left().display, -6.02F, 0.1F);
    EXPECT_NEAR(editor->object().levelMeter()->channel(1).display, -12.04F, 0.1F);
}

// Bypassed, stopped or without resources: the unit is not called, and nobody tells it so.
TEST_F(OnScreen, TheMeterFallsWhenTheHostCallsTheUnitNoMore) {
    playFrames(60, 1, 1);
    ASSERT_GT(left().clip, 0.9F);
    showFrames(12);
    EXPECT_NEAR(left().display, 0, 0.1F) << "a host may be late";
    showFrames(120);
    EXPECT_NEAR(left().display, -96, 0.1F);
    EXPECT_NEAR(left().fill, 0, 1e-3F);
    EXPECT_LT(left().clip, 0.2F);
    playFrames(60, 0.5F, 0.25F);
    EXPECT_NEAR(left().display, -6.02F, 0.1F);
}

// What the meter's button and the menus' "Reset meter" do.
TEST_F(OnScreen, ResettingTheMeterClearsWhatIsSeen) {
    playFrames(60, 1, 1);
    ASSERT_GT(left().clip, 0.9F);
    ASSERT_GT(left().fill, 0.5F);
    ui().meterTapped();
    showFrames(1);
    EXPECT_EQ(left().clip, 0);
    EXPECT_NEAR(left().fill, 0, 1e-3F);
    showFrames(30);
    EXPECT_NEAR(left().fill, 0, 1e-3F) << "nothing of it comes back";
    playFrames(60, 0.5F, 0.25F);
    EXPECT_NEAR(left().display, -6.02F, 0.1F);
}

TEST_F(OnScreen, ChoosingAnyPresetLeavesTheSettingsEqualToIt) {
    for (std::uint32_t index = 0; index < GetPresets()->stringValues.size(); ++index) {
        const auto preset = PresetIndexToPresetValues(index);
        ASSERT_TRUE(preset);
        editor->view().requestPresetNamed(GetPresets()->stringValues[index]);
        frame();
        frame();
        std::size_t next = 0;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            if (GetParameter(pid)->presetWildcard) continue;
            const float value = (*preset)[next++];
            if (value != value) continue; // an entry that is no number changes nothing
            EXPECT_EQ(ui().getMemoizedPValueDirectly(pid), value) << index << ", " << pid;
        }
    }
}

// They start below their range, where the binding may not go. What the unit holds wins, or an untouched editor would
// have changed settings.
TEST_F(OnScreen, TheRangeLinksAreTheUnitsAndLeaveThePresetsNameClean) {
    editor = std::make_unique<OpenEditor>(&real);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(4), 10);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(11), 4);
    for (int i = 0; i < 120; ++i) {
        time.advance(1.0 / 60);
        frame();
        ASSERT_FALSE(ui().presetBar()->dirty()) << i;
    }
    const auto expectClean = [this](const char* when) {
        time.advance(1);
        frame();
        for (const std::uint32_t pid : {4U, 5U, 11U, 12U}) {
            EXPECT_EQ(ui().getMemoizedPValueDirectly(pid), 0) << when;
            EXPECT_EQ(editor->view().valueForParameterID(pid), 0) << when;
        }
        EXPECT_FALSE(ui().presetBar()->dirty()) << when;
    };
    expectClean("opened");
    EXPECT_FALSE(ui().keyboard().undoRedoStack().canUndo());
    ui().presetBar()->ab().tap();
    expectClean("at B");
    QVM0015_AudioUnit other;
    ASSERT_EQ(real.restoreState(other.saveState()), UnitStateResult::ok);
    editor->view().adoptRestoredState();
    expectClean("restored");
    ui().presetBar()->ab().tap();
    expectClean("at B again");
}

TEST_F(OnScreen, OneDragOfAFrequencyMakesOneUndoStep) {
    const auto& stack = ui().keyboard().undoRedoStack().stack();
    const std::size_t before = stack.size();
    QVMFloatControl& low = editor->slider(2);
    for (int i = 0; i < 40; ++i) {
        low.setFloatValue(100 + 7.3F * static_cast<float>(i));
        low.reportInterfaceInitiatedValueChange();
        frame();
        time.advance(1.0 / 60);
    }
    for (int i = 0; i < 120; ++i) {
        frame();
        time.advance(1.0 / 60);
    }
    EXPECT_EQ(stack.size(), before + 1);
}

TEST_F(OnScreen, ClosingTakesTheObjectFromTheUnit) {
    editor.reset();
    EXPECT_EQ(unitsVizRef(), nullptr);
    EXPECT_FALSE(ticks.isStarted());
    automate(1, 3);
    std::vector<float> silence(64);
    float* channels[] = {silence.data(), silence.data()};
    real.process(channels, channels, 64);
}

TEST_F(OnScreen, TheNextEditorShowsWhatHappenedMeanwhile) {
    editor.reset();
    automate(1, 3);
    editor = std::make_unique<OpenEditor>(&real);
    EXPECT_EQ(ui().getMemoizedPValueDirectly(1), 3);
    settle();
    EXPECT_EQ(editor->object().parameterStates()[1].displayValue, 3);
    automate(1, 4);
    frame();
    EXPECT_EQ(ui().getMemoizedPValueDirectly(1), 4);
}

TEST_F(OnScreen, AnEditorThatClosesBeforeItsSketchCameLeavesNothing) {
    editor = std::make_unique<OpenEditor>(&real);
    time.advance(0.3);
    editor.reset();
    time.advance(2);
    EXPECT_EQ(unitsVizRef(), nullptr);
    EXPECT_EQ(RunLoop::main().nextDue(), std::nullopt);
}

// Each takes the unit from the other with every frame. Whichever goes first, and whichever the unit has then, nothing
// of the unit's goes to what is no more, and the one that is left is followed again.
TEST_F(OnScreen, TwoEditorsOnOneUnitCloseInAnyOrder) {
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
            automate(1, 6);
            showFrames(10);
            EXPECT_EQ(left.ui().getMemoizedPValueDirectly(1), 6);
            EXPECT_NEAR(left.object().levelMeter()->channel(0).display, -6.02F, 0.1F);
            EXPECT_EQ(shares[firstGoesFirst ? 0 : 1]->refCount, 0U) << "no layer of the closed one is left";
            automate(1, 0);
            other.reset();
            editor.reset();
            EXPECT_EQ(unitsVizRef(), nullptr);
            playFrames(1, 0.5F, 0.5F);
        }
    }
}

TEST_F(OnScreen, TwentyEditorsOpenAndCloseInAnyOrder) {
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
        EXPECT_EQ(open[i]->ui().getMemoizedPValueDirectly(1), 5);
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
TEST_F(OnScreen, ADrawingObjectThatNobodyReleasesIsNoticed) {
    const std::uintptr_t hidden = loseObject(editor);
    EXPECT_EQ(__lsan_do_recoverable_leak_check(), 1);
    delete reinterpret_cast<VizRef*>(~hidden);
}
#endif

} // namespace
} // namespace QVM_NAMESPACE
