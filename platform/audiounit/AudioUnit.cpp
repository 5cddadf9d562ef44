#include "platform/audiounit/AudioUnit.h"

#include "platform/audiounit/AudioUnitListeners.h"

namespace QVM_NAMESPACE {

AudioUnitInstance::~AudioUnitInstance() {
    AUListenersForgetUnit(this);
}

OSStatus AudioUnitGetParameter(AudioUnit unit, AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element,
                               float* outValue) {
    if (!unit || !outValue) return kAudio_ParamError;
    return unit->getParameter(id, scope, element, outValue);
}

OSStatus AudioUnitSetParameter(AudioUnit unit, AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element,
                               float value, std::uint32_t bufferOffsetInFrames) {
    if (!unit) return kAudio_ParamError;
    return unit->setParameter(id, scope, element, value, bufferOffsetInFrames);
}

OSStatus AudioUnitGetProperty(AudioUnit unit, AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                              void* outData, std::uint32_t* ioSize) {
    if (!unit || !outData || !ioSize) return kAudio_ParamError;
    AudioUnitPropertyInfo info;
    if (const OSStatus status = unit->propertyInfo(id, scope, element, &info)) return status;
    if (!info.readable) return kAudioUnitErr_PropertyNotInUse;
    if (*ioSize != info.size) return kAudioUnitErr_InvalidPropertyValue;
    return unit->getProperty(id, scope, element, outData);
}

OSStatus AudioUnitSetProperty(AudioUnit unit, AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                              const void* data, std::uint32_t size) {
    if (!unit || !data) return kAudio_ParamError;
    AudioUnitPropertyInfo info;
    if (const OSStatus status = unit->propertyInfo(id, scope, element, &info)) return status;
    if (!info.writable) return kAudioUnitErr_PropertyNotWritable;
    if (size != info.size) return kAudioUnitErr_InvalidPropertyValue;
    return unit->setProperty(id, scope, element, data);
}

} // namespace QVM_NAMESPACE
