#include "unit/dsp/EqChain.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace QVM_NAMESPACE::dsp {
namespace {

class EqChainTest : public testing::Test {
protected:
    EqChainTest() { corrector_.prepare(48000, Quality::normal); }
    std::vector<double> impulse() {
        chain_.reshape(ChainShape(settings_), corrector_);
        chain_.begin(settings_, 48000, corrector_, 0);
        std::vector<double> signal(256);
        signal[0] = signal[1] = 1;
        chain_.process(signal.data(), 128);
        return signal;
    }

    Corrector corrector_;
    EqSettings settings_;
    EqChain chain_;
};

TEST_F(EqChainTest, WithEverythingOffItIsFlatAndPassesEveryBit) {
    const std::vector<double> out = impulse();
    EXPECT_TRUE(chain_.isFlat());
    EXPECT_EQ(out[0], 1);
    EXPECT_TRUE(std::all_of(out.begin() + 2, out.end(), [](double sample) { return sample == 0; }));
}

TEST_F(EqChainTest, ListeningToAFilterThatIsOffIsSilent) {
    settings_.low.listen = Switch::on;
    const std::vector<double> out = impulse();
    EXPECT_TRUE(std::all_of(out.begin(), out.end(), [](double sample) { return sample == 0; }));
    EXPECT_FALSE(chain_.isFlat());
}

TEST_F(EqChainTest, WhatIsSwitchedMakesTheShapeAndWhatMovesDoesNot) {
    const ChainShape shape(settings_);
    settings_.tiltGain = settings_.low.corner = settings_.high.order = 5;
    EXPECT_EQ(ChainShape(settings_), shape);
    settings_.high.state = Switch::on;
    EXPECT_NE(ChainShape(settings_), shape);
}

TEST_F(EqChainTest, AfterAResetItFiltersAsAtFirst) {
    settings_.low.state = settings_.high.state = settings_.low.listen = settings_.high.listen = Switch::on;
    settings_.tiltGain = 4;
    const std::vector<double> first = impulse();
    chain_.reset();
    EXPECT_EQ(impulse(), first);
}

// Otherwise every move of a filter that was used before would cost designs and a glide.
TEST_F(EqChainTest, AFilterThatIsNoLongerInTheShapeMovesNothing) {
    for (FilterSettings* filter : {&settings_.low, &settings_.high}) {
        filter->state = Switch::on;
        filter->resonance = 6;
        impulse();
        filter->state = Switch::off;
        impulse();
        ASSERT_TRUE(chain_.isFlat());
        filter->corner *= 1.5;
        filter->order += 1;
        filter->resonance = 3;
        chain_.begin(settings_, 48000, corrector_, 64);
        EXPECT_TRUE(chain_.isFlat());
    }
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
