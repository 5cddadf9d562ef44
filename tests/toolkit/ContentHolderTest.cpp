#include "toolkit/ContentHolder.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(ContentHolder, IsAsLargeAsItsContentIsOnScreen) {
    juce::Component content;
    content.setSize(100, 80);
    ContentHolder holder(content);
    EXPECT_EQ(holder.getBounds(), juce::Rectangle<int>(100, 80));
    content.setTransform(juce::AffineTransform::scale(1.5f));
    EXPECT_EQ(holder.getBounds(), juce::Rectangle<int>(150, 120));
    content.setSize(200, 20);
    EXPECT_EQ(holder.getBounds(), juce::Rectangle<int>(300, 30));
}

} // namespace
} // namespace QVM_NAMESPACE
