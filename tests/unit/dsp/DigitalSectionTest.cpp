// Sections in the digital domain against the analog ones, and against their own coefficients.
#include "unit/dsp/DigitalSection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

namespace QVM_NAMESPACE::dsp {
namespace {

using std::numbers::pi;

double positionOf(double hertz, double rateHz) {
    return std::pow(std::sin(pi * hertz / rateHz), 2);
}

double analogLevel(const AnalogSection& section, double hertz) {
    const Powers p = section.powers();
    const double x = hertz * hertz;
    return 10 * std::log10((p.num[0] + x * (p.num[1] + x * p.num[2])) / (p.den[0] + x * (p.den[1] + x * p.den[2])));
}

TEST(DigitalSection, FarBelowHalfTheRateItIsTheAnalogOne) {
    for (const Zeros zeros : {Zeros::one, Zeros::two}) {
        for (const Direction direction : {Direction::lowPass, Direction::highPass}) {
            const AnalogSection analog = {{400, 0.7}, {900, 1.3}, direction, zeros};
            const DigitalSection carried = digitalFrom(analog, 192000), matched = matchedFrom(analog, 192000);
            for (double hertz = 20; hertz < 2000; hertz *= 1.3) {
                const double level = analogLevel(analog, hertz), position = positionOf(hertz, 192000);
                EXPECT_NEAR(10 * std::log10(carried.power(position)), level, 0.05) << hertz;
                EXPECT_NEAR(10 * std::log10(matched.power(position)), level, 0.05) << hertz;
            }
        }
    }
}

// Zeros far out have no like in the digital domain; the matched section does without.
TEST(DigitalSection, NearHalfTheRateTheMatchedOneIsCloser) {
    const AnalogSection analog = {{15000, 3.9}, {6000, 1.4}, Direction::lowPass, Zeros::two};
    const double position = positionOf(15000, 44100), level = analogLevel(analog, 15000);
    const double matched = std::abs(10 * std::log10(matchedFrom(analog, 44100).power(position)) - level);
    const double carried = std::abs(10 * std::log10(digitalFrom(analog, 44100).power(position)) - level);
    EXPECT_LT(matched, 0.2);
    EXPECT_GT(carried, matched);
}

TEST(DigitalSection, AReversedNumeratorKeepsTheMagnitude) {
    const DigitalSection section = digitalFrom({{500, 0.4}, {2000, 1.1}}, 48000);
    for (double position = 0; position <= 1; position += 0.125)
        EXPECT_DOUBLE_EQ(section.num.reversed().power(position), section.num.power(position));
    EXPECT_NE(section.num.reversed().skew, section.num.skew);
}

TEST(DigitalSection, CoefficientsFilterWithItsMagnitude) {
    const DigitalSection section = digitalFrom({{500, 0.4}, {2000, 1.1}, Direction::highPass}, 48000);
    const vectors::SvfCoefficients c = coefficientsOf(section);
    vectors::SvfState state;
    std::array<double, 8192> impulse{1};
    vectors::svfCascade(&c, &state, 1, impulse.data(), impulse.size() / 2);
    for (const double hertz : {100.0, 480.0, 1900.0, 9000.0, 23000.0}) {
        std::complex<double> sum = 0;
        for (std::size_t i = 0; i < impulse.size(); i += 2)
            sum += impulse[i] * std::polar(1.0, -pi * hertz / 48000 * static_cast<double>(i));
        EXPECT_NEAR(std::norm(sum) / section.power(positionOf(hertz, 48000)), 1, 1e-9) << hertz;
    }
}

TEST(DigitalSection, PowersAreThePowerAsPolynomials) {
    const DigitalSection section = digitalFrom({{500, 0.4}, {2000, 2.6}}, 48000);
    const Powers p = section.powers();
    for (const double x : {0.0, 0.1, 0.7, 1.0})
        EXPECT_NEAR((p.num[0] + x * (p.num[1] + x * p.num[2])) / (p.den[0] + x * (p.den[1] + x * p.den[2])),
                    section.power(x), 1e-9 * section.power(x));
}

TEST(Peak, HoldsItsGainAndIsFlatWithoutOne) {
    for (const double rateHz : {44100.0, 48000.0, 192000.0}) {
        for (const double hertz : {30.0, 1000.0, 15000.0}) {
            const Peak peak(hertz, 12, 4);
            EXPECT_NEAR(10 * std::log10(peak.power(Peak::modelPosition(hertz))), 12, 1e-6);
            EXPECT_NEAR(10 * std::log10(peak.digital(rateHz).power(positionOf(hertz, rateHz))), 12, 0.01);
        }
        const DigitalSection flat = Peak(1000, 0, 2).digital(rateHz);
        EXPECT_DOUBLE_EQ(flat.power(0.01), 1);
    }
}

TEST(Peak, StopsWhereTheModelDoes) {
    EXPECT_DOUBLE_EQ(Peak(24000, 6, 2).power(0.9), Peak(23760, 6, 2).power(0.9));
    EXPECT_DOUBLE_EQ(Peak::modelPosition(30000), 1);
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
