// What the editor asks of whoever connects it to the audio unit. The editor itself never touches the unit.
//
// All calls come on the main thread, with the calling editor first; but values come from the editor's session, which
// knows no editor. Parameter values are in the host domain.
#pragma once

#include "editor/session/EditorValuesDelegate.h"
#include "platform/view/Event.h"

#include <cstdint>
#include <string>

namespace QVM_NAMESPACE {

class QVMGenericUI;
struct SharedState;

class QVMGenericUIDelegate : public EditorValuesDelegate {
public:
    // A gesture began (the event is null when no input event caused it), ended, or was one discrete step.
    virtual void interfaceBeganInteractionWithParameterKeyedEvent(QVMGenericUI& ui, std::uint32_t pid,
                                                                  const Event* event) = 0;
    virtual void interfaceEndedInteractionWithParameterKeyed(QVMGenericUI& ui, std::uint32_t pid) = 0;
    virtual void interfaceDiscretelyInteractedWithParameterKeyed(QVMGenericUI& ui, std::uint32_t pid) = 0;

    // A preset became the current one. `index` is its number, not a parameter's.
    virtual void interfaceDidUpdateCurrentPresetToValueNamedPid(QVMGenericUI& ui, const std::string& name,
                                                                std::uint32_t index) = 0;

    // The A/B slot that was left (0 or 1) and its values, joined by ";".
    virtual void interfaceWantsToSaveAlternateStateSettings(QVMGenericUI& ui, std::uint32_t state,
                                                            const std::string& settings) = 0;

    // The layout changed; `state` is the word to give back to restoreUIState().
    virtual void interfaceWantsToSaveUIState(QVMGenericUI& ui, std::uint32_t state) = 0;

    // Resize to a layout variant (0 normal, 1 with the advanced drawer, 2 compact), then answer with
    // assumeAltFrameScaleChanged(). The editor never resizes itself.
    virtual void interfaceWantsToAssumeFrame(QVMGenericUI& ui, std::int32_t frame) = 0;

    // What the editor's drawing object shares with the unit: which one the unit has now, null for none; and that this
    // one may be lent to it. Borrowed: it is the drawing object's, and taken back before the editor goes.
    virtual SharedState* interfaceWantsVizRef(QVMGenericUI& ui) = 0;
    virtual void interfaceHasReadiedVizRef(QVMGenericUI& ui, SharedState* vizRef) = 0;

    // Fills in the unit's sample rate (hertz) and largest number of frames a render call.
    virtual void interfaceWantsSampleRateMaxFrames(QVMGenericUI& ui, double& sampleRate, std::uint32_t& maxFrames) = 0;

    virtual void interfaceWantsToResetMetering(QVMGenericUI& ui) = 0;

    // A preference of the interface changed here, for example "theme".
    virtual void interfaceDidUpdateInterfacePreferenceValue(QVMGenericUI& ui, const std::string& key, double value) = 0;
    // Preferences were saved; a layout that depends on them should be asked for again.
    virtual void interfaceShouldRequestUpdatedLayout(QVMGenericUI& ui) = 0;

    // Named by the contract and not used in this product: hands the unit the path of an audio file.
    virtual void interfaceWantsToUploadBufferAtURL(QVMGenericUI& ui, const std::string& path) = 0;
};

} // namespace QVM_NAMESPACE
