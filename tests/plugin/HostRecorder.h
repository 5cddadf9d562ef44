// Writes down what a processor tells its host, in order: "begin 1", "value 1 0.5", "end 1".
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace slantwise_tests {

class HostRecorder final : private juce::AudioProcessorListener {
public:
    // The processor outlives the recorder.
    explicit HostRecorder(juce::AudioProcessor& processor) : processor_(processor) { processor_.addListener(this); }
    ~HostRecorder() override { processor_.removeListener(this); }

    std::vector<std::string> lines;
    int stateChanges = 0; // how often it said that what a session saves has changed

    // Without the values.
    std::vector<std::string> kinds() const { return kindsOf(lines); }
    static std::vector<std::string> kindsOf(std::vector<std::string> lines) {
        for (std::string& line : lines)
            line.resize(std::min(line.size(), line.find(' ', line.find(' ') + 1)));
        return lines;
    }

private:
    void audioProcessorParameterChanged(juce::AudioProcessor*, int index, float value) override {
        char text[64];
        std::snprintf(text, sizeof text, "value %d %.6g", index, static_cast<double>(value));
        lines.emplace_back(text);
    }
    void audioProcessorChanged(juce::AudioProcessor*, const ChangeDetails& details) override {
        stateChanges += details.nonParameterStateChanged;
    }
    void audioProcessorParameterChangeGestureBegin(juce::AudioProcessor*, int index) override {
        lines.push_back("begin " + std::to_string(index));
    }
    void audioProcessorParameterChangeGestureEnd(juce::AudioProcessor*, int index) override {
        lines.push_back("end " + std::to_string(index));
    }

    juce::AudioProcessor& processor_;
};

} // namespace slantwise_tests
