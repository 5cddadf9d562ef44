#include "PlayingPlugins.h"

#include "description/Presets.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "toolkit/ContentHolder.h"

#include <chrono>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr int blockFrames = 256, rateHz = 48000;

class EditorWindow final : public juce::DocumentWindow {
public:
    explicit EditorWindow(juce::AudioProcessorEditor& editor)
        : juce::DocumentWindow("soak", juce::Colours::black, closeButton) {
        setUsingNativeTitleBar(true);
        setContentOwned(new ContentHolder(editor), true);
        setVisible(true);
    }
};

std::size_t below(PlayingPlugins::Random& random, std::size_t bound) {
    return random() % bound;
}

} // namespace

PlayingPlugins::PlayingPlugins(std::size_t count, Editors editors) : editors_(editors), plugins_(count) {
    for (const Plugin& plugin : plugins_) {
        plugin.processor->setPlayConfigDetails(2, 2, rateHz, blockFrames);
        plugin.processor->prepareToPlay(rateHz, blockFrames);
    }
    thread_ = std::thread([this] { play(); });
}

PlayingPlugins::~PlayingPlugins() {
    closeAll();
    isDone_ = true;
    thread_.join();
}

// At the pace of the sound, so that the main thread has the processor too.
void PlayingPlugins::play() {
    const auto pace = std::chrono::microseconds(1000000LL * blockFrames / rateHz);
    juce::AudioBuffer<float> buffer(2, blockFrames);
    juce::MidiBuffer midi;
    for (auto next = std::chrono::steady_clock::now(); !isDone_; next += pace) {
        for (const Plugin& plugin : plugins_) {
            for (int channel = 0; channel < 2; ++channel)
                for (int i = 0; i < blockFrames; ++i)
                    buffer.setSample(channel, i, 0.5f * std::sin(0.02f * static_cast<float>(i)));
            plugin.processor->processBlock(buffer, midi);
        }
        ++blocks_;
        std::this_thread::sleep_until(next);
    }
}

void PlayingPlugins::open(std::size_t at) {
    Plugin& plugin = plugins_[at];
    if (plugin.editor) return;
    plugin.editor = std::make_unique<SlantwiseEditor>(*plugin.processor);
    if (editors_ == Editors::inWindows) plugin.window = std::make_unique<EditorWindow>(*plugin.editor);
}

void PlayingPlugins::close(std::size_t at) {
    plugins_[at].window.reset();
    plugins_[at].editor.reset();
}

void PlayingPlugins::closeAll() {
    for (std::size_t at = 0; at < plugins_.size(); ++at)
        close(at);
}

// Left in mid-air as often as not: an editor may be closed at any moment.
void PlayingPlugins::drag(SlantwiseEditor& editor, Random& random) {
    Event event;
    event.clickCount = 1;
    event.timestamp = RunLoop::main().now();
    event.locationInWindow = {static_cast<double>(below(random, 480)), static_cast<double>(below(random, 320))};
    event.type = EventType::mouseDown;
    editor.window().sendEvent(event);
    event.type = EventType::mouseDragged;
    for (int i = 0; i < 3; ++i) {
        event.locationInWindow.x += static_cast<double>(below(random, 41)) - 20;
        editor.window().sendEvent(event);
    }
    event.type = EventType::mouseUp;
    if (below(random, 2) == 0) editor.window().sendEvent(event);
}

void PlayingPlugins::disturb(std::size_t at, Random& random) {
    if (!isOpen(at)) return;
    SlantwiseProcessor& processor = *plugins_[at].processor;
    QVMGenericUI& ui = editor(at).view().ui();
    const auto pid = static_cast<std::uint32_t>(below(random, QVMParameterCount));
    juce::MemoryBlock state;
    switch (below(random, 9)) {
    case 0:
        return processor.parameter(pid).setValue(static_cast<float>(below(random, 256)) / 255);
    case 1:
        return processor.setCurrentProgram(static_cast<int>(below(random, QVMPresetCount)));
    case 2:
        processor.getStateInformation(state);
        return processor.setStateInformation(state.getData(), static_cast<int>(state.getSize()));
    case 3:
        ui.keyboard().keyboardShortcutTogglePresetDrawer();
        return;
    case 4:
        return ui.gearTapped();
    case 5:
        ui.keyboard().keyboardShortcutUndo();
        return;
    case 6:
        ui.keyboard().keyboardShortcutToggleTheme();
        return;
    default:
        return drag(editor(at), random);
    }
}

} // namespace QVM_NAMESPACE
