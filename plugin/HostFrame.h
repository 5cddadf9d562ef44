// The frame that a host gives an editor, which need not be the one that the editor asks for.
//
// A wrapper asks the host for another size and goes on as if it were granted. A host that refuses, or takes its time,
// leaves its window as it is: the editor would stick out of it, out of sight, or leave a part of it to nobody. So, a
// while after something was asked for, the host's window is looked at; what that gives is the frame, until it gives
// another. Only a window that held the editor and nothing else counts, as others have more in them.
#pragma once

#include "geometry/Geometry.h"
#include "platform/runloop/DelayedCall.h"
#include "toolkit/XConnection.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>

namespace QVM_NAMESPACE {

// Main thread. Sizes are in the editor's own units.
class HostFrame {
public:
    // Both are borrowed. The editor's parent, once it has one on the desktop, is the wrapper.
    HostFrame(juce::Component& editor, XConnection& connection) : editor_(editor), connection_(connection) {}

    // Gives the editor this size, of which the wrapper tells the host, and looks later what came of it.
    void ask(Size wanted);
    // A frame that the editor just got: whether the host gave it by itself. One that comes in answer to what was asked
    // for is none, nor is one that is as it was asked for. From then on it is what counts as asked for.
    bool takesAsHosts(Size frame);
    // While the host's frame is not what was asked for, looks now and then whether it has become another. With every
    // refresh of the window.
    void refresh();

private:
    bool isOnlyContent() const;
    juce::Component* wrapper() const;
    std::optional<Size> given() const;
    void look();
    void adopt(Size frame);

    juce::Component& editor_;
    XConnection& connection_;
    Size wanted_;
    bool wasOnlyContent_ = false;            // of the host's window, when the size was asked for
    bool isForced_ = false, isBusy_ = false; // busy: the editor's size is changed from here
    std::optional<double> lastAsk_;          // of somebody who could answer; both in seconds on the run loop's clock
    double lastLook_ = 0;
    DelayedCall lookCall_;
};

} // namespace QVM_NAMESPACE
