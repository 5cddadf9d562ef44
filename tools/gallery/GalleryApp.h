// The gallery as a program: its view in a window of the toolkit, or off screen where there is no display.
#pragma once

#include "platform/runloop/DelayedCall.h"
#include "toolkit/ProgramWindow.h"
#include "toolkit/ToolkitProgram.h"
#include "tools/gallery/GalleryOptions.h"
#include "tools/gallery/StereoFeed.h"

#include <memory>

namespace QVM_NAMESPACE {

class GalleryView;
class WindowComponent;

class GalleryApp final : public ToolkitProgram {
public:
    explicit GalleryApp(GalleryOptions options);
    ~GalleryApp() override;

    void initialise(const juce::String&) override;
    void shutdown() override;

private:
    // A line at a time, so that whoever reads them sees them at once. Ends the program where nobody can.
    void printLine(const std::string& line);
    // Null, with the program ended, when the file cannot be read.
    std::unique_ptr<StereoFeed> makeFeed();
    // False, with the program ended, when there is nothing to show.
    bool openView();
    // Shows the page to nobody for as long as it was asked for, writes it and ends the program.
    void writeScreenshot();

    const GalleryOptions options_;
    bool isCutOff_ = false; // from its output
    std::unique_ptr<StereoFeed> feed_;
    std::unique_ptr<WindowComponent> component_;
    std::unique_ptr<ProgramWindow> window_;
    DelayedCall quitCall_;
};

} // namespace QVM_NAMESPACE
