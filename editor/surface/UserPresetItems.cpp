#include "editor/surface/UserPresetItems.h"

#include "editor/surface/EditorLayout.h"
#include "editor/surface/EditorMenuItem.h"
#include "editor/surface/ElidedText.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetsDrawer.h"
#include "theme/MenuText.h"
#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double nameWidth = 150, nameWidthInSmallWindow = 90; // points, of a preset's name within a row

// A name as long as anybody likes to type would make a menu that leaves no room for those that open from it.
std::string shortName(const QVMGenericUI& ui, const std::string& name) {
    const Font font = QVMUITheme::safeFontWithNameSize("HelveticaNeue-Medium", menuTextPoints);
    return elidedInMiddle(name, font, ui.altFrame() == QVMAltFrameCompact ? nameWidthInSmallWindow : nameWidth);
}

// The small window has no room for the list: it gives way.
void nameNewPreset(QVMGenericUI& ui) {
    QVMPresetsDrawer* const drawer = ui.presetDrawer();
    if (!drawer) return;
    if (ui.altFrame() == QVMAltFrameCompact) ui.requestFrame(QVMAltFrameNormal);
    if (!drawer->visible() && ui.altFrame() != QVMAltFrameCompact) ui.togglePresetsDrawer();
    drawer->beginNaming();
}

void tellDeleted(QVMGenericUI& ui) {
    ui.parts().showNotice("Deleted", "The menu can put it back");
}

void deleteCurrent(QVMGenericUI& ui) {
    if (ui.session().presets().removeCurrent()) tellDeleted(ui);
}

// One for each file that the list shows in grey; the small window has no list.
std::vector<MenuItem> damagedItems(QVMGenericUI& ui) {
    std::vector<MenuItem> items;
    if (ui.altFrame() == QVMAltFrameCompact) return items;
    for (const UserPresetEntry& entry : ui.session().presets().list().user().entries()) {
        if (entry.problem.empty() || !entry.text) continue;
        const auto deleteIt = [fileName = entry.fileName](QVMGenericUI& editor) {
            if (editor.session().presets().removeDamaged(fileName)) tellDeleted(editor);
        };
        items.push_back(menuItem(shortName(ui, entry.preset.name) + ": " + entry.problem, onEditor(ui, deleteIt)));
    }
    return items;
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
    items.push_back(menuItem("Save preset as...", onEditor(ui, &nameNewPreset)));
    const bool isUsers = presets.list().isUsers(presets.current());
    const std::string name = isUsers ? quoted(shortName(ui, presets.list().nameOf(presets.current()))) : std::string();
    items.push_back(menuItem("Delete" + name, onEditor(ui, &deleteCurrent), isUsers && mayHaveFile(presets)));
    if (auto damaged = damagedItems(ui); !damaged.empty())
        items.push_back(submenu("Delete damaged", std::move(damaged)));
    if (const auto removed = presets.list().user().removed())
        items.push_back(menuItem("Put back" + quoted(shortName(ui, *removed)), onEditor(ui, &putBack)));
    return items;
}

} // namespace QVM_NAMESPACE
