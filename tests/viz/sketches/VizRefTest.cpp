#include "viz/sketches/VizRef.h"

#include "viz/sketches/QVM0015GLSketch.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(VizRef, IsThisProductsObjectForTheHostsFormat) {
    const VizRef made = makeVizRef(48000, 1, 2);
    ASSERT_NE(dynamic_cast<QVM0015GLSketch*>(made.get()), nullptr);
    EXPECT_EQ(made->chanIn, 1u);
    EXPECT_EQ(made->chanOut, 2u);
    EXPECT_EQ(made->sampleRate, 48000);
    EXPECT_EQ(made->paramCount(), 0u);
    EXPECT_EQ(made->refCount, 0u) << "no layer yet";
    EXPECT_EQ(made.use_count(), 1);
}

TEST(VizRef, EditorsShareNothing) {
    const VizRef one = makeVizRef(48000, 2, 2), another = makeVizRef(48000, 2, 2);
    one->sharedState.levels.post(0, -6);
    EXPECT_EQ(another->sharedState.levels.latest(0), -96);
}

} // namespace
} // namespace QVM_NAMESPACE
