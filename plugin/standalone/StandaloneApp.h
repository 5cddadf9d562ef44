// The stand-alone program: one processor that plays a looping clip, and its editor in a window, or off screen where
// there is no display.
#pragma once

#include "plugin/SlantwiseEditor.h"
#include "plugin/standalone/LoopPlayer.h"
#include "plugin/standalone/Options.h"

#include <memory>

namespace QVM_NAMESPACE {

class StandaloneApp final : public juce::JUCEApplicationBase {
public:
    StandaloneApp();
    ~StandaloneApp() override;

    // Parsed by main() before the toolkit starts.
    static void setOptions(Options options);

    const juce::String getApplicationName() override { return "Slantwise"; }
    const juce::String getApplicationVersion() override;
    bool moreThanOneInstanceAllowed() override { return true; }
    void initialise(const juce::String&) override;
    void shutdown() override;
    void anotherInstanceStarted(const juce::String&) override {}
    void systemRequestedQuit() override { quit(); }
    void suspended() override {}
    void resumed() override {}
    void unhandledException(const std::exception*, const juce::String&, int) override {}

private:
    class EditorWindow;

    // Ends the program with a message on the error stream.
    void fail(const std::string& message, int exitStatus);
    void applyLayout();
    void applyPreset();
    // Over the preset's: what the address does not name is at its initial value.
    void applySettings();
    void openWindow();
    void writeScreenshot();

    std::unique_ptr<SlantwiseProcessor> processor_;
    std::unique_ptr<LoopPlayer> player_;
    std::unique_ptr<SlantwiseEditor> editor_;
    std::unique_ptr<EditorWindow> window_;
    DelayedCall screenshotCall_, quitCall_;
};

} // namespace QVM_NAMESPACE
