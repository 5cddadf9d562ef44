// The plug-in parameter and property interface: how an editor talks to the audio unit that it belongs to.
//
// The names are those that such interfaces have always had. A unit is an object in the same process, so a property may
// carry a reference. Units say what properties they have in `propertyInfo`; sizes and directions are checked here, once
// for all units. Nothing throws, and no bad handle, identifier or size does more than give an error. Parameter calls
// may come from any thread, the render thread included; property calls must not come from the render thread.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>

namespace QVM_NAMESPACE {

using OSStatus = std::int32_t;
using AudioUnitParameterID = std::uint32_t;
using AudioUnitParameterValue = float;
using AudioUnitPropertyID = std::uint32_t;
using AudioUnitScope = std::uint32_t;
using AudioUnitElement = std::uint32_t;

enum : AudioUnitScope {
    kAudioUnitScope_Global = 0,
    kAudioUnitScope_Input = 1,
    kAudioUnitScope_Output = 2,
};

enum : AudioUnitPropertyID {
    kAudioUnitProperty_SampleRate = 2,             // 64-bit float, Hz
    kAudioUnitProperty_MaximumFramesPerSlice = 14, // unsigned 32-bit, frames
};

enum : OSStatus {
    noErr = 0,
    kAudio_ParamError = -50, // a handle or pointer is missing
    kAudioUnitErr_InvalidProperty = -10879,
    kAudioUnitErr_InvalidParameter = -10878,
    kAudioUnitErr_InvalidElement = -10877,
    kAudioUnitErr_FormatNotSupported = -10868,
    kAudioUnitErr_InvalidScope = -10866,
    kAudioUnitErr_PropertyNotWritable = -10865,
    kAudioUnitErr_InvalidPropertyValue = -10851, // also a value of the wrong size
    kAudioUnitErr_PropertyNotInUse = -10850,     // also a property that can only be set
};

// What a unit tells about one of its properties.
struct AudioUnitPropertyInfo {
    std::uint32_t size = 0; // bytes
    bool readable = false;
    bool writable = false;
};

// A unit. The functions below are what calls it; they have checked pointers, direction and size by then.
class AudioUnitInstance {
public:
    AudioUnitInstance() = default;
    // Ends every registration for this unit's parameters and drops what has not been delivered yet.
    virtual ~AudioUnitInstance();
    AudioUnitInstance(const AudioUnitInstance&) = delete;
    AudioUnitInstance& operator=(const AudioUnitInstance&) = delete;

    // Any thread, no locks. `value` is untouched when there is an error.
    virtual OSStatus getParameter(AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element,
                                  float* value) const = 0;
    // Any thread, no locks; the value is stored before the call returns.
    virtual OSStatus setParameter(AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element, float value,
                                  std::uint32_t bufferOffsetInFrames) = 0;

    // The error of an unknown property, scope or element, or noErr and what the property is like.
    virtual OSStatus propertyInfo(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                                  AudioUnitPropertyInfo* info) const = 0;
    // Fills exactly `info.size` bytes. Called for readable properties only.
    virtual OSStatus getProperty(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                                 void* data) = 0;
    // Reads exactly `info.size` bytes. Called for writable properties only.
    virtual OSStatus setProperty(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                                 const void* data) = 0;
};

// A handle is the unit itself, borrowed. Null is no unit.
using AudioUnit = AudioUnitInstance*;

// One parameter of one unit.
struct AudioUnitParameter {
    AudioUnit mAudioUnit = nullptr;
    AudioUnitParameterID mParameterID = 0;
    AudioUnitScope mScope = kAudioUnitScope_Global;
    AudioUnitElement mElement = 0;
    bool operator==(const AudioUnitParameter&) const = default;
};

OSStatus AudioUnitGetParameter(AudioUnit unit, AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element,
                               float* outValue);

// Stores the value and tells no listener: this is the host's way to automate. AUParameterSet also tells the listeners.
OSStatus AudioUnitSetParameter(AudioUnit unit, AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element,
                               float value, std::uint32_t bufferOffsetInFrames);

// `ioSize` holds the size of `outData` in bytes, which must be the property's own. Nothing is written on an error.
OSStatus AudioUnitGetProperty(AudioUnit unit, AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                              void* outData, std::uint32_t* ioSize);

// `size` must be the property's own. Nothing changes on an error.
OSStatus AudioUnitSetProperty(AudioUnit unit, AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                              const void* data, std::uint32_t size);

} // namespace QVM_NAMESPACE
