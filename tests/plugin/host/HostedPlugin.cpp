#include "plugin/host/HostedPlugin.h"

#include "toolkit/NativePeer.h"

namespace juce {
// The toolkit's own step of its message loop, which it declares in no public header.
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
} // namespace juce

namespace slantwise_tests {

namespace {

constexpr double fewestStepsASecond = 60; // that a host takes on any machine, or a second is longer
constexpr int blockFrames = 256, squareWaveFrames = 64;
constexpr double sampleRateHz = 48000, patienceSeconds = 15;

juce::PluginDescription describe(juce::AudioPluginFormat& format, Format kind) {
    juce::OwnedArray<juce::PluginDescription> found;
    if (kind == Format::vst3) {
        format.findAllTypesForFile(found, SLANTWISE_VST3);
    } else {
        format.searchPathsForPlugins(juce::FileSearchPath(SLANTWISE_LV2_FOLDER), false, false);
        format.findAllTypesForFile(found, SLANTWISE_LV2_URI);
    }
    return found.isEmpty() ? juce::PluginDescription() : *found.getFirst();
}

} // namespace

class HostedPlugin::EditorWindow final : public juce::DocumentWindow {
public:
    EditorWindow(juce::AudioProcessorEditor& editor, std::vector<std::string>& keys)
        : juce::DocumentWindow("Slantwise test host", juce::Colours::black, closeButton, false), keys_(keys) {
        // It comes to the screen once it has its size: the answers of a window manager that still places the first size
        // while the second one is asked for would take the toolkit back to the first.
        setUsingNativeTitleBar(true);
        setContentNonOwned(&editor, true);
        setTopLeftPosition(120, 120);
        addToDesktop();
        setVisible(true);
    }
    void closeButtonPressed() override {}
    bool keyPressed(const juce::KeyPress& key) override {
        keys_.push_back(key.getTextDescription().toStdString());
        return true;
    }

private:
    std::vector<std::string>& keys_;
};

HostedPlugin::HostedPlugin(Format format) : buffer_(2, blockFrames) {
    if (format == Format::vst3)
        format_ = std::make_unique<juce::VST3PluginFormat>();
    else
        format_ = std::make_unique<juce::LV2PluginFormat>();
    instance_ = format_->createInstanceFromDescription(describe(*format_, format), sampleRateHz, blockFrames, error_);
    if (!instance_) return;
    instance_->prepareToPlay(sampleRateHz, blockFrames);
    recorder_ = std::make_unique<HostRecorder>(*instance_);
    run(0.2);
}

HostedPlugin::~HostedPlugin() {
    closeEditor();
    recorder_.reset();
    if (instance_) instance_->releaseResources();
}

juce::AudioProcessorParameter& HostedPlugin::parameter(const char* name) const {
    for (auto* parameter : instance_->getParameters()) {
        if (parameter->getName(100) == name) return *parameter;
    }
    throw std::out_of_range(name);
}

void HostedPlugin::openEditor() {
    editor_.reset(instance_->createEditorIfNeeded());
    window_ = std::make_unique<EditorWindow>(*editor_, hostKeys_);
    runUntil([this] { return window_->isShowing() && editor_->getWidth() > 0; });
    run(0.3);
}

void HostedPlugin::closeEditor() {
    window_.reset();
    editor_.reset();
}

juce::Point<int> HostedPlugin::onScreen(double x, double y) const {
    return editor_->localPointToGlobal(juce::Point<double>(x, y).toFloat()).roundToInt();
}

void HostedPlugin::step() {
    // The toolkit's loop forgets events that it has read while it waited for an answer; the loops of most hosts don't.
    juce::exchangeEvents();
    if (!juce::dispatchNextMessageOnSystemQueue(true)) juce::Thread::sleep(1);
    const double now = juce::Time::getMillisecondCounterHiRes();
    if (now < nextBlock_) return;
    nextBlock_ = now + 1000 * blockFrames / sampleRateHz;
    for (int channel = 0; channel < buffer_.getNumChannels(); ++channel) {
        for (int i = 0; i < blockFrames; ++i)
            buffer_.setSample(channel, i, i % squareWaveFrames < squareWaveFrames / 2 ? amplitude_ : -amplitude_);
    }
    midi_.clear();
    instance_->processBlock(buffer_, midi_);
}

void HostedPlugin::run(double seconds) {
    const double end = juce::Time::getMillisecondCounterHiRes() + 1000 * seconds;
    for (double steps = 0; juce::Time::getMillisecondCounterHiRes() < end || steps < seconds * fewestStepsASecond;
         ++steps)
        step();
}

bool HostedPlugin::runUntil(const std::function<bool()>& condition) {
    const double end = juce::Time::getMillisecondCounterHiRes() + 1000 * patienceSeconds;
    while (!condition()) {
        if (juce::Time::getMillisecondCounterHiRes() > end) return false;
        step();
    }
    return true;
}

} // namespace slantwise_tests
