// What the command lines of all programs are made of.
#pragma once

#include "program/CommandLine.h"

#include <CLI/CLI.hpp>

#include <string>

namespace QVM_NAMESPACE {

// A program's command line: what it says goes to the options, which live as long.
template <class Options>
class OptionsLine {
public:
    // --help is an option like the others, so that what stands beside it is still looked at.
    OptionsLine(Options& options, const std::string& whatItDoes) : app(whatItDoes), options_(options) {
        app.set_help_flag();
    }

    CLI::App app;

protected:
    // An option whose value `set` applies; it answers what is wrong with it, or nothing.
    void add(const OptionText& text, std::string (*set)(Options&, const std::string&)) {
        addOption(app, text, [this, set](const std::string& value) { return set(options_, value); });
    }

    Options& options_;
};

} // namespace QVM_NAMESPACE
