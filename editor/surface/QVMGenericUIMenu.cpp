// The context menu, and what is opened in the browser.
#include "editor/surface/QVMGenericUI.h"
#include "platform/system/Workspace.h"
#include "platform/view/Menu.h"

namespace QVM_NAMESPACE {

std::unique_ptr<Menu> QVMGenericUI::menuForEvent(const Event& event) {
    return menus_.menuForEvent(event);
}

std::unique_ptr<Menu> QVMGenericUI::menuForKeyboard() {
    return menus_.menuForKeyboard();
}

void QVMGenericUI::presetSaveTapped() {
    const std::string address = session_.settings().address();
    Workspace::current().openUrl(address);
    Workspace::current().setClipboardString(address);
}

void QVMGenericUI::openManualWithExtension(const std::string& extension) {
    Workspace::current().openUrl(session_.settings().baseAddress() + "/manual/" + extension);
}

} // namespace QVM_NAMESPACE
