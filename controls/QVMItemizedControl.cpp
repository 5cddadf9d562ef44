#include "controls/QVMItemizedControl.h"

#include "platform/view/Window.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

// How far around the background a click still means the menu, points.
constexpr double kMenuMarginX = 2, kMenuMarginY = 6;
// The menu opens this much after the press, seconds: the click is over by then.
constexpr double kPopupDelay = 0.01;

} // namespace

void QVMItemizedControl::handleMouseDownWithEventGranularities(const QVMEvent& event,
                                                               const QVMGranularities& granularities) {
    if (!includeCrementers()) return QVMCycleControl::handleMouseDownWithEventGranularities(event, granularities);
    if (bgFrame().insetBy(-kMenuMarginX, -kMenuMarginY).contains(event.point)) {
        popup_.schedule(kPopupDelay, [this, at = event.point] { popupItemizedOptions(at.y); });
    } else {
        cycleValueForward(event.point.x >= bounds().midX());
    }
}

void QVMItemizedControl::popupItemizedOptions(double y) {
    if (window()) window()->popUpMenu(itemMenu(), coordinates().toWindow(Point{bgFrame().minX(), y}));
}

std::unique_ptr<Menu> QVMItemizedControl::itemMenu() {
    auto menu = std::make_unique<Menu>();
    menu->title = parameter().labelString.empty() ? parameter().name : parameter().labelString;
    menu->standsOnChecked = true;
    float nextValue = parameter().minValue;
    for (const QVMHierarchyItem& item : parameter().hierarchy)
        menu->items.push_back(itemFor(item, nextValue));
    if (!parameter().hierarchy.empty()) return menu;
    const std::vector<std::string>& flat = parameter().flatHierarchy;
    for (const std::string& name : flat.empty() ? parameter().stringValues : flat)
        menu->items.push_back(itemFor(name, nextValue++));
    return menu;
}

MenuItem QVMItemizedControl::itemFor(const QVMHierarchyItem& item, float& nextValue) {
    if (item.children.empty()) {
        // The tree may be sorted for the reader; the flat list then says which value a name is.
        const std::vector<std::string>& flat = parameter().flatHierarchy;
        const auto place = std::ranges::find(flat, item.name);
        const float counted = nextValue++;
        return itemFor(item.name,
                       place == flat.end() ? counted : parameter().minValue + static_cast<float>(place - flat.begin()));
    }
    MenuItem group;
    group.title = item.name;
    for (const QVMHierarchyItem& child : item.children)
        group.submenu.push_back(itemFor(child, nextValue));
    return group;
}

MenuItem QVMItemizedControl::itemFor(const std::string& name, float value) {
    MenuItem item;
    item.title = name;
    item.enabled = parameter().allowsValue(value);
    item.checked = floatValue() == value;
    item.action = [self = std::weak_ptr<QVMItemizedControl*>(self_), value] {
        if (const auto control = self.lock()) (*control)->chooseValue(value);
    };
    return item;
}

void QVMItemizedControl::chooseValue(float value) {
    const bool forward = value >= floatValue();
    setFloatValue(value);
    reportInterfaceInitiatedValueChange();
    reportDiscreteInteraction();
    pulse(forward);
}

} // namespace QVM_NAMESPACE
