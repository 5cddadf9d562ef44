#include "unit/dsp/EqPath.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace QVM_NAMESPACE::dsp {
namespace {

class EqPathTest : public testing::Test {
protected:
    EqPathTest() {
        corrector_.prepare(48000, Quality::normal);
        path_.reshape(kinds_, corrector_.tapCount());
    }
    void begin(std::size_t frames) {
        for (const StageKind kind : kinds_)
            stages_[static_cast<std::size_t>(kind)].design(kind, settings_, 48000, corrector_);
        path_.begin(stages_, corrector_, frames);
    }

    const std::array<StageKind, 2> kinds_ = {StageKind::tilt, StageKind::low};
    Corrector corrector_;
    EqSettings settings_;
    StageSet stages_;
    EqPath path_;
};

TEST_F(EqPathTest, AMovingStepEndsWhereAStandingOneIs) {
    EqPath there = path_;
    begin(0);
    settings_.low.corner = 1200;
    begin(64);
    std::vector<double> zeros(128);
    path_.process(zeros.data(), 64);
    path_.hold();
    path_.reset();
    std::vector<double> a(256), b;
    a[0] = 1;
    b = a;
    path_.process(a.data(), 128);
    there.begin(stages_, corrector_, 0);
    there.process(b.data(), 128);
    EXPECT_EQ(a, b);
}

TEST_F(EqPathTest, SmallRemainsVanishAndWhatIsNotFiniteIsReported) {
    begin(0);
    std::vector<double> signal(128, 1e-65);
    path_.process(signal.data(), 64);
    EXPECT_TRUE(path_.settle());
    signal.assign(128, 0);
    path_.process(signal.data(), 64);
    EXPECT_TRUE(path_.settle());
    signal[0] = std::numeric_limits<double>::infinity();
    path_.process(signal.data(), 64);
    EXPECT_FALSE(path_.settle());
    path_.reset();
    EXPECT_TRUE(path_.settle());
}

TEST_F(EqPathTest, OnlyATiltWithoutGainIsFlat) {
    const StageKind tilt[] = {StageKind::tilt};
    path_.reshape(tilt, corrector_.tapCount());
    begin(0);
    EXPECT_TRUE(path_.isFlat());
    settings_.tiltGain = 3;
    begin(0);
    EXPECT_FALSE(path_.isFlat());
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
