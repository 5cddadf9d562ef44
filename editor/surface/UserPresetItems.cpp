#include "editor/surface/UserPresetItems.h"

#include "editor/surface/EditorLayout.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "platform/view/Menu.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

MenuItem itemOn(QVMGenericUI& ui, std::string title, void (*action)(QVMGenericUI&), bool enabled = true) {
    MenuItem made;
    made.title = std::move(title);
    made.enabled = enabled;
    made.action = [&ui, action, lifetime = ui.lifetime()] {
        if (!lifetime.expired()) action(ui);
    };
    return made;
}

// The small window has no room for the list: it gives way.
void nameNewPreset(QVMGenericUI& ui) {
    QVMPresetsDrawer* const drawer = ui.presetDrawer();
    if (!drawer) return;
    if (ui.altFrame() == QVMAltFrameCompact) ui.requestFrame(QVMAltFrameNormal);
    if (!drawer->visible() && ui.altFrame() != QVMAltFrameCompact) ui.togglePresetsDrawer();
    drawer->beginNaming();
}

void deleteCurrent(QVMGenericUI& ui) {
    if (ui.session().presets().removeCurrent()) ui.parts().showNotice("Deleted", "The menu can put it back");
}

void putBack(QVMGenericUI& ui) {
    ui.session().presets().putBackRemoved();
}

// As far as is known: a menu looks at no file.
bool mayHaveFile(const PresetSession& presets) {
    const UserPresets& user = presets.list().user();
    return !user.wasRefreshed() || user.find(presets.list().nameOf(presets.current()));
}

std::string quoted(const std::string& name) {
    return " \xE2\x80\x9C" + name + "\xE2\x80\x9D";
}

} // namespace

std::vector<MenuItem> userPresetItems(QVMGenericUI& ui) {
    const PresetSession& presets = ui.session().presets();
    if (!ui.config().presets) return {};
    std::vector<MenuItem> items;
    items.push_back(itemOn(ui, "Save preset as...", &nameNewPreset));
    const bool isUsers = presets.list().isUsers(presets.current());
    const std::string name = isUsers ? quoted(presets.list().nameOf(presets.current())) : std::string();
    items.push_back(itemOn(ui, "Delete" + name, &deleteCurrent, isUsers && mayHaveFile(presets)));
    if (const auto removed = presets.list().user().removed())
        items.push_back(itemOn(ui, "Put back" + quoted(*removed), &putBack));
    return items;
}

} // namespace QVM_NAMESPACE
