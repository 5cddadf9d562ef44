// What a value control tells its owner, beyond its action (which carries every value that the user makes).
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <map>

namespace QVM_NAMESPACE {

class QVMFloatControl;
class View;
struct Event;
struct QVMEvent;

// One gesture vocabulary for mouse, keys and typing alike.
enum QVMInteraction : std::uint8_t {
    QVMInteractionBegan = 0,
    QVMInteractionEnded = 1,
    QVMInteractionDiscrete = 2, // a change that is complete in itself
};

// Codes of the gestures that one control performs on others.
enum QVMMetaAction : std::int32_t {
    QVMMetaActionDown = 0,
    QVMMetaActionDragged = 1,
    QVMMetaActionUp = 2,
    QVMMetaActionReset = 3, // comes with no event
};

// Main thread. Events and other arguments are valid for the length of the call.
class QVMFloatControlDelegate {
public:
    virtual ~QVMFloatControlDelegate() = default;

    // `event` is the mouse event behind the change, null for a discrete one.
    virtual void floatControlInteractionDidChangeToEvent(QVMFloatControl& control, QVMInteraction state,
                                                         const Event* event) = 0;
    // `value` is the control's value without its fraction.
    virtual void floatControlWantsToPerformStaticConversion(QVMFloatControl& control, std::int32_t value) = 0;
    virtual void floatControlHasRequestedDocumentation(QVMFloatControl& control) = 0;
    virtual void floatControlDidPerformMetaActionWithEvent(QVMFloatControl& control, std::int32_t code,
                                                           const QVMEvent* event) = 0;
    // A click that changed nothing.
    virtual void floatControlDidTapMeaninglessly(QVMFloatControl& control) = 0;

    // Named by the contract and not used in this product: no control sends these. `values` by parameter identifier,
    // shown domain; `motion` is the pointer's way in points along the control's axis. The other asks for `modal` to be
    // shown over the editor.
    virtual void floatControlWantsToChangeMultipleValuesMotion(QVMFloatControl& control,
                                                               const std::map<std::uint32_t, float>& values,
                                                               double motion) = 0;
    virtual void floatControlWantsToDisplayModal(QVMFloatControl& control, View& modal) = 0;
};

} // namespace QVM_NAMESPACE
