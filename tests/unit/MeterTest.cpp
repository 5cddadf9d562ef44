#include "unit/Meter.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

TEST(Meter, KeepsTheLargestPeakSinceTheLastReading) {
    Meter meter;
    meter.add(0, 0.25F);
    meter.add(0, 0.75F);
    meter.add(0, 0.5F);
    EXPECT_EQ(meter.takePeak(0), 0.75F);
    EXPECT_EQ(meter.takePeak(0), 0.0F);
}

TEST(Meter, ChannelsAreApart) {
    Meter meter;
    meter.add(0, 0.25F);
    meter.add(1, 0.5F);
    EXPECT_EQ(meter.takePeak(1), 0.5F);
    EXPECT_EQ(meter.takePeak(0), 0.25F);
}

TEST(Meter, AChannelThatDoesNotExistReadsAsSilence) {
    Meter meter;
    meter.add(1, 0.5F);
    EXPECT_EQ(meter.takePeak(2), 0.0F);
    EXPECT_EQ(meter.takePeak(static_cast<std::size_t>(-1)), 0.0F);
}

TEST(Meter, ResetForgetsAllPeaks) {
    Meter meter;
    meter.add(0, 1);
    meter.add(1, 1);
    meter.reset();
    EXPECT_EQ(meter.takePeak(0), 0.0F);
    EXPECT_EQ(meter.takePeak(1), 0.0F);
}

TEST(Meter, ANaNPeakCountsForNothing) {
    Meter meter;
    meter.add(0, std::nanf(""));
    meter.add(0, 0.5F);
    EXPECT_EQ(meter.takePeak(0), 0.5F);
}

} // namespace
} // namespace QVM_NAMESPACE
