// What stands between the platform and the toolkit while any editor or unit lives: the run loop's drive, the measuring
// of text, clipboard and browser, fonts, the look of menus and the connection to the display.
//
// Hold it as `juce::SharedResourcePointer<ToolkitRuntime>`: the first holder makes it, the last one ends it. No static
// owns any object of the toolkit, so that a host may unload the binary at any time.
#pragma once

#include "toolkit/FaceLibrary.h"
#include "toolkit/ToolkitLookAndFeel.h"
#include "toolkit/ToolkitRunLoopDriver.h"
#include "toolkit/ToolkitTextMetrics.h"
#include "toolkit/ToolkitWorkspace.h"
#include "toolkit/XConnection.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace QVM_NAMESPACE {

class ToolkitRuntime {
public:
    // The toolkit must be initialised, and stay so. Opens no display and reads no font.
    ToolkitRuntime();
    ~ToolkitRuntime();
    ToolkitRuntime(const ToolkitRuntime&) = delete;
    ToolkitRuntime& operator=(const ToolkitRuntime&) = delete;

    FaceLibrary& faces() { return faces_; }           // main thread
    XConnection& connection() { return connection_; } // main thread
    // The look of the toolkit's own windows. Give it to a component that is the root of some; made when first asked
    // for.
    ToolkitLookAndFeel& lookAndFeel();

private:
    FaceLibrary faces_;
    ToolkitTextMetrics metrics_{faces_};
    XConnection connection_;
    ToolkitWorkspace workspace_{connection_};
    ToolkitRunLoopDriver driver_;
    std::unique_ptr<ToolkitLookAndFeel> lookAndFeel_;
};

} // namespace QVM_NAMESPACE
