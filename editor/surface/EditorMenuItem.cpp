#include "editor/surface/EditorMenuItem.h"

#include "editor/surface/QVMGenericUI.h"

#include <utility>

namespace QVM_NAMESPACE {

MenuItem menuItem(std::string title, std::function<void()> action, bool enabled) {
    MenuItem made;
    made.title = std::move(title);
    made.action = std::move(action);
    made.enabled = enabled;
    return made;
}

MenuItem ticked(bool isTicked, MenuItem made) {
    made.checked = isTicked;
    return made;
}

MenuItem submenu(std::string title, std::vector<MenuItem> items) {
    MenuItem made;
    made.title = std::move(title);
    made.submenu = std::move(items);
    return made;
}

std::function<void()> onEditor(QVMGenericUI& ui, std::function<void(QVMGenericUI&)> action) {
    return [&ui, lifetime = ui.lifetime(), action = std::move(action)] {
        if (!lifetime.expired()) action(ui);
    };
}

} // namespace QVM_NAMESPACE
