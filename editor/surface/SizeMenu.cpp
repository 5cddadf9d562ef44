#include "editor/surface/SizeMenu.h"

#include "editor/surface/EditorMenuItem.h"
#include "editor/surface/QVMGenericUI.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr float percent = 100, half = 0.5F; // percent that make no difference to the reader

using Choice = std::function<void(EditorScale&)>;

MenuItem sizeItem(QVMGenericUI& ui, std::string title, Choice choose, bool enabled = true) {
    return menuItem(std::move(title),
                    onEditor(ui, [choose = std::move(choose)](QVMGenericUI& editor) { choose(editor.scale()); }),
                    enabled);
}

MenuItem stepItem(QVMGenericUI& ui, std::string title, int direction) {
    const float current = ui.scale().current();
    const bool enabled = direction > 0 ? current < EditorScale::greatest : current > EditorScale::least;
    return sizeItem(
        ui, std::move(title), [direction](EditorScale& scale) { scale.step(direction); }, enabled);
}

bool isPresent(const EditorScale& present, float scale) {
    return std::abs(scale - present.current()) * percent < half;
}

// A row for each of the scales, which ascend, and between them one for the present scale where it is none of them: a
// size that was made by hand.
std::vector<MenuItem> scaleItems(QVMGenericUI& ui, const std::string& before, std::vector<float> scales) {
    const EditorScale& present = ui.scale();
    const bool fits = present.fitsWindow();
    if (!fits && std::ranges::none_of(scales, [&](float scale) { return isPresent(present, scale); }))
        scales.insert(std::ranges::upper_bound(scales, present.current()), present.current());
    std::vector<MenuItem> items;
    items.reserve(scales.size());
    for (const float scale : scales)
        items.push_back(ticked(!fits && isPresent(present, scale),
                               sizeItem(ui, before + std::to_string(std::lround(scale * percent)) + " %",
                                        [scale](EditorScale& chosen) { chosen.choose(scale); })));
    return items;
}

} // namespace

std::vector<MenuItem> sizeItems(QVMGenericUI& ui) {
    const MenuItem fits =
        ticked(ui.scale().fitsWindow(), sizeItem(ui, "Fits the window", [](EditorScale& scale) { scale.fitWindow(); }));
    if (ui.altFrame() == QVMAltFrameCompact) {
        std::vector<MenuItem> items = {stepItem(ui, "Larger", 1), stepItem(ui, "Smaller", -1)};
        for (MenuItem& size : scaleItems(ui, "Size ", {1}))
            items.push_back(std::move(size));
        items.push_back(fits);
        return items;
    }
    std::vector<MenuItem> sizes = scaleItems(ui, "", {EditorScale::steps.begin(), EditorScale::steps.end()});
    sizes.push_back(fits);
    return {submenu("Size", std::move(sizes))};
}

} // namespace QVM_NAMESPACE
