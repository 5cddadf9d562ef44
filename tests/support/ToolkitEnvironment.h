// The toolkit's message thread for every test of a program: one file of the program registers it.
#pragma once

#include "BuildNamespace.h"

#include <gtest/gtest.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdlib>
#include <optional>

namespace QVM_NAMESPACE {

// Which display the tests may take: none even where there is one, or none but the one that the program is given.
enum class TestDisplay : bool { none, given };

class ToolkitEnvironment final : public testing::Environment {
public:
    explicit ToolkitEnvironment(TestDisplay display) : display_(display) {}

private:
    void SetUp() override {
        // Without the variable the toolkit would try the first screen of the machine.
        setenv("DISPLAY", ":4711", display_ == TestDisplay::none ? 1 : 0);
        toolkit_.emplace();
    }
    void TearDown() override { toolkit_.reset(); }

    const TestDisplay display_;
    std::optional<juce::ScopedJuceInitialiser_GUI> toolkit_;
};

} // namespace QVM_NAMESPACE
