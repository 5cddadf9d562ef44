// What a host hears of the gestures on one unit: for each parameter begin, values and end, whatever was reported.
//
// The editor's controls report as they act: a value ahead of the "began" of its gesture, a "began" without an "ended"
// where a modifier made a reset of the press, values with neither from presets, from undo and of partners. The view
// sends all of that to the unit's listeners as it is. A host must hear gestures that begin once, hold every value and
// end; this is the listener that makes them of it, and nothing else knows which gestures are open.
//
// A gesture with no end of its own ends with the press that the window holds; while none is held, with the turn of the
// run loop in which it began, for what a key, a menu or a host asks for is done when that turn is.
#pragma once

#include "description/ParameterIDs.h"
#include "platform/audiounit/AudioUnitListeners.h"
#include "platform/runloop/DelayedCall.h"
#include "platform/runloop/NotificationCenter.h"

#include <bitset>
#include <cstdint>

namespace QVM_NAMESPACE {

class Window;

// Passes gestures on to a host. Main thread.
class GestureListener {
public:
    virtual ~GestureListener() = default;
    virtual void gestureBegan(std::uint32_t pid) = 0;
    // The value is the unit's.
    virtual void valueChanged(std::uint32_t pid) = 0;
    virtual void gestureEnded(std::uint32_t pid) = 0;
    // The last of the gestures that were open together has ended, and with them a value became another one: one edit of
    // the user's, however many parameters a preset, an undo or a partner made it. A click that leaves all as it is has
    // its begin, value and end, and is none.
    virtual void editEnded() = 0;
};

// Made and destroyed on any thread; the rest on the main thread. What others send is heard there too, later.
class GestureLedger {
public:
    // Both are borrowed and outlive the ledger. What is open when it goes is not ended: nobody listens any more.
    GestureLedger(AudioUnitInstance& unit, GestureListener& host);
    ~GestureLedger();
    GestureLedger(const GestureLedger&) = delete;
    GestureLedger& operator=(const GestureLedger&) = delete;

    // The presses of this window hold gestures from now on and until the token goes, which ends those that are open.
    // Both the window and the ledger outlive the token.
    [[nodiscard]] ObservationToken follow(const Window& window);

private:
    static void unitEvent(void* self, void* object, const AudioUnitEvent* event, float value);
    void report(AudioUnitEventType type, std::uint32_t pid);
    void begin(std::uint32_t pid);
    void end(std::uint32_t pid);
    void endAll();
    void endAllUnlessPressed();
    void unfollow(const Window& window);

    GestureListener& host_;
    AUEventListenerRef listener_ = nullptr;
    std::bitset<QVMParameterCount> isOpen_; // by pid
    bool isEdited_ = false;                 // a value became another one since the last edit ended
    const Window* window_ = nullptr;
    ObservationToken pressEnd_; // of the window
    DelayedCall turnEnd_;
};

} // namespace QVM_NAMESPACE
