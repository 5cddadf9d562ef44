#include "plugin/standalone/StandaloneApp.h"

#include "description/Description.h"
#include "editor/EditorLayout.h"
#include "editor/QVMGenericUI.h"
#include "editor/QVMKeyboardHandler.h"
#include "host/QVM0015_CocoaView2.h"
#include "platform/juce/Screenshot.h"
#include "plugin/standalone/EditorHolder.h"
#include "theme/QVMUITheme.h"

#include <cstdio>

namespace QVM_NAMESPACE {

namespace {

constexpr double fallbackSampleRateHz = 48000;

Options& options() {
    static Options parsed;
    return parsed;
}

bool hasDisplay() {
    return juce::Desktop::getInstance().getDisplays().getPrimaryDisplay() != nullptr;
}

} // namespace

class StandaloneApp::EditorWindow final : public juce::DocumentWindow {
public:
    EditorWindow(juce::AudioProcessorEditor& editor, double scale)
        : juce::DocumentWindow("Slantwise", juce::Colours::black, closeButton | minimiseButton) {
        setUsingNativeTitleBar(true);
        setWantsKeyboardFocus(false); // what is in it has the keyboard from the start
        if (scale > 0) editor.setScaleFactor(static_cast<float>(scale));
        setContentOwned(new EditorHolder(editor), true);
        setResizable(false, false);
        centreWithSize(getWidth(), getHeight());
        setVisible(true);
    }
    void closeButtonPressed() override { JUCEApplicationBase::quit(); }
};

StandaloneApp::StandaloneApp() = default;

StandaloneApp::~StandaloneApp() = default;

void StandaloneApp::setOptions(Options parsed) {
    options() = std::move(parsed);
}

const juce::String StandaloneApp::getApplicationVersion() {
    return versionText();
}

void StandaloneApp::fail(const std::string& message, int exitStatus) {
    std::fprintf(stderr, "Slantwise: %s\n", message.c_str());
    setApplicationReturnValue(exitStatus);
    quit();
}

void StandaloneApp::initialise(const juce::String&) {
    const bool display = hasDisplay();
    if (!display && options().screenshotFile.empty() && !options().quitAfterSeconds) {
        return fail("there is no display; set DISPLAY, or write a picture with --screenshot FILE", 1);
    }
    AudioClip clip = pinkNoise(fallbackSampleRateHz);
    if (!options().playFile.empty()) {
        auto read = readAudioFile(options().playFile);
        if (const auto* error = std::get_if<AudioFileError>(&read)) return fail(error->message, 1);
        clip = std::get<AudioClip>(std::move(read));
    }

    processor_ = std::make_unique<SlantwiseProcessor>();
    player_ = std::make_unique<LoopPlayer>(*processor_, std::move(clip));
    editor_ = std::make_unique<SlantwiseEditor>(*processor_, WindowComponent::Embedding::ownWindow);
    if (options().theme == Options::Theme::dark) editor_->view().ui().toggleUITheme();
    applyLayout();
    applyPreset();
    applySettings();
    if (display) openWindow();
    if (!options().screenshotFile.empty()) {
        screenshotCall_.schedule(options().afterSeconds, [this] { writeScreenshot(); });
    }
    if (options().quitAfterSeconds) {
        quitCall_.schedule(*options().quitAfterSeconds, [] { JUCEApplicationBase::quit(); });
    }
}

void StandaloneApp::shutdown() {
    screenshotCall_.cancel();
    quitCall_.cancel();
    window_.reset();
    editor_.reset();
    player_.reset();
    processor_.reset();
}

void StandaloneApp::applyPreset() {
    if (!options().presetIndex) return;
    const auto& name = GetPresets()->stringValues[static_cast<std::size_t>(*options().presetIndex)];
    editor_->view().requestPresetNamed(name);
}

void StandaloneApp::applyLayout() {
    switch (options().layout) {
    case Options::Layout::normal:
        return;
    case Options::Layout::wide:
        return editor_->view().ui().requestFrame(QVMAltFrameDoubleWide);
    case Options::Layout::compact:
        return editor_->view().ui().requestFrame(QVMAltFrameCompact);
    }
}

void StandaloneApp::applySettings() {
    if (!options().settings.empty()) editor_->view().ui().keyboard().applyURLEncodedPreset(options().settings);
}

void StandaloneApp::openWindow() {
    window_ = std::make_unique<EditorWindow>(*editor_, options().scale);
}

void StandaloneApp::writeScreenshot() {
    const double scale = options().scale > 0 ? options().scale : editor_->window().backingScaleFactor();
    if (!writePng(renderWindowToImage(editor_->window(), scale), options().screenshotFile)) {
        return fail("cannot write \"" + options().screenshotFile + "\"", 1);
    }
    // With nothing else to wait for, the picture was all that was wanted.
    if (!options().quitAfterSeconds) quit();
}

} // namespace QVM_NAMESPACE
