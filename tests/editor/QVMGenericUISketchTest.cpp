#include "EditorFixture.h"

#include "controls/QVMVerticalSlider.h"
#include "description/Presets.h"
#include "editor/EditorLayout.h"
#include "editor/QVMClumpsView.h"
#include "editor/QVMPowerBox.h"
#include "editor/QVMPresetBar.h"
#include "platform/LayerRenderer.h"
#include "theme/Colors.h"
#include "viz/QVM0015GLSketch.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class NoPixels final : public RasterBackend {
public:
    std::shared_ptr<Raster> rasterise(const Layer&, const PresentedLayer&, const Rect&, double) override {
        return std::make_shared<Raster>();
    }
};

class QVMGenericUISketch : public EditorFixture {
protected:
    QVMParameterSketch& sketch() { return *ui_->sketch(); }
    QVMAuxiliarySketch& meter() { return *sketch().auxiliarySketches().front(); }
    QVM0015GLSketch& object() { return static_cast<QVM0015GLSketch&>(*sketch().getVizRef()); }
    QVMVerticalSlider& gainSlider() { return dynamic_cast<QVMVerticalSlider&>(*control(7).primaryControl()); }
    // An editor as it is right after its setup.
    void openAnew() {
        delegate_.vizRef = nullptr;
        auto ui = std::make_unique<QVMGenericUI>(Rect{0, 0, 480, 320}, QVMConfig::inlinedConfig(), 2, 2);
        ui->completeInterfaceSetup();
        ui->setDelegate(&delegate_);
        ui_ = &window_.setContentView(std::move(ui));
        delegate_.calls.clear();
    }
};

TEST_F(QVMGenericUISketch, ComesHalfASecondAfterTheSetupAndAppearsInOneMore) {
    openAnew();
    time_.advance(0.49);
    EXPECT_EQ(ui_->sketch(), nullptr);
    time_.advance(0.02);
    ASSERT_NE(ui_->sketch(), nullptr);
    EXPECT_LT(sketch().layer()->presentation().opacity, 0.1);
    time_.advance(0.5);
    EXPECT_NEAR(sketch().layer()->presentation().opacity, 0.5, 0.1);
    time_.advance(0.51);
    EXPECT_EQ(sketch().layer()->presentation().opacity, 1);
    EXPECT_TRUE(sketch().glSketch()->shouldRender());
}

TEST_F(QVMGenericUISketch, AnEditorThatGoesBeforeHasNone) {
    openAnew();
    time_.advance(0.3);
    window_.takeContentView().reset();
    ui_ = nullptr;
    time_.advance(2);
    EXPECT_FALSE(ticks_.isStarted());
}

TEST_F(QVMGenericUISketch, StandsInItsPlaceInThePowerBox) {
    const PBRect& outer = PB_Sketches[0].outer;
    EXPECT_EQ(sketch().superview(), ui_->powerBox());
    EXPECT_EQ(sketch().frame(), (Rect{outer.x, outer.y, outer.w, outer.h}));
    EXPECT_EQ(sketch().frame(), (Rect{4, 196, 54, 62}));
}

TEST_F(QVMGenericUISketch, TheMeterStandsOverTheGainSliderWhereItsSketchSays) {
    ASSERT_EQ(sketch().auxiliarySketches().size(), 1u);
    EXPECT_EQ(meter().glSketch()->sketch(), PB_Sketches[1]);
    EXPECT_EQ(object().refCount, 2u);
    ASSERT_NE(object().levelMeter(), nullptr);
    const PBRect& outer = PB_Sketches[1].outer;
    const Rect inClumps = meter().convertToWindow(meter().bounds()).offsetBy(0, -ui_->clumpsView()->frame().y);
    EXPECT_EQ(inClumps, (Rect{outer.x, outer.y, outer.w, outer.h}));
}

TEST_F(QVMGenericUISketch, TheMetersBarsLieInsideTheTrack) {
    const PBRect& track = PB_Parameters[7].track;
    const Rect groove = gainSlider().trackRect();
    EXPECT_GT(track.x - track.w / 2, groove.minX());
    EXPECT_LT(track.x + track.w * 1.5, groove.maxX());
    // A full bar ends at the middle of a handle at the top.
    gainSlider().setFloatValue(12);
    EXPECT_EQ(track.y + track.h, gainSlider().handleValue());
}

TEST_F(QVMGenericUISketch, TheMeterIsBelowTheHandleAndAboveTheGroove) {
    const auto& layers = gainSlider().layer()->sublayers();
    const auto indexOf = [&](const Layer* layer) {
        while (layer && layer->superlayer() != gainSlider().layer().get())
            layer = layer->superlayer();
        const auto found = std::find_if(layers.begin(), layers.end(), [&](const auto& l) { return l.get() == layer; });
        return found - layers.begin();
    };
    EXPECT_GT(indexOf(meter().layer().get()), indexOf(gainSlider().background().get()));
    EXPECT_LT(indexOf(meter().layer().get()), indexOf(gainSlider().readoutBulb().get()));
}

TEST_F(QVMGenericUISketch, TheMetersBarsStandOutInBothThemes) {
    const auto contrasts = [&] {
        const Color groove = QVMUITheme::theme().palette.trackFill;
        const QVMLevelMeter& levels = *object().levelMeter();
        return std::array{contrastRatio(composite(levels.barColour(0), groove), groove),
                          contrastRatio(composite(levels.barColour(1), groove), groove)};
    };
    EXPECT_EQ(object().levelMeter()->barColour(1), Color::white(0, 0.5f));
    const auto light = contrasts();
    QVMUITheme::toggleThemeForWindow(&window_);
    EXPECT_EQ(object().levelMeter()->barColour(1), Color::white(1, 0.5f));
    const auto dark = contrasts();
    for (const auto& [first, second] : {light, dark}) {
        EXPECT_GT(first, 1.7);
        EXPECT_GT(second, 3);
    }
}

TEST_F(QVMGenericUISketch, TheMeterTakesNoClicksFromTheSlider) {
    EXPECT_EQ(window_.hitTest(middleOf(gainSlider())), &gainSlider());
}

TEST_F(QVMGenericUISketch, ALevelDamagesTheTrackOnly) {
    NoPixels pixels;
    LayerRenderer renderer{pixels};
    time_.advance(1);
    frame();
    renderer.setRootLayer(ui_->layer());
    renderer.update(time_.now());
    object().levelMeter()->channel(0).level = -6;
    time_.advance(1.0 / 60);
    frame();
    const RenderStatistics& statistics = renderer.update(time_.now());
    EXPECT_THAT(statistics.rasterised, ElementsAre("sketch"));
    const Rect track = gainSlider().convertToWindow(gainSlider().trackRect());
    ASSERT_FALSE(statistics.damage.empty());
    for (const Rect& damaged : statistics.damage)
        EXPECT_TRUE(track.contains(damaged));
}

TEST_F(QVMGenericUISketch, AGlideDamagesTheCurveAndTheHandleOnly) {
    NoPixels pixels;
    LayerRenderer renderer{pixels};
    time_.advance(1);
    frame();
    renderer.setRootLayer(ui_->layer());
    renderer.update(time_.now());
    hostSets(1, 6);
    const RenderStatistics& statistics = renderer.update(time_.now());
    EXPECT_THAT(statistics.rasterised, Contains("sketch"));
    const Rect gain = control(1).convertToWindow(control(1).bounds());
    const Rect curve = sketch().convertToWindow(sketch().bounds());
    for (const Rect& damaged : statistics.damage)
        EXPECT_TRUE(curve.contains(damaged) || gain.insetBy(-8, -8).contains(damaged));
}

TEST_F(QVMGenericUISketch, ADragOfTheTiltGainRedrawsItsSliderAndTheCurveAndNothingElse) {
    NoPixels pixels;
    LayerRenderer renderer{pixels};
    auto& slider = dynamic_cast<QVMVerticalSlider&>(*control(1).primaryControl());
    Point at = slider.convertToWindow(slider.readoutBulb()->position());
    window_.sendEvent(mouseEvent(EventType::mouseDown, at));
    time_.advance(1); // the focus has come
    frame();
    renderer.setRootLayer(ui_->layer());
    renderer.update(time_.now());
    const Rect gain = control(1).convertToWindow(control(1).bounds()).insetBy(-8, -8);
    const Rect curve = sketch().convertToWindow(sketch().bounds());
    int inSlider = 0, inCurve = 0;
    for (int step = 0; step < 20; ++step) {
        at.x += 4;
        window_.sendEvent(mouseEvent(EventType::mouseDragged, at));
        time_.advance(1.0 / 60);
        frame();
        for (const Rect& damaged : renderer.update(time_.now()).damage) {
            inSlider += gain.contains(damaged);
            inCurve += curve.contains(damaged);
            EXPECT_TRUE(gain.contains(damaged) || curve.contains(damaged)) << damaged.x << ", " << damaged.y;
        }
    }
    EXPECT_GE(inSlider, 15);
    EXPECT_GE(inCurve, 15);
    EXPECT_GT(memoized(1), 3);
}

TEST_F(QVMGenericUISketch, AFrameWithNothingToDoDrawsNothing) {
    NoPixels pixels;
    LayerRenderer renderer{pixels};
    time_.advance(2);
    for (int i = 0; i < 60; ++i)
        frame();
    renderer.setRootLayer(ui_->layer());
    renderer.update(time_.now());
    time_.advance(1.0 / 60);
    frame();
    const RenderStatistics& statistics = renderer.update(time_.now());
    EXPECT_THAT(statistics.rasterised, IsEmpty());
    EXPECT_THAT(statistics.damage, IsEmpty());
}

TEST_F(QVMGenericUISketch, AClickOnTheCurveHidesAllSketchesAndAnotherShowsThem) {
    click(middleOf(sketch()));
    EXPECT_FALSE(sketch().vizVisible());
    EXPECT_EQ(sketch().layer()->opacity(), 0);
    EXPECT_FALSE(meter().glSketch()->shouldRender());
    click(middleOf(sketch()));
    EXPECT_TRUE(sketch().vizVisible());
    EXPECT_TRUE(meter().glSketch()->shouldRender());
}

TEST_F(QVMGenericUISketch, FillsTheCompactFormAndComesBack) {
    ui_->requestFrame(QVMAltFrameCompact);
    EXPECT_EQ(sketch().frame(), (Rect{0, 0, 200, 200}));
    EXPECT_EQ(sketch().glSketch()->bounds().size(), (Size{200, 200}));
    EXPECT_EQ(object().responseDisplay().canvas().width, 200);
    ui_->requestFrame(0);
    EXPECT_EQ(sketch().frame(), (Rect{4, 196, 54, 62}));
    EXPECT_EQ(object().responseDisplay().canvas().width, 54);
}

TEST_F(QVMGenericUISketch, AnEditorThatOpensInTheCompactFormHasTheCurveFillIt) {
    openAnew();
    ui_->requestFrame(QVMAltFrameCompact);
    time_.advance(1);
    EXPECT_EQ(sketch().frame(), (Rect{0, 0, 200, 200}));
}

TEST_F(QVMGenericUISketch, FollowsTheWindowsScale) {
    window_.setBackingScaleFactor(2);
    EXPECT_EQ(sketch().glSketch()->contentsScale(), 2);
    EXPECT_EQ(meter().glSketch()->contentsScale(), 2);
    EXPECT_EQ(object().responseDisplay().canvas().scale, 2);
    EXPECT_EQ(object().refCount, 2u);
}

TEST_F(QVMGenericUISketch, HandsItsObjectOverBeforeItTakesAnyValue) {
    openAnew();
    delegate_.unit[1] = 6;
    time_.advance(0.6);
    const std::uint32_t count = ui_->receivedParamUpdateCount();
    frame();
    EXPECT_THAT(delegate_.calls, ElementsAre("viz"));
    EXPECT_EQ(delegate_.vizRef, &object());
    EXPECT_EQ(memoized(1), 0);
    EXPECT_EQ(ui_->receivedParamUpdateCount(), count);
    frame();
    EXPECT_EQ(memoized(1), 6);
    EXPECT_THAT(delegate_.calls, ElementsAre("viz")) << "once, and nothing is sent back";
    EXPECT_EQ(ui_->receivedParamUpdateCount(), count + 1);
}

TEST_F(QVMGenericUISketch, HandsItsObjectOverAgainWhenTheUnitLostIt) {
    delegate_.vizRef = nullptr;
    frame();
    EXPECT_THAT(delegate_.calls, ElementsAre("viz"));
}

TEST_F(QVMGenericUISketch, TheFirstGlideStartsFromWhatTheControlsShow) {
    openAnew();
    time_.advance(0.6);
    EXPECT_EQ(object().parameterStates[10].displayValue, 24000);
    EXPECT_EQ(object().interpValues[10], 24000);
}

TEST_F(QVMGenericUISketch, TheCurveGlidesToAHostsChangeInSevenFrames) {
    hostSets(1, 6);
    EXPECT_GT(object().parameterStates[1].displayValue, 0);
    EXPECT_LT(object().parameterStates[1].displayValue, 6);
    for (int i = 0; i < 6; ++i)
        frame();
    EXPECT_EQ(object().parameterStates[1].displayValue, 6);
}

TEST_F(QVMGenericUISketch, WithoutADelegateNothingIsAdopted) {
    ui_->setDelegate(nullptr);
    hostSets(1, 6);
    EXPECT_EQ(memoized(1), 0);
}

TEST_F(QVMGenericUISketch, ChoosingAnyPresetLeavesTheSettingsEqualToIt) {
    for (std::uint32_t index = 0; index < GetPresets()->stringValues.size(); ++index) {
        const auto preset = PresetIndexToPresetValues(index);
        ASSERT_TRUE(preset);
        ui_->requestPresetNamed(GetPresets()->stringValues[index]);
        frame();
        frame();
        std::size_t next = 0;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            if (GetParameter(pid)->presetWildcard) continue;
            const float value = (*preset)[next++];
            if (value != value) continue; // an entry that is no number changes nothing
            EXPECT_EQ(memoized(pid), value) << index << ", " << pid;
        }
    }
}

// The range links start below their range, where the binding may not go.
TEST_F(QVMGenericUISketch, TheDefaultPresetIsCleanAfterTheOpeningAndNothingCanBeUndone) {
    for (int i = 0; i < 120; ++i) {
        time_.advance(1.0 / 60);
        frame();
    }
    EXPECT_EQ(memoized(4), 0);
    EXPECT_EQ(memoized(12), 0);
    EXPECT_FALSE(ui_->presetBar()->dirty());
    EXPECT_FALSE(stack().canUndo());
    EXPECT_EQ(stack().currentValues()->values.at(4), 0);
    EXPECT_TRUE(delegate_.sent.empty());
}

TEST_F(QVMGenericUISketch, AnyPresetIsCleanAfterItWasChosenAndDirtyAfterAFineStep) {
    for (std::uint32_t index = 0; index < GetPresets()->stringValues.size(); ++index) {
        ui_->requestPresetNamed(GetPresets()->stringValues[index]);
        const auto wait = [&] {
            for (int i = 0; i < 60; ++i) {
                time_.advance(1.0 / 60);
                frame();
            }
        };
        wait();
        EXPECT_FALSE(ui_->presetBar()->dirty()) << index;
        const float gain = memoized(1);
        userSets(1, gain + 0.1f);
        wait();
        EXPECT_TRUE(ui_->presetBar()->dirty()) << index;
        userSets(1, gain);
        wait();
        EXPECT_FALSE(ui_->presetBar()->dirty()) << index;
    }
}

TEST_F(QVMGenericUISketch, OneDragMakesOneUndoStep) {
    userSets(2, 8000);
    frame();
    time_.advance(1);
    const std::size_t before = stack().stack().size();
    for (const float value : {6789.1f, 1234.6f, 333.3f, 125.7f}) {
        userSets(3, value);
        frame();
    }
    for (int i = 0; i < 120; ++i) {
        time_.advance(1.0 / 60);
        frame();
    }
    EXPECT_EQ(stack().stack().size(), before + 1);
    EXPECT_EQ(memoized(3), 125.7f);
    EXPECT_EQ(memoized(2), 0.5f * 125.7f) << "the pushed partner, beside the fine step, keeps its value too";
}

TEST_F(QVMGenericUISketch, IsToldTheFocusedParameter) {
    ui_->bringParameterControlIntoFocus(&control(9));
    EXPECT_EQ(sketch().focusedPid(), 9);
    ui_->bringParameterControlIntoFocus(nullptr);
    EXPECT_EQ(sketch().focusedPid(), -1);
}

TEST_F(QVMGenericUISketch, RestsWhileTheWindowIsHidden) {
    window_.setVisible(false);
    EXPECT_FALSE(ticks_.isStarted());
    hostSets(1, 6);
    EXPECT_EQ(memoized(1), 0);
    window_.setVisible(true);
    frame();
    EXPECT_EQ(memoized(1), 6);
}

TEST_F(QVMGenericUISketch, StopsWithTheEditor) {
    EXPECT_TRUE(ticks_.isStarted());
    window_.takeContentView().reset();
    ui_ = nullptr;
    EXPECT_FALSE(ticks_.isStarted());
}

TEST_F(QVMGenericUISketch, WithoutTheGainSliderThereIsNoMeter) {
    auto plain = QVMConfig::inlinedConfig();
    std::erase_if(plain->clumps, [](const QVMClump* clump) { return clump->codesafeName == "Output"; });
    open(std::move(plain));
    EXPECT_THAT(sketch().auxiliarySketches(), IsEmpty());
    EXPECT_EQ(object().refCount, 1u);
}

} // namespace
} // namespace QVM_NAMESPACE
