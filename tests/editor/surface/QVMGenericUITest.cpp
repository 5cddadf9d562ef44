#include "editor/EditorFixture.h"

#include "controls/QVMRangeControl.h"
#include "controls/QVMSymbolButton.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMClumpsView.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "platform/layer/LayerDump.h"
#include "platform/renderer/LayerRenderer.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::HasSubstr;

class QVMGenericUITest : public EditorFixture {};

TEST_F(QVMGenericUITest, StandsInTheFramesOfTheNormalLayout) {
    EXPECT_EQ(ui_->clumpsView()->frame(), (Rect{0, 30, 418, 290}));
    EXPECT_EQ(ui_->presetBar()->frame(), (Rect{0, 0, 418, 30}));
    EXPECT_EQ(ui_->powerBox()->frame(), (Rect{418, 0, 62, 320}));
    EXPECT_EQ(ui_->masterClump()->frame(), (Rect{418, 0, 62, 320}));
    EXPECT_EQ(ui_->advClumpsView()->frame(), (Rect{480, 0, 200, 320}));
    EXPECT_EQ(ui_->clumpViewWithCodename("Tilt")->frame(), (Rect{0, 0, 321, 174}));
    EXPECT_FALSE(ui_->clumpsView()->drawOutsideBorder());
    EXPECT_TRUE(ui_->advClumpsView()->advanced());
}

TEST_F(QVMGenericUITest, MakesAControlForEveryParameterThatIsLaidOut) {
    std::vector<std::uint32_t> pids;
    for (const QVMParameterControl* each : ui_->parameterControls())
        pids.push_back(each->parameter()->pid);
    // By clumps: ordinary ones first, then the advanced one, then the master clump.
    EXPECT_EQ(pids, (std::vector<std::uint32_t>{1, 2, 3, 6, 7, 9, 10, 13, 20, 14, 15, 21, 22, 23, 0}));
}

TEST_F(QVMGenericUITest, AHiddenParameterOrOneWithAnEmptyFrameGetsNoControl) {
    EXPECT_EQ(ui_->parameterControlWithPid(pidMeterMode), nullptr);     // hidden
    EXPECT_EQ(ui_->parameterControlWithPid(pidTiltRangeLink), nullptr); // no frame
    EXPECT_EQ(ui_->parameterControlWithPid(24), nullptr);               // no such parameter
    EXPECT_EQ(ui_->parameterControlWithCodename("MeterMode"), nullptr);
}

TEST_F(QVMGenericUITest, ADisplacedControlLivesInTheViewAroundTheClumps) {
    EXPECT_EQ(control(pidFilterListenLow).superview(), ui_->clumpsView());
    EXPECT_EQ(control(pidFilterListenHigh).superview(), ui_->clumpsView());
    EXPECT_EQ(control(pidHQMode).superview(), ui_->advClumpsView());
    EXPECT_EQ(control(pidTiltGain).superview(), ui_->clumpViewWithCodename("Tilt"));
}

TEST_F(QVMGenericUITest, TheAdvancedAreaExistsOnlyWithAdvancedControls) {
    EXPECT_NE(ui_->advClumpsView(), nullptr);
    auto plain = QVMConfig::inlinedConfig();
    std::erase_if(plain->clumps, [](const QVMClump* clump) { return clump->clumpType == QVMClumpTypeAdvanced; });
    open(std::move(plain));
    EXPECT_EQ(ui_->advClumpsView(), nullptr);
    EXPECT_EQ(ui_->powerBox()->gear(), nullptr);
    EXPECT_EQ(ui_->parameterControlWithPid(pidFilterSlopeLow), nullptr);
}

TEST_F(QVMGenericUITest, FindsControlsAndClumpViews) {
    EXPECT_EQ(ui_->parameterControlWithCodename("TiltGain"), &control(pidTiltGain));
    EXPECT_EQ(ui_->clumpViewWithCodename("AdvFilter")->superview(), ui_->advClumpsView());
    EXPECT_EQ(ui_->clumpViewWithCodename("MasterOnOff"), ui_->masterClump());
    EXPECT_EQ(ui_->clumpViewWithCodename("Nothing"), nullptr);
    EXPECT_EQ(control(pidTiltRangeLow).clumpView(), ui_->clumpViewWithCodename("Tilt"));
}

TEST_F(QVMGenericUITest, EachLowHighPairHasTwoRangeControlsOnOneBand) {
    const QVMClumpView& tilt = *ui_->clumpViewWithCodename("Tilt");
    const auto* lower = dynamic_cast<const QVMRangeControl*>(tilt.subviews().front().get());
    const auto* upper = dynamic_cast<const QVMRangeControl*>(tilt.subviews().back().get());
    ASSERT_TRUE(lower && upper);
    EXPECT_FALSE(lower->interactive());
    EXPECT_TRUE(upper->interactive());
    EXPECT_EQ(control(pidTiltRangeLow).range(), upper);
    EXPECT_EQ(control(pidTiltRangeHigh).range(), upper);
    EXPECT_EQ(upper->low(), &control(pidTiltRangeLow));
    EXPECT_EQ(upper->high(), &control(pidTiltRangeHigh));
    const Rect both = control(pidTiltRangeLow).frame().unionWith(control(pidTiltRangeHigh).frame());
    EXPECT_EQ(upper->frame(), (Rect{both.x, both.midY() - 7 + 1, both.width, 14}));
    EXPECT_EQ(lower->frame(), upper->frame());
}

TEST_F(QVMGenericUITest, TellsEveryParameterTheChannels) {
    open(QVMConfig::inlinedConfig(), 1, 2);
    EXPECT_EQ(GetParameter(pidOutputGain)->chanIn, 1u);
    EXPECT_EQ(GetParameter(pidOutputGain)->chanOut, 2u);
    EXPECT_EQ(GetPresets()->chanIn, 1u);
    EXPECT_EQ(ui_->config().chanOut, 2u);
}

TEST_F(QVMGenericUITest, OpensWithTheValuesItWasGiven) {
    auto ui = std::make_unique<QVMGenericUI>(Rect{0, 0, 480, 320}, QVMConfig::inlinedConfig(), 2, 2);
    EXPECT_EQ(ui->getMemoizedPValueDirectly(pidFilterRangeHigh), 24000); // the initial value
    ui->setMemoizedPValueDirectlyValue(pidOutputGain, -12);
    ui->completeInterfaceSetup();
    EXPECT_EQ(ui->parameterControlWithPid(pidOutputGain)->floatValue(), -12);
}

TEST_F(QVMGenericUITest, ItsLayerTreeNamesItsParts) {
    const std::string dump = dumpLayerTree(*ui_->layer());
    for (const char* part :
         {"editor",        "powerBox",        "logoButton",     "gearButton",       "logoStamp",        "sketchPlace",
          "clumpsView",    "panel:Tilt",      "panel:Output",   "divider",          "presetBar",        "undoButton",
          "redoButton",    "clump:Tilt",      "label:TILT",     "label:GAIN",       "control:TiltGain", "band:Filter",
          "advClumpsView", "clump:AdvFilter", "interiorBorder", "clump:MasterOnOff"})
        EXPECT_THAT(dump, HasSubstr(part));
}

TEST_F(QVMGenericUITest, AThemeChosenInOneWindowRecoloursTheEditorInAnother) {
    auto made = std::make_unique<QVMGenericUI>(Rect{0, 0, 480, 320}, QVMConfig::inlinedConfig(), 2, 2);
    made->completeInterfaceSetup();
    Window otherWindow;
    QVMGenericUI& other = otherWindow.setContentView(std::move(made));
    ui_->toggleUITheme();
    EXPECT_EQ(other.clumpsView()->layer()->look().backgroundColor(),
              ui_->clumpsView()->layer()->look().backgroundColor());
    EXPECT_EQ(other.clumpsView()->layer()->look().backgroundColor(), QVMUITheme::dark().backgroundColor);
    EXPECT_EQ(other.presetBar()->layer()->look().backgroundColor(), QVMUITheme::dark().palette.sidePanel);
}

TEST_F(QVMGenericUITest, TheThemeRecoloursEveryPart) {
    const Color box = ui_->powerBox()->layer()->look().backgroundColor();
    const Color bar = ui_->presetBar()->layer()->look().backgroundColor();
    const Color panel = ui_->clumpsView()->layer()->look().backgroundColor();
    ui_->toggleUITheme();
    EXPECT_NE(ui_->powerBox()->layer()->look().backgroundColor(), box) << "the product's colour, but shaded";
    EXPECT_NE(ui_->presetBar()->layer()->look().backgroundColor(), bar);
    EXPECT_NE(ui_->clumpsView()->layer()->look().backgroundColor(), panel);
    EXPECT_EQ(delegate_.calls.back(), "preference theme 1");
    ui_->toggleUITheme();
    EXPECT_EQ(ui_->presetBar()->layer()->look().backgroundColor(), bar);
    EXPECT_EQ(delegate_.calls.back(), "preference theme 1");
}

} // namespace
} // namespace QVM_NAMESPACE
