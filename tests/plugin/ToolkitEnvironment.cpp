// The toolkit's message thread for every test of the program that lists this file. Needs no display.
#include <gtest/gtest.h>

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>

namespace {

class ToolkitEnvironment final : public testing::Environment {
    void SetUp() override { toolkit_.emplace(); }
    void TearDown() override { toolkit_.reset(); }
    std::optional<juce::ScopedJuceInitialiser_GUI> toolkit_;
};

[[maybe_unused]] testing::Environment* const environment = testing::AddGlobalTestEnvironment(new ToolkitEnvironment);

} // namespace
