// The toolkit's message thread for every test of the program that lists this file. Needs no display, and takes none but
// the one that it is given.
#include <gtest/gtest.h>

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdlib>
#include <optional>

namespace {

class ToolkitEnvironment final : public testing::Environment {
    void SetUp() override {
        setenv("DISPLAY", "none", 0); // without the variable the toolkit would try the first screen of the machine
        toolkit_.emplace();
    }
    void TearDown() override { toolkit_.reset(); }
    std::optional<juce::ScopedJuceInitialiser_GUI> toolkit_;
};

[[maybe_unused]] testing::Environment* const environment = testing::AddGlobalTestEnvironment(new ToolkitEnvironment);

} // namespace
