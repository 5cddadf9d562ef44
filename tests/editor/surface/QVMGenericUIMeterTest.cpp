#include "editor/EditorFixture.h"

#include "controls/QVMVerticalSlider.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/ToolTips.h"
#include "resources/IconGlyphs.h"
#include "theme/Colors.h"
#include "viz/sketches/SketchFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::IsEmpty;

// The sketch that stands in the track of the gain slider.
class QVMGenericUIMeter : public EditorFixture {
protected:
    // Of the gain, when the meter in it is as said.
    static std::string gainTip(std::string_view state) { return toolTipOf(*GetParameter(pidOutputGain), state); }
    QVMParameterSketch& sketch() { return *ui_->sketch(); }
    QVMAuxiliarySketch& meter() { return *sketch().auxiliarySketches().front(); }
    QVM0015GLSketch& object() { return static_cast<QVM0015GLSketch&>(*sketch().getVizRef()); }
    QVMVerticalSlider& gainSlider() {
        return dynamic_cast<QVMVerticalSlider&>(*control(pidOutputGain).primaryControl());
    }
};

TEST_F(QVMGenericUIMeter, TheMeterStandsOverTheGainSliderWhereItsSketchSays) {
    ASSERT_EQ(sketch().auxiliarySketches().size(), 1u);
    EXPECT_EQ(meter().glSketch()->sketch(), PB_Sketches[1]);
    EXPECT_EQ(object().refCount, 2u);
    ASSERT_NE(object().levelMeter(), nullptr);
    const PBRect& outer = PB_Sketches[1].outer;
    const Rect inClumps = meter().coordinates().toWindow(meter().bounds()).offsetBy(0, -ui_->clumpsView()->frame().y);
    EXPECT_EQ(inClumps, (Rect{outer.x, outer.y, outer.w, outer.h}));
}

TEST_F(QVMGenericUIMeter, TheMetersBarsLieInsideTheTrack) {
    const PBRect& track = PB_Parameters[pidOutputGain].track;
    const Rect groove = gainSlider().layers().trackRect();
    EXPECT_GT(track.x - track.w / 2, groove.minX());
    EXPECT_LT(track.x + track.w * 1.5, groove.maxX());
    // A full bar ends at the middle of a handle at the top.
    gainSlider().setFloatValue(12);
    EXPECT_EQ(track.y + track.h, gainSlider().handleValue());
}

TEST_F(QVMGenericUIMeter, ALevelEndsAtTheMiddleOfTheHandleOfAsMuchGain) {
    QVMLevelMeter::Channel& channel = object().levelMeter()->channel(0);
    channel.slewEnabled = false;
    const PBGLCanvas canvas = meterCanvas(1);
    for (const float decibels : {-96.0f, -60.0f, -36.0f, -24.0f, -12.0f, -6.0f, -1.0f, 0.0f, 3.0f, 6.0f, 12.0f}) {
        channel.level = decibels;
        object().prepareForDrawing(canvas, 0.1f);
        gainSlider().setFloatValue(decibels);
        const PBRect bar = object().levelMeter()->barRect(canvas, 0);
        EXPECT_NEAR(bar.y + bar.h, gainSlider().handleValue(), 0.501) << decibels << ": it stands on whole points";
    }
}

TEST_F(QVMGenericUIMeter, TheMeterIsBelowTheHandleAndAboveTheGroove) {
    const auto& layers = gainSlider().layer()->tree().sublayers();
    const auto indexOf = [&](const Layer* layer) {
        while (layer && layer->tree().superlayer() != gainSlider().layer().get())
            layer = layer->tree().superlayer();
        const auto found = std::find_if(layers.begin(), layers.end(), [&](const auto& l) { return l.get() == layer; });
        return found - layers.begin();
    };
    EXPECT_GT(indexOf(meter().layer().get()), indexOf(gainSlider().background().get()));
    EXPECT_LT(indexOf(meter().layer().get()), indexOf(gainSlider().readoutBulb().get()));
}

TEST_F(QVMGenericUIMeter, TheMetersBarsAreOfOneInkThatStandsOutInBothThemes) {
    const QVMLevelMeter& levels = *object().levelMeter();
    for (int theme = 0; theme < 2; ++theme) {
        const QVMPalette& palette = QVMUITheme::theme().palette;
        const MeterInk& ink = meter().glSketch()->meterInk().value();
        EXPECT_EQ(ink, (MeterInk{palette.meterBar, palette.meterClip, 1}));
        const Color groove = gainSlider().background()->look().backgroundColor();
        for (int i = 0; i < 2; ++i)
            EXPECT_GT(contrastRatio(levels.barColour(i, ink), groove), 3.5);
        EXPECT_GT(contrastRatio(ink.bar, palette.sidePanel), contrastRatio(groove, palette.sidePanel))
            << "what is empty is quieter than what is filled";
        EXPECT_GT(contrastRatio(groove, palette.sidePanel), 1.2) << "the groove shows, too";
        QVMUITheme::toggleThemeForWindow(&window_);
    }
}

TEST_F(QVMGenericUIMeter, TheToolTipOverItSaysWhatItShows) {
    const auto toolTip = [this] { return window_.toolTippedViewAt(middleOf(gainSlider()))->toolTip(); };
    EXPECT_EQ(toolTip(), gainTip("Meter Mode: Pre"));
    hostSets(pidMeterMode, 2);
    EXPECT_EQ(toolTip(), gainTip("Meter Mode: Diff"));
    ui_->chooseValueForParameter(1, pidMeterMode);
    EXPECT_EQ(toolTip(), gainTip("Meter Mode: Post"));
    EXPECT_EQ(control(pidTiltLoudnessMode).toolTip(), toolTipOf(*GetParameter(pidTiltLoudnessMode)));
}

TEST_F(QVMGenericUIMeter, TheToolTipOfAReopenedEditorSaysWhatItShowsThen) {
    delegate_.unit[pidMeterMode] = 1;
    build(QVMConfig::inlinedConfig());
    time_.advance(0.6);
    EXPECT_EQ(control(pidOutputGain).toolTip(), gainTip("Meter Mode: Post"));
}

TEST_F(QVMGenericUIMeter, HiddenTogetherWithTheCurveLeavesAnEyeAndToolTips) {
    const TextLayer& eye = *ui_->powerBox()->hiddenSign();
    const Point curve = middleOf(sketch());
    EXPECT_EQ(eye.opacity(), 0);
    click(curve);
    EXPECT_GT(eye.opacity(), 0.3);
    EXPECT_LT(eye.opacity(), 0.6);
    EXPECT_EQ(eye.string().runs.front().text, icons::eye);
    EXPECT_EQ(eye.frame(), sketch().frame());
    EXPECT_TRUE(window_.toolTippedViewAt(curve)->toolTip().starts_with("Show Curve and Meter\n"));
    EXPECT_EQ(control(pidOutputGain).toolTip(), gainTip("Meter Mode: Pre\nThe meter is hidden"));
    ui_->requestFrame(QVMAltFrameCompact);
    EXPECT_EQ(eye.frame(), (Rect{0, 0, 200, 200}));
    ui_->requestFrame(QVMAltFrameNormal);
    click(curve);
    EXPECT_EQ(eye.opacity(), 0);
    EXPECT_TRUE(sketch().toolTip().starts_with("Response Curve\n"));
    EXPECT_EQ(control(pidOutputGain).toolTip(), gainTip("Meter Mode: Pre"));
}

TEST_F(QVMGenericUIMeter, ShownAgainByAnotherWindowTheyLeaveNoEye) {
    click(middleOf(sketch()));
    Window other;
    other.setContentView(window_.takeContentView());
    EXPECT_TRUE(sketch().vizVisible());
    EXPECT_EQ(ui_->powerBox()->hiddenSign()->opacity(), 0);
    window_.setContentView(other.takeContentView());
}

TEST_F(QVMGenericUIMeter, TheMeterTakesNoClicksFromTheSlider) {
    EXPECT_EQ(window_.hitTest(middleOf(gainSlider())), &gainSlider());
}

TEST_F(QVMGenericUIMeter, WithoutTheGainSliderThereIsNoMeter) {
    auto plain = QVMConfig::inlinedConfig();
    std::erase_if(plain->clumps, [](const QVMClump* clump) { return clump->codesafeName == "Output"; });
    open(std::move(plain));
    EXPECT_THAT(sketch().auxiliarySketches(), IsEmpty());
    EXPECT_EQ(object().refCount, 1u);
}

} // namespace
} // namespace QVM_NAMESPACE
