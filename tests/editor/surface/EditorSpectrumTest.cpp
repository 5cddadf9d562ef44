#include "editor/surface/EditorSpectrum.h"

#include "editor/EditorFixture.h"

#include "viz/displays/SpectrumBackdrop.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

class EditorSpectrumTest : public EditorFixture {
protected:
    EditorSpectrum& spectrum() { return ui_->sketches().spectrum(); }
    AudioTap& tap() { return ui_->sketch()->getVizRef()->sharedState.tap; }
};

TEST_F(EditorSpectrumTest, IsOffAtFirstAndNothingIsThere) {
    EXPECT_EQ(spectrum().mode(), SpectrumMode::off);
    EXPECT_EQ(spectrum().shown(), nullptr);
    for (const auto& layer : ui_->sketch()->layer()->tree().sublayers())
        EXPECT_NE(layer->name(), "spectrum");
    EXPECT_FALSE(tap().isWanted());
}

TEST_F(EditorSpectrumTest, ComesAndGoesWithItsMode) {
    spectrum().setMode(SpectrumMode::output);
    ASSERT_NE(spectrum().shown(), nullptr);
    EXPECT_EQ(spectrum().shown()->mode(), SpectrumMode::output);
    EXPECT_TRUE(tap().isWanted());
    spectrum().setMode(SpectrumMode::inputAndOutput);
    EXPECT_EQ(spectrum().shown()->mode(), SpectrumMode::inputAndOutput);
    EXPECT_TRUE(tap().isWanted());
    spectrum().setMode(SpectrumMode::off);
    EXPECT_EQ(spectrum().shown(), nullptr);
    EXPECT_FALSE(tap().isWanted());
}

TEST_F(EditorSpectrumTest, AModeThatWasKeptCountsBeforeThereIsACurve) {
    build(QVMConfig::inlinedConfig());
    spectrum().restore(2);
    EXPECT_EQ(spectrum().mode(), SpectrumMode::inputAndOutput);
    EXPECT_EQ(spectrum().shown(), nullptr);
    time_.advance(1);
    ASSERT_NE(spectrum().shown(), nullptr);
    EXPECT_EQ(spectrum().shown()->mode(), SpectrumMode::inputAndOutput);
    EXPECT_THAT(delegate_.calls, testing::Not(testing::Contains(testing::HasSubstr("preference"))))
        << "what was kept is not reported";
}

TEST_F(EditorSpectrumTest, ANumberThatNoModeHasIsOff) {
    for (const double kept : {0.0, -1.0, 0.5, 3.0, 257.0, std::nan("")}) {
        spectrum().restore(1);
        spectrum().restore(kept);
        EXPECT_EQ(spectrum().mode(), SpectrumMode::off) << kept;
    }
}

TEST_F(EditorSpectrumTest, FillsTheCompactForm) {
    spectrum().setMode(SpectrumMode::output);
    EXPECT_EQ(spectrum().shown()->layer()->frame().size(), (Size{54, 62}));
    ui_->requestFrame(QVMAltFrameCompact);
    EXPECT_EQ(spectrum().shown()->layer()->frame().size(), (Size{200, 200}));
    window_.setBackingScaleFactor(2);
    EXPECT_EQ(spectrum().shown()->layer()->look().contentsScale(), 2);
}

TEST_F(EditorSpectrumTest, IsDrawnAnewInAnotherTheme) {
    spectrum().setMode(SpectrumMode::output);
    const std::uint64_t version = spectrum().shown()->layer()->look().version();
    ui_->toggleUITheme();
    EXPECT_NE(spectrum().shown()->layer()->look().version(), version);
}

TEST_F(EditorSpectrumTest, GoesWithTheEditor) {
    spectrum().setMode(SpectrumMode::output);
    window_.takeContentView().reset();
    ui_ = nullptr;
    QVMUITheme::toggleThemeForWindow(nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
