// The number being typed, and the walk of the focus.
#include "controls/QVMParameterControl.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMKeyboardHandler.h"

namespace QVM_NAMESPACE {

namespace {

bool isUsable(const QVMParameterControl* control) {
    return control && control->primaryControl() && !control->primaryControl()->isDisabled();
}

} // namespace

bool QVMKeyboardHandler::appendToNumberBuffer(char32_t character) {
    if (!numberBuffer_.empty() && numberBuffer_.back() == 'k') return false;
    const char ascii = static_cast<char>(character);
    const bool isSeparator = ascii == '.' || ascii == ',';
    if (isSeparator && numberBuffer_.find(ascii) != std::string::npos) return false;
    numberBuffer_ += ascii;
    showNumberBuffer();
    return true;
}

bool QVMKeyboardHandler::deleteLastCharacterInNumberBuffer() {
    if (numberBuffer_.empty()) return false;
    numberBuffer_.pop_back();
    showNumberBuffer();
    return true;
}

bool QVMKeyboardHandler::sendCompletedNumberBuffer() {
    QVMParameterControl* control = focused();
    if (!control) return false;
    // The toggle counts as an interaction, which empties the buffer; what was typed stays typed.
    const std::string typed = numberBuffer_;
    if (control->toggleBooleanControl()) {
        numberBuffer_ = typed;
        return true;
    }
    if (!typed.empty()) control->setStringValue(typed);
    resetNumberBuffer(); // an empty field closes too
    return !typed.empty();
}

bool QVMKeyboardHandler::resetNumberBuffer() {
    numberBuffer_.clear();
    if (QVMParameterControl* control = focused()) QVMTransientBufferDisplayClear(control->primaryControl());
    return true;
}

void QVMKeyboardHandler::showNumberBuffer() {
    if (QVMParameterControl* control = focused()) control->setTransientStringValue(numberBuffer_);
}

bool QVMKeyboardHandler::tabToNextControlWithEvent(const Event& event) {
    return tabToNextControlWithDirection(event.has(EventModifier::shift) ? -1 : 1);
}

bool QVMKeyboardHandler::tabToNextControlWithDirection(int direction) {
    QVMParameterControl* control = focused();
    if (control && control->acceptsTransientStringBuffers()) sendCompletedNumberBuffer();
    ui_->bringParameterControlIntoFocus(adjacentParameterControlDirection(control, direction));
    ui_->revealFocusedControl();
    resetNumberBuffer();
    return true;
}

QVMParameterControl* QVMKeyboardHandler::adjacentParameterControlDirection(QVMParameterControl* control,
                                                                           int direction) const {
    const std::vector<std::string>& order = config_->metadata->tabOrder;
    if (order.empty() || static_cast<int>(ui_->getMemoizedPValueDirectly(0)) == 0) return nullptr;
    if (!control) return ui_->parameterControlWithCodename(order.front());
    if (!control->parameter()) return nullptr;

    const std::size_t count = order.size(), step = direction > 0 ? 1 : count - 1;
    std::size_t index = direction > 0 ? 0 : count - 1;
    bool passed = false;
    // Twice round is enough to come to the focused name a second time; a name that is not in the order never comes.
    for (std::size_t visits = 0; visits < 2 * count; ++visits, index = (index + step) % count) {
        if (order[index] == control->parameter()->codesafeName) {
            if (passed) return nullptr;
            passed = true;
            continue;
        }
        QVMParameterControl* candidate = passed ? ui_->parameterControlWithCodename(order[index]) : nullptr;
        if (isUsable(candidate) && ui_->canBeShown(*candidate)) return candidate;
    }
    return nullptr;
}

bool QVMKeyboardHandler::escapeFocusedControl() {
    resetNumberBuffer();
    if (!focused()) return ui_->hideAllDrawers();
    ui_->bringParameterControlIntoFocus(nullptr);
    return true;
}

} // namespace QVM_NAMESPACE
