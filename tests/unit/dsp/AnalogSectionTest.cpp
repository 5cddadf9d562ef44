// Sections in the analog domain against the closed forms that they stand for.
#include "unit/dsp/AnalogSection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE::dsp {
namespace {

template <std::size_t N>
double levelOf(const std::array<AnalogSection, N>& sections, double hertz) {
    double power = 1;
    const double x = hertz * hertz;
    for (const AnalogSection& section : sections) {
        const Powers p = section.powers();
        power *= (p.num[0] + x * (p.num[1] + x * p.num[2])) / (p.den[0] + x * (p.den[1] + x * p.den[2]));
    }
    return 10 * std::log10(power);
}

double passed(double ratio, double order) { // of a low-pass
    return 1 / std::sqrt(1 + std::pow(ratio, 2 * order));
}

TEST(AnalogSection, FiltersOfAnyOrderPassAndRemoveWhatTheirFormulaSays) {
    std::array<AnalogSection, filterSections> sections;
    for (const double order : {1.0, 1.37, 2.0, 3.3, 5.0, 6.61, 8.0}) {
        for (const Direction direction : {Direction::lowPass, Direction::highPass}) {
            for (const FilterPart part : {FilterPart::passed, FilterPart::removed, FilterPart::removedRoot}) {
                makeFilter(part, direction, order, 1000, sections);
                for (double hertz = 20; hertz < 20000; hertz *= 1.1) {
                    const double h = passed(direction == Direction::lowPass ? hertz / 1000 : 1000 / hertz, order);
                    const double level = 20 * std::log10(part == FilterPart::passed ? h : 1 - h);
                    if (level < -60) continue;
                    const double share = part == FilterPart::removedRoot ? 2 : 1;
                    EXPECT_NEAR(levelOf(sections, hertz) * share, level, 0.25) << order << ", " << hertz << " Hz";
                }
            }
        }
    }
}

TEST(AnalogSection, TheTiltOfANegativeGainIsThatOfThePositiveOneUpsideDown) {
    std::array<AnalogSection, tiltSections> up, down;
    makeTilt(7, 100, 5000, up);
    makeTilt(-7, 100, 5000, down);
    for (double hertz = 20; hertz < 20000; hertz *= 1.3)
        EXPECT_NEAR(levelOf(up, hertz), -levelOf(down, hertz), 1e-9);
    EXPECT_NEAR(levelOf(up, 0.01), 0, 0.25);
    EXPECT_NEAR(levelOf(up, 1e7), 14, 0.25);
}

TEST(AnalogSection, WithoutGainTheTiltIsFlatAndCornersCountAsAnOctaveApart) {
    std::array<AnalogSection, tiltSections> sections, close;
    makeTilt(0, 100, 5000, sections);
    for (double hertz = 20; hertz < 20000; hertz *= 1.3)
        EXPECT_NEAR(levelOf(sections, hertz), 0, 1e-12);
    makeTilt(6, 1000, 2000, sections);
    makeTilt(6, 1000, 300, close);
    EXPECT_NEAR(levelOf(sections, 1234), levelOf(close, 1234), 1e-9);
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
