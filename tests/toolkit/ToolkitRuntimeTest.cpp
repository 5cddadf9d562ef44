#include "toolkit/ToolkitRuntime.h"

#include "platform/layer/TextMetrics.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

const AttributedString sample("W", {"HelveticaNeue-Medium", 20}, {});

TEST(ToolkitRuntime, IsInForceWhileAnyoneHoldsIt) {
    const double nominal = TextMetrics::current().width(sample);
    {
        const juce::SharedResourcePointer<ToolkitRuntime> first;
        const double real = TextMetrics::current().width(sample);
        EXPECT_NE(real, nominal);
        {
            const juce::SharedResourcePointer<ToolkitRuntime> second;
            EXPECT_EQ(&second->faces(), &first->faces());
        }
        EXPECT_EQ(TextMetrics::current().width(sample), real);
        EXPECT_NE(dynamic_cast<ToolkitWorkspace*>(&Workspace::current()), nullptr);
    }
    EXPECT_EQ(TextMetrics::current().width(sample), nominal);
    EXPECT_EQ(dynamic_cast<ToolkitWorkspace*>(&Workspace::current()), nullptr);
}

TEST(ToolkitRuntime, ToolkitsOwnTextIsSetInOurFace) {
    const juce::SharedResourcePointer<ToolkitRuntime> runtime;
    juce::LookAndFeel& look = runtime->lookAndFeel();
    EXPECT_EQ(&look, &juce::LookAndFeel::getDefaultLookAndFeel());
    const juce::Font font = look.getTypefaceForFont({}) ? juce::Font().withPointHeight(20) : juce::Font();
    EXPECT_NEAR(font.getStringWidthFloat("W"), TextMetrics::current().width(sample), 0.01);
}

TEST(ToolkitRuntime, ToolkitHasItsOwnLookBackAfterwards) {
    {
        const juce::SharedResourcePointer<ToolkitRuntime> runtime;
        runtime->lookAndFeel();
    }
    EXPECT_EQ(dynamic_cast<ToolkitLookAndFeel*>(&juce::LookAndFeel::getDefaultLookAndFeel()), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
