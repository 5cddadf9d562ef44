#include "editor/surface/SizeMenu.h"

#include "editor/surface/QVMGenericUI.h"
#include "platform/view/Menu.h"

#include <cmath>
#include <string>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr float percent = 100, half = 0.5F; // percent that make no difference to the reader

MenuItem sizeItem(QVMGenericUI& ui, std::string title, bool isPresent, void (*choose)(EditorScale&, float),
                  float scale) {
    MenuItem made;
    made.title = std::move(title);
    made.checked = isPresent;
    made.action = [&ui, lifetime = ui.lifetime(), choose, scale] {
        if (!lifetime.expired()) choose(ui.scale(), scale);
    };
    return made;
}

} // namespace

MenuItem makeSizeMenu(QVMGenericUI& ui) {
    const EditorScale& scale = ui.scale();
    MenuItem menu;
    menu.title = "Size";
    for (const float step : EditorScale::steps) {
        const bool isPresent = !scale.fitsWindow() && std::abs(step - scale.current()) * percent < half;
        menu.submenu.push_back(sizeItem(
            ui, std::to_string(std::lround(step * percent)) + " %", isPresent,
            [](EditorScale& chosen, float to) { chosen.choose(to); }, step));
    }
    menu.submenu.push_back(sizeItem(
        ui, "Fits the window", scale.fitsWindow(), [](EditorScale& chosen, float) { chosen.fitWindow(); }, 1));
    return menu;
}

} // namespace QVM_NAMESPACE
