#include "editor/surface/ControlReports.h"

#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"

namespace QVM_NAMESPACE {

void ControlReports::parameterControlDidChangeInteractionStateEvent(QVMParameterControl& control, QVMInteraction state,
                                                                    const Event* event) {
    QVMKeyboardHandler& keyboard = ui_.keyboard();
    // The release of a double-click leaves the empty field that its press has opened.
    if (state != QVMInteractionEnded || !keyboard.numberBuffer().empty()) keyboard.clearNumberBuffer();
    // A range's gesture is performed, and reported, by its two ends.
    if (!ui_.controls().contains(&control)) return;
    const std::uint32_t pid = control.parameter()->pid;
    states_.at(pid) = state;
    QVMGenericUIDelegate* const delegate = ui_.delegate();
    switch (state) {
    case QVMInteractionBegan:
        if (delegate) delegate->interfaceBeganInteractionWithParameterKeyedEvent(ui_, pid, event);
        ui_.bringParameterControlIntoFocus(&control);
        break;
    case QVMInteractionEnded:
        if (delegate) delegate->interfaceEndedInteractionWithParameterKeyed(ui_, pid);
        ui_.potentiallySaveToUndoRedoStack();
        break;
    case QVMInteractionDiscrete:
        if (delegate) delegate->interfaceDiscretelyInteractedWithParameterKeyed(ui_, pid);
        break;
    }
}

void ControlReports::parameterControlHasRequestedDocumentation(QVMParameterControl& control) {
    ui_.openManualWithExtension("#" + control.parameter()->codesafeName);
}

void ControlReports::parameterControlDidTapMeaninglessly(QVMParameterControl& control) {
    if (!ui_.presetBar() || &control != ui_.presetBar()->presetControl()) return;
    ui_.bringParameterControlIntoFocus(ui_.drawers().arePresetsOpen() ? &control : nullptr);
    ui_.togglePresetsDrawer();
}

} // namespace QVM_NAMESPACE
