// The context menu, and what is opened in the browser.
#include "editor/EditorMenu.h"
#include "editor/QVMGenericUI.h"
#include "editor/QVMKeyboardHandler.h"
#include "platform/Menu.h"
#include "platform/Workspace.h"

namespace QVM_NAMESPACE {

std::unique_ptr<Menu> QVMGenericUI::menuForEvent(const Event& event) {
    if (event.has(EventModifier::option) || event.has(EventModifier::command)) return nullptr;
    lastRightClickedControl_ = controlAtWindowPoint(event.locationInWindow);
    if (lastRightClickedControl_ && !lastRightClickedControl_->primaryControl()) lastRightClickedControl_ = nullptr;
    return makeEditorMenu(*this, lastRightClickedControl_);
}

void QVMGenericUI::presetSaveTapped() {
    const std::string address = keyboard_->currentParametersURLEncoded();
    Workspace::current().openUrl(address);
    Workspace::current().setClipboardString(address);
}

void QVMGenericUI::openManualWithExtension(const std::string& extension) {
    Workspace::current().openUrl(keyboard_->baseURLForPluginVersion() + "/manual/" + extension);
}

// The manual has an anchor for each parameter.
void QVMGenericUI::parameterControlHasRequestedDocumentation(QVMParameterControl& control) {
    openManualWithExtension("#" + control.parameter()->codesafeName);
}

} // namespace QVM_NAMESPACE
