// The stand-alone program as a user starts it where there is no display.
#pragma once

#include "platform/surface/Image.h"
#include "plugin/standalone/AudioFiles.h"
#include "support/ShellCommand.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>

namespace QVM_NAMESPACE {

class ProgramFixture : public testing::Test {
protected:
    using Outcome = slantwise_tests::CommandResult;

    // A command of the shell in which $P is the program.
    static Outcome runShell(const std::string& command) {
        return slantwise_tests::runToolkitProgram("unset DISPLAY; P='timeout 20 " SLANTWISE_STANDALONE "'; " + command);
    }
    static Outcome run(const std::string& arguments) { return runShell("$P " + arguments); }
    // A picture that it wrote, or null.
    static std::shared_ptr<const Image> picture(const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        return Image::fromPng(std::as_bytes(std::span(bytes)));
    }
    std::string tone() const {
        std::vector<float> samples;
        for (int i = 0; i < 9600; ++i)
            samples.push_back(0.25f * std::sin(0.06f * static_cast<float>(i)));
        return directory_.audio("tone.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, samples);
    }

    audiofiles::Directory directory_;
};

} // namespace QVM_NAMESPACE
