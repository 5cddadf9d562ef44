// What programs of ours have in common as programs of the toolkit.
#pragma once

#include "BuildNamespace.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <string>
#include <utility>

namespace QVM_NAMESPACE {

// Main thread, all of it. A program says in initialise() what it does and lets go of everything in shutdown().
class ToolkitProgram : public juce::JUCEApplicationBase {
public:
    // What the desktop calls it, and what whoever called it does, for messages.
    ToolkitProgram(std::string name, std::string calledAs) : name_(std::move(name)), calledAs_(std::move(calledAs)) {}

    // Makes a Program with the options, runs it until it quits and returns its exit status. Once a process.
    template <class Program, class Options>
    static int run(int argumentCount, char* arguments[], Options options) {
        static Options given; // the toolkit makes the program in a function that nothing can be handed to
        given = std::move(options);
        return run(argumentCount, arguments,
                   []() -> juce::JUCEApplicationBase* { return new Program(std::move(given)); });
    }

    const juce::String getApplicationName() override { return name_; }
    const juce::String getApplicationVersion() override { return {}; }
    bool moreThanOneInstanceAllowed() override { return true; }
    void anotherInstanceStarted(const juce::String&) override {}
    void systemRequestedQuit() override { quit(); }
    void suspended() override {}
    void resumed() override {}
    void unhandledException(const std::exception*, const juce::String&, int) override {}

protected:
    // A line on the error stream that begins with the program's name.
    void warn(const std::string& message) const;
    // The same, and ends the program with status 1.
    void fail(const std::string& message);
    // For a program that can write a picture in place of opening a window.
    void failForWantOfDisplay();

private:
    static int run(int argumentCount, char* arguments[], CreateInstanceFunction create);

    const std::string name_, calledAs_;
};

} // namespace QVM_NAMESPACE
