#include "plugin/FrameLimits.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(FrameLimits, AreTheLeastAndTheGreatestScaleOfTheContent) {
    FrameLimits limits;
    limits.setContent({480, 320});
    EXPECT_EQ(limits.getMinimumWidth(), 360);
    EXPECT_EQ(limits.getMinimumHeight(), 240);
    EXPECT_EQ(limits.getMaximumWidth(), 1440);
    EXPECT_EQ(limits.getMaximumHeight(), 960);
    EXPECT_DOUBLE_EQ(limits.getFixedAspectRatio(), 1.5);
    limits.setContent({200, 200});
    EXPECT_EQ(limits.getMaximumWidth(), 600);
    EXPECT_DOUBLE_EQ(limits.getFixedAspectRatio(), 1);
    limits.setContent({0, 0}); // no layout at all
    EXPECT_EQ(limits.getMaximumWidth(), 600);
}

TEST(FrameLimits, AFrameThatComesAllTheSameIsLetThrough) {
    FrameLimits limits;
    limits.setContent({480, 320});
    juce::Component component;
    limits.setBoundsForComponent(&component, {0, 0, 33, 2000}, false, false, false, false);
    EXPECT_EQ(component.getBounds(), juce::Rectangle<int>(0, 0, 33, 2000));
}

} // namespace
} // namespace QVM_NAMESPACE
