// Undo, redo and the comparison of two sides, as far as they can be seen or heard of.
#include "controls/QVMSymbolButton.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"
#include "platform/view/Window.h"

namespace QVM_NAMESPACE {

// By what is held, whoever was told of it: a reset by a modifier is never reported to have ended.
bool QVMGenericUI::isGestureUnderWay() const {
    if (!window()) return false;
    const View* pressed = window()->mouseCapture();
    while (pressed && !dynamic_cast<const QVMParameterControl*>(pressed))
        pressed = pressed->superview();
    return pressed || window()->isKeyHeld();
}

void QVMGenericUI::syncUndoRedoButtonsToStackState() {
    if (!presetBar_) return;
    presetBar_->undo().setButtonEnabled(session_.history().stack().canUndo());
    presetBar_->redo().setButtonEnabled(session_.history().stack().canRedo());
}

void QVMGenericUI::sideDidChange(std::uint32_t side, SideMove move) {
    if (!presetBar_) return;
    presetBar_->ab().updatePositionAnimated(side, move == SideMove::glides ? Animate::yes : Animate::no);
}

// Every button switches sides, also the letter of the side that is active.
void QVMGenericUI::abControlChangeTriggeredByButton(QVMABControl& control, std::uint32_t button) {
    using Copy = ABComparison::Copy;
    const auto left = session_.comparison().flip(button == QVMABButtonArrow ? Copy::yes : Copy::no);
    bringParameterControlIntoFocus(&control);
    if (delegate_) delegate_->interfaceWantsToSaveAlternateStateSettings(*this, left.side, left.settings);
}

} // namespace QVM_NAMESPACE
