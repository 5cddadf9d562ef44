#include "plugin/standalone/StandaloneApp.h"

#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/KeysDrawer.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "theme/QVMUITheme.h"
#include "toolkit/Screenshot.h"
#include "toolkit/ToolkitWorkspace.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double noiseRateHz = 48000;

} // namespace

StandaloneApp::StandaloneApp(Options options)
    : ToolkitProgram("Slantwise", options.program), options_(std::move(options)) {}

StandaloneApp::~StandaloneApp() = default;

void StandaloneApp::initialise(const juce::String&) {
    const bool display = hasDisplay();
    if (!display && options_.screenshotFile.empty()) return failForWantOfDisplay();
    AudioClip clip;
    if (options_.playFile.empty()) {
        clip = pinkNoise(noiseRateHz);
    } else {
        auto read = readAudioFile(options_.playFile);
        if (const auto* error = std::get_if<AudioFileError>(&read)) return fail(error->message);
        clip = std::get<AudioClip>(std::move(read));
        if (clip.isDamaged) warn(damagedFileText(options_.playFile));
    }

    processor_ = std::make_unique<SlantwiseProcessor>();
    if (options_.scale > 0) processor_->setScaledByHost();
    player_ = std::make_unique<LoopPlayer>(*processor_, std::move(clip));
    editor_ = std::make_unique<SlantwiseEditor>(*processor_, WindowComponent::Embedding::ownWindow);
    applyLook();
    applyLayout();
    applyPreset();
    applySettings();
    if (display) openWindow();
    if (!options_.screenshotFile.empty()) {
        screenshotCall_.schedule(options_.afterSeconds, [this] { writeScreenshot(); });
    }
    if (options_.quitAfterSeconds) {
        quitCall_.schedule(*options_.quitAfterSeconds, [] { JUCEApplicationBase::quit(); });
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
    if (options_.preset.empty()) return;
    editor_->view().requestPresetNamed(options_.preset);
    // A preset that is asked for gets the keyboard, for the arrow keys to go on from it; here nobody has asked for
    // that.
    editor_->view().ui().bringParameterControlIntoFocus(nullptr);
}

// Over what is remembered, and not remembered in turn.
void StandaloneApp::applyLook() {
    QVMGenericUI& ui = editor_->view().ui();
    if (options_.theme != Options::Theme::asKept)
        ui.preferences().adopt("theme", options_.theme == Options::Theme::dark ? 1 : 0);
    if (options_.spectrum)
        ui.preferences().adopt(EditorSpectrum::preferenceKey, static_cast<double>(*options_.spectrum));
    if (options_.scale <= 0) return;
    ui.preferences().adopt(EditorScale::preferenceKey, 1);
    ui.requestFrame(ui.altFrame());
}

void StandaloneApp::applyLayout() {
    switch (options_.layout) {
    case Options::Layout::normal:
        return;
    case Options::Layout::wide:
        return editor_->view().ui().requestFrame(QVMAltFrameDoubleWide);
    case Options::Layout::compact:
        return editor_->view().ui().requestFrame(QVMAltFrameCompact);
    }
}

void StandaloneApp::applySettings() {
    if (!options_.settings.empty()) editor_->view().ui().keyboard().applyURLEncodedPreset(options_.settings);
}

void StandaloneApp::openWindow() {
    if (options_.scale > 0) editor_->setScaleFactor(static_cast<float>(options_.scale));
    window_ = std::make_unique<ProgramWindow>("Slantwise", *editor_, ProgramWindow::Resizing::yes);
    editor_->addKeyListener(this);
}

bool StandaloneApp::keyPressed(const juce::KeyPress& key, juce::Component*) {
    if (key != juce::KeyPress(juce::KeyPress::F1Key)) return false;
    toggleKeysDrawer(editor_->view().ui());
    return true;
}

double StandaloneApp::pictureScale() const {
    if (options_.scale > 0) return options_.scale;
    return window_ ? editor_->window().backingScaleFactor() : double{editor_->view().ui().currentScale()};
}

void StandaloneApp::writeScreenshot() {
    if (!writePng(renderWindowToImage(editor_->window(), pictureScale()), options_.screenshotFile)) {
        return fail("cannot write \"" + options_.screenshotFile + "\"");
    }
    // With nothing else to wait for, the picture was all that was wanted.
    if (!options_.quitAfterSeconds) quit();
}

} // namespace QVM_NAMESPACE
