// What both filters remove, in the analog domain, against the closed form.
#include "unit/dsp/BothRemoved.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace QVM_NAMESPACE::dsp {
namespace {

struct Setting {
    double low, lowOrder, high, highOrder; // corners in hertz
};

bool designed(BothRemoved& both, const Setting& s, std::array<AnalogSection, BothRemoved::sections>& out) {
    std::array<AnalogSection, filterSections> low, high;
    makeFilter(FilterPart::removedRoot, Direction::highPass, s.lowOrder, s.low, low);
    makeFilter(FilterPart::removedRoot, Direction::lowPass, s.highOrder, s.high, high);
    return both.design(low, high, out);
}

// The largest difference in dB where the closed form is above -60 dB, of the cascade gone through twice.
double worstOf(const Setting& s, const std::array<AnalogSection, BothRemoved::sections>& sections) {
    double worst = 0;
    for (double hertz = 20; hertz < 20000; hertz *= 1.04) {
        const double low = 1 / std::sqrt(1 + std::pow(s.low / hertz, 2 * s.lowOrder));
        const double high = 1 / std::sqrt(1 + std::pow(hertz / s.high, 2 * s.highOrder));
        const double expected = 20 * std::log10(1 - low * high);
        if (expected < -60) continue;
        double power = 1;
        for (const AnalogSection& section : sections) {
            const AnalogSection::Powers p = section.powers();
            const double x = hertz * hertz;
            power *= (p.num[0] + x * (p.num[1] + x * p.num[2])) / (p.den[0] + x * (p.den[1] + x * p.den[2]));
        }
        worst = std::max(worst, std::abs(20 * std::log10(power) - expected));
    }
    return worst;
}

Setting randomSetting(std::mt19937& random) {
    const auto uniform = [&random](double low, double high) {
        return low + (high - low) * (static_cast<double>(random() % 65536) / 65536);
    };
    const double low = 4.2 * std::pow(12000 / 4.2, uniform(0, 1));
    const double high = random() % 2 ? 12 * std::pow(2000, uniform(0, 1)) : low * std::pow(2, uniform(-1, 4));
    const auto order = [&] { return random() % 3 ? uniform(1, 8) : static_cast<double>(1 + random() % 8); };
    return {low, order(), std::min(high, 23900.0), order()};
}

TEST(BothRemoved, IsTheClosedFormAtAnyCornersAndOrders) {
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        const Setting s = randomSetting(random);
        BothRemoved both;
        std::array<AnalogSection, BothRemoved::sections> sections;
        ASSERT_TRUE(designed(both, s, sections)) << i;
        EXPECT_LT(worstOf(s, sections), 0.15) << s.low << " " << s.lowOrder << ", " << s.high << " " << s.highOrder;
    }
}

TEST(BothRemoved, FollowsMovingCorners) {
    BothRemoved both;
    std::array<AnalogSection, BothRemoved::sections> sections;
    for (int i = 0; i < 1000; ++i) {
        const Setting s{100 * std::pow(50, i / 1000.0), 2 + i / 300.0, 4000, 3.3};
        ASSERT_TRUE(designed(both, s, sections)) << i;
        ASSERT_LT(worstOf(s, sections), 0.15) << i;
    }
}

TEST(BothRemoved, EqualFiltersAtOneCornerLeaveASmallDip) {
    BothRemoved both;
    std::array<AnalogSection, BothRemoved::sections> sections;
    const Setting s{1000, 8, 1000, 8};
    ASSERT_TRUE(designed(both, s, sections));
    EXPECT_LT(worstOf(s, sections), 0.15);
}

} // namespace
} // namespace QVM_NAMESPACE::dsp
