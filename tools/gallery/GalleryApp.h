// The gallery as a program: its view in a window of the toolkit, or off screen where there is no display.
#pragma once

#include "platform/DelayedCall.h"
#include "tools/gallery/GalleryOptions.h"
#include "tools/gallery/StereoFeed.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace QVM_NAMESPACE {

class GalleryView;
class WindowComponent;

class GalleryApp final : public juce::JUCEApplicationBase {
public:
    GalleryApp();
    ~GalleryApp() override;

    // Parsed by main() before the toolkit starts.
    static void setOptions(GalleryOptions options);

    const juce::String getApplicationName() override { return "slantwise-gallery"; }
    const juce::String getApplicationVersion() override { return {}; }
    bool moreThanOneInstanceAllowed() override { return true; }
    void initialise(const juce::String&) override;
    void shutdown() override;
    void anotherInstanceStarted(const juce::String&) override {}
    void systemRequestedQuit() override { quit(); }
    void suspended() override {}
    void resumed() override {}
    void unhandledException(const std::exception*, const juce::String&, int) override {}

private:
    class GalleryWindow;

    // Ends the program with a message on the error stream.
    void fail(const std::string& message);
    // Null, with the program ended, when the file cannot be read.
    std::unique_ptr<StereoFeed> makeFeed();
    // False, with the program ended, when there is nothing to show.
    bool openView();
    // Shows the page to nobody for as long as it was asked for, writes it and ends the program.
    void writeScreenshot();

    std::unique_ptr<StereoFeed> feed_;
    std::unique_ptr<WindowComponent> component_;
    std::unique_ptr<GalleryWindow> window_;
    DelayedCall quitCall_;
};

} // namespace QVM_NAMESPACE
