#include "editor/EditorFixture.h"

#include "editor/surface/QVMABControl.h"
#include "editor/surface/QVMPresetBar.h"
#include "viz/sketches/QVMParameterSketch.h"

namespace QVM_NAMESPACE {
namespace {

using ShownFocusTest = EditorFixture;

TEST_F(ShownFocusTest, TheCurveKnowsTheParameterThatHasTheFocus) {
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    EXPECT_EQ(ui_->sketch()->focusedPid(), static_cast<std::int32_t>(pidTiltGain));
    ui_->bringParameterControlIntoFocus(nullptr);
    EXPECT_EQ(ui_->sketch()->focusedPid(), -1);
}

TEST_F(ShownFocusTest, ACurveThatIsMadeLaterKnowsItFromTheStart) {
    build(QVMConfig::inlinedConfig());
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    time_.advance(1);
    EXPECT_EQ(ui_->sketch()->focusedPid(), static_cast<std::int32_t>(pidTiltGain));
}

TEST_F(ShownFocusTest, TheBarShowsWhichOfItsControlsHasTheFocus) {
    QVMPresetBar& bar = *ui_->presetBar();
    ui_->bringParameterControlIntoFocus(&bar.ab());
    EXPECT_TRUE(bar.ab().focused());
    EXPECT_FALSE(bar.presetControl()->focused());
    ui_->bringParameterControlIntoFocus(bar.presetControl());
    EXPECT_FALSE(bar.ab().focused());
    EXPECT_TRUE(bar.presetControl()->focused());
    EXPECT_EQ(ui_->focus().focused(), bar.presetControl());
}

TEST_F(ShownFocusTest, ThePresetControlIsNoParameterOfTheCurve) {
    ui_->bringParameterControlIntoFocus(ui_->presetBar()->presetControl());
    EXPECT_EQ(ui_->sketch()->focusedPid(), -1);
}

} // namespace
} // namespace QVM_NAMESPACE
