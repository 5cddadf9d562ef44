#include "editor/surface/SizeMenu.h"

#include "editor/surface/QVMGenericUI.h"
#include "platform/view/Menu.h"

#include <cmath>
#include <functional>
#include <string>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr float percent = 100, half = 0.5F; // percent that make no difference to the reader

MenuItem sizeItem(QVMGenericUI& ui, std::string title, bool isPresent, std::function<void(EditorScale&)> choose) {
    MenuItem made;
    made.title = std::move(title);
    made.checked = isPresent;
    made.action = [&ui, lifetime = ui.lifetime(), choose = std::move(choose)] {
        if (!lifetime.expired()) choose(ui.scale());
    };
    return made;
}

MenuItem stepItem(QVMGenericUI& ui, std::string title, int direction) {
    const float current = ui.scale().current();
    MenuItem made = sizeItem(ui, std::move(title), false, [direction](EditorScale& scale) { scale.step(direction); });
    made.enabled = direction > 0 ? current < EditorScale::greatest : current > EditorScale::least;
    return made;
}

MenuItem scaleItem(QVMGenericUI& ui, const std::string& before, float scale) {
    const bool isPresent = !ui.scale().fitsWindow() && std::abs(scale - ui.scale().current()) * percent < half;
    return sizeItem(ui, before + std::to_string(std::lround(scale * percent)) + " %", isPresent,
                    [scale](EditorScale& chosen) { chosen.choose(scale); });
}

} // namespace

std::vector<MenuItem> sizeItems(QVMGenericUI& ui) {
    MenuItem fits =
        sizeItem(ui, "Fits the window", ui.scale().fitsWindow(), [](EditorScale& scale) { scale.fitWindow(); });
    if (ui.altFrame() == QVMAltFrameCompact)
        return {stepItem(ui, "Larger", 1), stepItem(ui, "Smaller", -1), scaleItem(ui, "Size ", 1), std::move(fits)};
    MenuItem all;
    all.title = "Size";
    for (const float step : EditorScale::steps)
        all.submenu.push_back(scaleItem(ui, "", step));
    all.submenu.push_back(std::move(fits));
    return {std::move(all)};
}

} // namespace QVM_NAMESPACE
