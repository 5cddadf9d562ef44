#include "editor/surface/DesktopRequests.h"

#include "editor/surface/QVMGenericUI.h"
#include "platform/system/Workspace.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* addressIsCopied = "The address of all settings is in the clipboard";

// `remedy` is what the user can do in place of the browser, which may be found missing when the editor has gone.
void openOrSay(QVMGenericUI& ui, const std::string& address, std::string remedy) {
    Workspace::current().openUrl(address, [&ui, lifetime = ui.lifetime(), remedy = std::move(remedy)] {
        if (!lifetime.expired()) ui.parts().showNotice("No browser could be started", remedy);
    });
}

} // namespace

void copySettings(QVMGenericUI& ui) {
    ui.session().settings().copy();
    ui.parts().showNotice("Copied", addressIsCopied);
}

void openSettings(QVMGenericUI& ui) {
    copySettings(ui);
    openOrSay(ui, ui.session().settings().address(), addressIsCopied);
}

void openManual(QVMGenericUI& ui, const std::string& address) {
    openOrSay(ui, address, "The manual is " + Workspace::current().fileOpenedFor(address).value_or(address));
}

void openPage(QVMGenericUI& ui, const std::string& address) {
    openOrSay(ui, address, "The page is " + address);
}

} // namespace QVM_NAMESPACE
