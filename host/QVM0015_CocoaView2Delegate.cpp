// What the editor asks of the unit.
#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "host/UnitLog.h"
#include "preferences/PreferenceFile.h"

#include <cmath>

namespace QVM_NAMESPACE {

void QVM0015_CocoaView2::notifyEventTypeForPid(AudioUnitEventType type, std::uint32_t pid) {
    if (pid >= parameterCount) return;
    const AudioUnitEvent event{type, mParameter[pid]};
    logIfFailed("notify", AUEventListenerNotify(nullptr, this, &event));
}

void QVM0015_CocoaView2::interfaceUpdatedParameterKeyedValue(std::uint32_t pid, float hostValue) {
    if (pid >= parameterCount) return;
    logIfFailed("native ui set", AUParameterSet(mParameterListener, this, &mParameter[pid], hostValue, 0));
}

void QVM0015_CocoaView2::interfaceBeganInteractionWithParameterKeyedEvent(QVMGenericUI&, std::uint32_t pid,
                                                                          const Event*) {
    notifyEventTypeForPid(kAudioUnitEvent_BeginParameterChangeGesture, pid);
}

void QVM0015_CocoaView2::interfaceEndedInteractionWithParameterKeyed(QVMGenericUI&, std::uint32_t pid) {
    notifyEventTypeForPid(kAudioUnitEvent_ParameterValueChange, pid);
    notifyEventTypeForPid(kAudioUnitEvent_EndParameterChangeGesture, pid);
}

void QVM0015_CocoaView2::interfaceDiscretelyInteractedWithParameterKeyed(QVMGenericUI&, std::uint32_t pid) {
    notifyEventTypeForPid(kAudioUnitEvent_BeginParameterChangeGesture, pid);
    notifyEventTypeForPid(kAudioUnitEvent_ParameterValueChange, pid);
    notifyEventTypeForPid(kAudioUnitEvent_EndParameterChangeGesture, pid);
}

void QVM0015_CocoaView2::interfaceDidUpdateCurrentPresetToValueNamedPid(QVMGenericUI&, const std::string& name,
                                                                        std::uint32_t) {
    lastPreset_ = name;
    const std::string* reference = &lastPreset_;
    setProperty(kQVMProperty_PresetName, reference);
}

void QVM0015_CocoaView2::interfaceWantsToSaveAlternateStateSettings(QVMGenericUI&, std::uint32_t state,
                                                                    const std::string& settings) {
    abSettings_ = settings;
    abState_ = {state, 0, &abSettings_};
    setProperty(kQVMProperty_ABState, abState_);
}

void QVM0015_CocoaView2::interfaceWantsToSaveUIState(QVMGenericUI&, std::uint32_t state) {
    uiState_ = state;
    setProperty(kQVMProperty_InterfaceState, uiState_);
}

void QVM0015_CocoaView2::interfaceWantsToAssumeFrame(QVMGenericUI& ui, std::int32_t index) {
    const Size size = EditorLayoutForAltFrame(index).editor.size();
    // In single precision, where 1.15 times 480 is 552.
    const auto scaled = [scale = ui.currentScale()](double points) {
        return double{std::floor(static_cast<float>(points) * scale)};
    };
    setFrame({frame().x, frame().y, scaled(size.width), scaled(size.height)}, size);
    ui.assumeAltFrameScaleChanged(index, false);
}

SharedState* QVM0015_CocoaView2::interfaceWantsVizRef(QVMGenericUI&) {
    SharedState* vizRef = nullptr;
    logIfFailed("get-vizref", getProperty(kQVMProperty_VizRef, vizRef));
    return vizRef;
}

void QVM0015_CocoaView2::interfaceHasReadiedVizRef(QVMGenericUI&, SharedState* vizRef) {
    logIfFailed("vizCallback", setProperty(kQVMProperty_VizRef, vizRef));
}

void QVM0015_CocoaView2::interfaceWantsSampleRateMaxFrames(QVMGenericUI&, double& sampleRate,
                                                           std::uint32_t& maxFrames) {
    logIfFailed("sr", getProperty(kAudioUnitProperty_SampleRate, sampleRate, kAudioUnitScope_Input));
    logIfFailed("mf", getProperty(kAudioUnitProperty_MaximumFramesPerSlice, maxFrames));
}

void QVM0015_CocoaView2::interfaceWantsToResetMetering(QVMGenericUI&) {
    logIfFailed("tap the meter", setProperty(kQVMProperty_ResetMeters, std::uint32_t{1}));
}

void QVM0015_CocoaView2::interfaceDidUpdateInterfacePreferenceValue(QVMGenericUI& ui, const std::string& key,
                                                                    double value) {
    setProperty(kQVMProperty_InterfacePreference, std::uint8_t{value != 0});
    // What is reported need not be what the preference is now: a theme is reported as 1 whichever it is.
    if (const auto now = ui.preferences().value(key)) PreferenceFile::ofUser().remember(key, *now);
}

void QVM0015_CocoaView2::interfaceWantsToUploadBufferAtURL(QVMGenericUI&, const std::string& path) {
    addBuff_ = path;
    const std::string* reference = &addBuff_;
    setProperty(kQVMProperty_BufferPath, reference);
}

} // namespace QVM_NAMESPACE
