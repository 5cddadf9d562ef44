// Keeps the press that opens a menu from choosing in it.
//
// The menu comes up under the pointer of a button that is held, and the toolkit takes the release over a row for a
// choice. Who only presses and lets go has chosen nothing; who draws the pointer to a row and lets go there has.
#pragma once

#include "platform/runloop/DelayedCall.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

// Main thread.
class MenuShield {
public:
    // From now on, if a button is held, the menu's window does not see the pointer: until the button is up or the
    // pointer was moved as in a drag. It may be closed meanwhile.
    void protect(juce::Component& menu);

private:
    void look();

    juce::Component::SafePointer<juce::Component> menu_;
    DelayedCall look_;
};

} // namespace QVM_NAMESPACE
