// Listeners for parameter values and gestures, and the calls that tell them.
//
// A listener names the run loop it is called on. What is sent waits in the listener's queue: values of one parameter
// collapse into the latest one, but never across a gesture of that parameter, so a listener sees begin, value and end
// in the order in which they were sent. The registry behind this is one a process and takes locks: any thread may call
// except the render thread. A listener is created, called and disposed of on its run loop's thread.
#pragma once

#include "platform/audiounit/AudioUnit.h"
#include "platform/runloop/RunLoop.h"

namespace QVM_NAMESPACE {

enum AudioUnitEventType : std::uint32_t {
    kAudioUnitEvent_ParameterValueChange = 0,
    kAudioUnitEvent_BeginParameterChangeGesture = 1,
    kAudioUnitEvent_EndParameterChangeGesture = 2,
    // This system's own, ahead of the value change that AUParameterSet sends, where the unit held another value before.
    kQVMEvent_ParameterBecameAnother = 1000,
};

struct AudioUnitEvent {
    AudioUnitEventType mEventType = kAudioUnitEvent_ParameterValueChange;
    AudioUnitParameter mArgument;
    bool operator==(const AudioUnitEvent&) const = default;
};

// When a listener is called. `queued`: always from a later pass of its run loop. `immediate`: events sent on the run
// loop's own thread reach it before the sending call returns, along with whatever waits ahead of them; events sent
// elsewhere are queued. A plug-in shell passes gestures to its host this way.
enum class AUEventDelivery : unsigned char { queued, immediate };

// Handles are checked: one that was disposed of gives an error.
struct AUListener;
using AUParameterListenerRef = AUListener*;
using AUEventListenerRef = AUListener*;

using AUParameterListenerProc = void (*)(void* userData, void* object, const AudioUnitParameter* parameter,
                                         AudioUnitParameterValue value);
// `value` is the parameter's value when the event was sent.
using AUEventListenerProc = void (*)(void* userData, void* object, const AudioUnitEvent* event,
                                     AudioUnitParameterValue value);

// A listener for values. `notificationInterval` is the least time in seconds between two rounds of calls. The run loop
// is borrowed and outlives the listener.
OSStatus AUListenerCreate(AUParameterListenerProc proc, void* userData, RunLoop* runLoop, float notificationInterval,
                          AUParameterListenerRef* outListener);
// A listener for values and gestures. A gesture ends the wait for the interval.
OSStatus AUEventListenerCreate(AUEventListenerProc proc, void* userData, RunLoop* runLoop, float notificationInterval,
                               AUEventDelivery delivery, AUEventListenerRef* outListener);
// Either kind. It is not called again, not even with what was sent before.
OSStatus AUListenerDispose(AUListener* listener);

// Starts and ends listening for one parameter's values. `object` is handed to the callback and may be null; each
// object is told once a change. To add twice or to remove what was never added is no error.
OSStatus AUListenerAddParameter(AUParameterListenerRef listener, void* object, const AudioUnitParameter* parameter);
OSStatus AUListenerRemoveParameter(AUParameterListenerRef listener, void* object, const AudioUnitParameter* parameter);

// The same for one type of event of one parameter.
OSStatus AUEventListenerAddEventType(AUEventListenerRef listener, void* object, const AudioUnitEvent* event);
OSStatus AUEventListenerRemoveEventType(AUEventListenerRef listener, void* object, const AudioUnitEvent* event);

// Stores the value in the unit, then tells every listener of the parameter except the sending one, which may be null;
// also of a value that the unit held already, but that it became another one only where it did. With an error of the
// unit nobody is told. The sending listener alone decides who is left out, not the object.
OSStatus AUParameterSet(AUListener* sendingListener, void* sendingObject, const AudioUnitParameter* parameter,
                        AudioUnitParameterValue value, std::uint32_t bufferOffsetInFrames);

// Tells every listener of that event except the sending one, which may be null. Changes nothing in the unit, so that a
// parameter became another can't be told with it.
OSStatus AUEventListenerNotify(AUListener* sendingListener, void* sendingObject, const AudioUnitEvent* event);

// For the destructor of a unit: no listener hears of it any more.
void AUListenersForgetUnit(const AudioUnitInstance* unit);

} // namespace QVM_NAMESPACE
