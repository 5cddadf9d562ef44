#include "editor/surface/NearestNote.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

TEST(NearestNote, IsCountedFromTheTuningNote) {
    EXPECT_EQ(nearestNote(440), (NearestNote{"A4", 0}));
    EXPECT_EQ(nearestNote(261.6256), (NearestNote{"C4", 0}));
    EXPECT_EQ(nearestNote(1000), (NearestNote{"B5", 21}));
    EXPECT_EQ(nearestNote(20), (NearestNote{"D#0", 49}));
}

TEST(NearestNote, OctavesBeginWithC) {
    EXPECT_EQ(nearestNote(246.9417).name, "B3");
    EXPECT_EQ(nearestNote(32.7032).name, "C1");
    EXPECT_EQ(nearestNote(16.3516).name, "C0");
    EXPECT_EQ(nearestNote(15.4339).name, "B-1");
    EXPECT_EQ(nearestNote(4).name, "C-2");
    EXPECT_EQ(nearestNote(24000).name, "F#10");
}

TEST(NearestNote, ChangesHalfwayBetweenTwo) {
    EXPECT_EQ(nearestNote(440 * std::exp2(0.49 / 12)), (NearestNote{"A4", 49}));
    EXPECT_EQ(nearestNote(440 * std::exp2(0.51 / 12)), (NearestNote{"A#4", -49}));
    EXPECT_EQ(nearestNote(440 * std::exp2(-0.12 / 12)), (NearestNote{"A4", -12}));
}

} // namespace
} // namespace QVM_NAMESPACE
