// The stand-alone program: one processor that plays a looping clip, and its editor in a window, or off screen where
// there is no display.
#pragma once

#include "plugin/SlantwiseEditor.h"
#include "plugin/standalone/LoopPlayer.h"
#include "plugin/standalone/Options.h"
#include "toolkit/ProgramWindow.h"
#include "toolkit/ToolkitProgram.h"

#include <memory>

namespace QVM_NAMESPACE {

class StandaloneApp final : public ToolkitProgram, private juce::KeyListener {
public:
    explicit StandaloneApp(Options options);
    ~StandaloneApp() override;

    void initialise(const juce::String&) override;
    void shutdown() override;

private:
    void applyLook();
    void applyLayout();
    void applyPreset();
    // Over the preset's: what the address does not name is at its initial value.
    void applySettings();
    void openWindow();
    // juce::KeyListener: F1, which in a host is the host's.
    bool keyPressed(const juce::KeyPress& key, juce::Component* component) override;
    void writeScreenshot();
    double pictureScale() const; // pixels a point

    const Options options_;
    std::unique_ptr<SlantwiseProcessor> processor_;
    std::unique_ptr<LoopPlayer> player_;
    std::unique_ptr<SlantwiseEditor> editor_;
    std::unique_ptr<ProgramWindow> window_;
    DelayedCall screenshotCall_, quitCall_;
};

} // namespace QVM_NAMESPACE
