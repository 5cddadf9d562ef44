// What both filters remove, as a structure of its own: in phase wherever it is summed.
#include "unit/dsp/BothRemoved.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

namespace QVM_NAMESPACE::dsp {
namespace {

constexpr double rateHz = 96000;

struct Design {
    std::array<DigitalSection, filterSections> low, high;
    std::array<vectors::SvfCoefficients, BothRemoved::sections> sections;

    Design(double lowHertz, double lowOrder, double highHertz, double highOrder) {
        std::array<AnalogSection, filterSections> analog;
        makeFilter(FilterPart::removedRoot, Direction::highPass, lowOrder, lowHertz, analog);
        for (std::size_t i = 0; i < filterSections; ++i)
            low[i] = matchedFrom(analog[i], rateHz);
        makeFilter(FilterPart::removedRoot, Direction::lowPass, highOrder, highHertz, analog);
        for (std::size_t i = 0; i < filterSections; ++i)
            high[i] = matchedFrom(analog[i], rateHz);
        BothRemoved::design(low, high, sections);
    }
};

double powerOf(const std::array<DigitalSection, filterSections>& sections, double position) {
    double power = 1;
    for (const DigitalSection& section : sections)
        power *= section.power(position);
    return power;
}

std::vector<double> impulseThrough(Design& design) {
    std::vector<double> signal(65536);
    signal[0] = 1;
    std::array<vectors::SvfState, BothRemoved::sections> states{};
    for (std::size_t at = 0; at < signal.size(); at += 2 * BothRemoved::mostFrames)
        BothRemoved::process(design.sections.data(), nullptr, states.data(), signal.data() + at,
                             BothRemoved::mostFrames);
    return signal;
}

double levelAt(const std::vector<double>& impulse, double hertz) {
    const std::complex<double> turn = std::polar(1.0, -2 * std::numbers::pi * hertz / rateHz);
    std::complex<double> sum = 0;
    for (std::size_t i = impulse.size(); i > 0; i -= 2)
        sum = sum * turn + impulse[i - 2];
    return 20 * std::log10(std::abs(sum));
}

TEST(BothRemoved, TheMagnitudeIsThatOfOneMinusTheProductEverywhere) {
    for (Design design : {Design(300, 2, 3000, 2), Design(1000, 8, 1000, 8), Design(2000, 1.3, 500, 5.7)}) {
        const std::vector<double> impulse = impulseThrough(design);
        for (double hertz = 100; hertz < 40000; hertz *= 1.2) {
            const double position = std::pow(std::sin(std::numbers::pi * hertz / rateHz), 2);
            const double a = powerOf(design.low, position), b = powerOf(design.high, position);
            EXPECT_NEAR(levelAt(impulse, hertz), 20 * std::log10(a + b * (1 - a)), 1e-3) << hertz;
        }
    }
}

TEST(BothRemoved, FilteringWithoutAStepIsThatWithAStepOfNothing) {
    Design design(300, 2.5, 3000, 4);
    const std::vector<vectors::SvfCoefficients> still(BothRemoved::sections, {0, 0, 0, 0, 0, 0});
    std::array<vectors::SvfState, BothRemoved::sections> one{}, two{};
    std::vector<double> a(2 * BothRemoved::mostFrames);
    a[0] = a[1] = 1;
    std::vector<double> b = a;
    BothRemoved::process(design.sections.data(), nullptr, one.data(), a.data(), BothRemoved::mostFrames);
    BothRemoved::process(design.sections.data(), still.data(), two.data(), b.data(), BothRemoved::mostFrames);
    EXPECT_EQ(a, b);
}

// What a jump of a coefficient would be heard as.
TEST(BothRemoved, CoefficientsFollowACornerInSmallSteps) {
    const auto farthest = [](double ratio) {
        double most = 0;
        for (double low = 100; low < 2000; low *= ratio) {
            const Design from(low, 2, 700, 3.3), to(low * ratio, 2, 700, 3.3);
            for (std::size_t i = 0; i < BothRemoved::sections; ++i)
                most = std::max(most, std::abs(to.sections[i].m1 - from.sections[i].m1));
        }
        return most;
    };
    EXPECT_NEAR(farthest(1.001) / farthest(1.01), 0.1, 0.01);
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
