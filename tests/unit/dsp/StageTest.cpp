#include "unit/dsp/Stage.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE::dsp {
namespace {

class StageTest : public testing::Test {
protected:
    StageTest() { corrector_.prepare(48000, Quality::normal); }
    bool design(StageKind kind) { return stage_.design(kind, settings_, 48000, corrector_); }

    Corrector corrector_;
    EqSettings settings_;
    Stage stage_;
};

TEST_F(StageTest, IsDesignedAgainOnlyWhenItsOwnSettingsMove) {
    EXPECT_TRUE(design(StageKind::low));
    EXPECT_FALSE(design(StageKind::low));
    settings_.high.corner = settings_.tiltGain = 3;
    settings_.low.resonance = 3;
    EXPECT_FALSE(design(StageKind::low));
    settings_.low.corner = 300;
    EXPECT_TRUE(design(StageKind::low));
    stage_.forget();
    EXPECT_TRUE(design(StageKind::low));
}

TEST_F(StageTest, IsFlatWithoutGainOrResonance) {
    design(StageKind::tilt);
    EXPECT_TRUE(stage_.isFlat());
    settings_.tiltGain = 1;
    design(StageKind::tilt);
    EXPECT_FALSE(stage_.isFlat());
    design(StageKind::lowPeak);
    EXPECT_TRUE(stage_.isFlat());
    for (const double rest : stage_.rest())
        EXPECT_EQ(rest, 1);
}

TEST_F(StageTest, NothingLacksWellBelowHalfTheRate) {
    settings_.low.corner = 100;
    settings_.high.corner = 200;
    for (const StageKind kind :
         {StageKind::tilt, StageKind::low, StageKind::lowRemoved, StageKind::highRemoved, StageKind::bothRemoved}) {
        design(kind);
        EXPECT_NEAR(10 * std::log10(stage_.rest()[0]), 0, 0.1) << static_cast<int>(kind);
    }
}

TEST_F(StageTest, HasAsManySectionsAsItsKind) {
    EXPECT_EQ(sectionsOf(StageKind::tilt), tiltSections);
    EXPECT_EQ(sectionsOf(StageKind::highPeak), 1U);
    EXPECT_EQ(sectionsOf(StageKind::low), filterSections);
    EXPECT_EQ(sectionsOf(StageKind::bothRemoved), BothRemoved::sections);
    EXPECT_LE(sectionsOf(StageKind::bothRemoved), stageMaxSections);
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
