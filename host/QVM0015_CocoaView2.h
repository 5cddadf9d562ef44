// The view that a host shows for one audio unit: it holds the editor and is all that the editor knows of the unit.
//
// Every request of the editor becomes a parameter set, a gesture notification or a private property here. Errors of the
// unit are never acted on; those of most calls leave one line in the log. Changes that the host makes do not come back
// through the listener, which exists only to mark the view's own changes: they reach the editor with the unit's values
// at display rate. What the user prefers of the interface is kept here, and given to each editor that is opened. Main
// thread only, no locks. The unit is borrowed and must outlive the view or its next binding.
#pragma once

#include "editor/surface/QVMGenericUIDelegate.h"
#include "platform/audiounit/AudioUnitListeners.h"
#include "platform/view/View.h"
#include "unit/PrivateProperties.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

class QVM0015_CocoaView2 final : public View, public QVMGenericUIDelegate {
public:
    static constexpr std::size_t parameterCount = 24;

    // Empty until it is bound. `frame` is in the superview's coordinates.
    explicit QVM0015_CocoaView2(const Rect& frame);
    // Tells the unit to close the visualisation, stops listening, and releases the editor.
    ~QVM0015_CocoaView2() override;

    // Binds to a unit: reads everything from it and builds an editor. An earlier unit and editor are let go first.
    void setAU(AudioUnit unit);
    AudioUnit audioUnit() const { return mAU; }
    // The editor, the only subview. Only once bound.
    QVMGenericUI& ui() { return *ui_; }

    // From the host, for the editor; nothing happens before the view is bound.
    void requestPresetNamed(const std::string& name);
    void setParameterValuePairs(const std::vector<std::pair<std::string, float>>& pairs);
    // Takes over what is kept in the unit besides the parameters, as it now is: after a state was restored there.
    // Values come by themselves, with the next frame.
    void adoptRestoredState();
    // The unit's value now, in the host domain; 0 when it has none.
    float valueForParameterID(AudioUnitParameterID pid) const;

private:
    // Binding and its undoing.
    void addListeners();
    void removeListeners();
    void createEditor();
    // The unit's values, in the shown domain and by pid.
    struct Values {
        std::array<float, parameterCount> shown{}; // inside the parameters' ranges
        std::array<float, parameterCount> held{};  // as the unit holds them
    };
    Values readParameters() const;
    void synchronise();
    void adoptAlternateState();
    void release();
    static void ParameterListenerDispatcher(void* view, void* object, const AudioUnitParameter* parameter, float value);
    // Deliberately empty, see above.
    void parameterListenerParameterValue(const AudioUnitParameter&, float) {}

    // `Value` has the property's exact size, also where it is a reference to something. A failed read leaves the value
    // as it was. NOLINTBEGIN(bugprone-sizeof-expression)
    template <class Value>
    OSStatus getProperty(AudioUnitPropertyID id, Value& value, AudioUnitScope scope = kAudioUnitScope_Global) const {
        std::uint32_t size = sizeof(Value);
        return AudioUnitGetProperty(mAU, id, scope, 0, &value, &size);
    }
    template <class Value>
    OSStatus setProperty(AudioUnitPropertyID id, const Value& value) const {
        return AudioUnitSetProperty(mAU, id, kAudioUnitScope_Global, 0, &value, sizeof(Value));
    }
    // NOLINTEND(bugprone-sizeof-expression)
    void notifyEventTypeForPid(AudioUnitEventType type, std::uint32_t pid);

    // QVMGenericUIDelegate
    void interfaceUpdatedParameterKeyedValue(std::uint32_t pid, float hostValue) override;
    void interfaceBeganInteractionWithParameterKeyedEvent(QVMGenericUI& ui, std::uint32_t pid,
                                                          const Event* event) override;
    void interfaceEndedInteractionWithParameterKeyed(QVMGenericUI& ui, std::uint32_t pid) override;
    void interfaceDiscretelyInteractedWithParameterKeyed(QVMGenericUI& ui, std::uint32_t pid) override;
    void interfaceDidUpdateCurrentPresetToValueNamedPid(QVMGenericUI& ui, const std::string& name,
                                                        std::uint32_t index) override;
    void interfaceWantsToSaveAlternateStateSettings(QVMGenericUI& ui, std::uint32_t state,
                                                    const std::string& settings) override;
    void interfaceWantsToSaveUIState(QVMGenericUI& ui, std::uint32_t state) override;
    void interfaceWantsToAssumeFrame(QVMGenericUI& ui, std::int32_t frame) override;
    SharedState* interfaceWantsVizRef(QVMGenericUI& ui) override;
    void interfaceHasReadiedVizRef(QVMGenericUI& ui, SharedState* vizRef) override;
    void interfaceWantsSampleRateMaxFrames(QVMGenericUI& ui, double& sampleRate, std::uint32_t& maxFrames) override;
    void interfaceWantsToResetMetering(QVMGenericUI& ui) override;
    void interfaceDidUpdateInterfacePreferenceValue(QVMGenericUI& ui, const std::string& key, double value) override;
    void interfaceShouldRequestUpdatedLayout(QVMGenericUI&) override {} // nothing here depends on preferences
    void interfaceWantsToUploadBufferAtURL(QVMGenericUI& ui, const std::string& path) override;

    AudioUnit mAU = nullptr;                                   // none until bound
    std::array<AudioUnitParameter, parameterCount> mParameter; // by pid
    AUParameterListenerRef mParameterListener = nullptr;
    QVMGenericUI* ui_ = nullptr; // owned as the subview

    // As last exchanged with the unit.
    std::string lastPreset_;
    std::string abSettings_;
    QVMABRecord abState_; // refers to abSettings_
    std::uint32_t uiState_ = 0;
    std::string addBuff_; // path of an audio file
};

} // namespace QVM_NAMESPACE
