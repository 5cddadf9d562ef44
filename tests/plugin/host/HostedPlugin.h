// A plug-in bundle in a small host: one instance, processing silence now and then, and its editor in a real window.
// Everything happens on the main thread.
#pragma once

#include "plugin/HostRecorder.h"

#include <juce_audio_processors/juce_audio_processors.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace slantwise_tests {

enum class Format { vst3, lv2 };

class HostedPlugin {
public:
    // Loads the bundle of this build; `error` says why when there is no instance.
    explicit HostedPlugin(Format format);
    ~HostedPlugin();

    juce::AudioPluginInstance* instance() const { return instance_.get(); }
    const juce::String& error() const { return error_; }
    juce::AudioProcessorParameter& parameter(const char* name) const;
    // The open editor; null when there is none.
    juce::Component* editor() const { return editor_.get(); }
    HostRecorder& recorder() { return *recorder_; }

    void openEditor();
    void closeEditor();
    // Keys that the host's window got, by their names in the toolkit ("spacebar").
    const std::vector<std::string>& hostKeys() const { return hostKeys_; }
    void forgetHostKeys() { hostKeys_.clear(); }
    // Where a point of the editor is on the screen.
    juce::Point<int> onScreen(double x, double y) const;

    // Runs the host: messages, and a block of audio every few milliseconds.
    void run(double seconds);
    // The audio from now on: a square wave of this amplitude. Silence at first.
    void setAmplitude(float amplitude) { amplitude_ = amplitude; }
    // Runs until it is true; false when it is not within some seconds.
    bool runUntil(const std::function<bool()>& condition);

private:
    class EditorWindow;
    void step();

    std::unique_ptr<juce::AudioPluginFormat> format_;
    juce::String error_;
    std::unique_ptr<juce::AudioPluginInstance> instance_;
    std::unique_ptr<HostRecorder> recorder_;
    std::unique_ptr<juce::AudioProcessorEditor> editor_;
    std::unique_ptr<EditorWindow> window_;
    std::vector<std::string> hostKeys_;
    juce::AudioBuffer<float> buffer_;
    juce::MidiBuffer midi_;
    float amplitude_ = 0;
    double nextBlock_ = 0; // milliseconds
};

} // namespace slantwise_tests
