#include "editor/keyboard/EditorFocus.h"

#include "description/ParameterIDs.h"
#include "platform/view/Window.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

bool isOfType(const QVMClump* clump, std::int32_t type) {
    return clump && clump->clumpType == type;
}

bool isUsable(const QVMParameterControl* control) {
    return control && control->primaryControl() && !control->primaryControl()->isDisabled();
}

} // namespace

EditorFocus::EditorFocus(const QVMConfig& config, const EditorValues& values, const View& root, FocusSurface& surface)
    : config_(config), values_(values), root_(root), surface_(surface) {}

void EditorFocus::bring(FocusableControl* control) {
    if (control && isOfType(control->clump(), QVMClumpTypeMaster)) return;
    if (control && !canBeShown(*control)) control = nullptr;
    if (control != focused_) surface_.focusWillMove();
    focused_ = control;
    if (root_.window()) root_.window()->setKeyboardView(control);
    for (QVMParameterControl* each : surface_.parameterControls())
        each->setFocused(control && each == control);
    for (QVMParameterControl* each : standIns_)
        each->setFocused(control && each == control);
    surface_.focusDidMove(control);
}

bool EditorFocus::canBeShown(const FocusableControl& control) const {
    const View* const drawer = surface_.closedDrawer();
    for (const View* view = &control; view && view != &root_; view = view->superview())
        if (view->isHidden() && view != drawer) return false;
    return true;
}

bool EditorFocus::isInClosedDrawer(const QVMParameter* parameter) const {
    return parameter && surface_.closedDrawer() && isOfType(parameter->clump, QVMClumpTypeAdvanced);
}

bool EditorFocus::isInClosedDrawer(const FocusableControl& control) const {
    return surface_.closedDrawer() && isOfType(control.clump(), QVMClumpTypeAdvanced);
}

void EditorFocus::reveal() {
    if (focused_ && isInClosedDrawer(*focused_)) surface_.openClosedDrawer();
}

void EditorFocus::dropIfHidden() {
    if (focused_ && (!canBeShown(*focused_) || isInClosedDrawer(*focused_))) bring(nullptr);
}

void EditorFocus::setHasFocus(bool hasFocus) {
    hasFocus_ = hasFocus;
    if (!hasFocus) {
        if (focused_) remembered_ = focused_;
        bring(nullptr);
        return;
    }
    FocusableControl* const remembered = std::exchange(remembered_, nullptr);
    // A click on a control that brought the window to the front has chosen already.
    if (!remembered || focused_) return;
    if (!isInClosedDrawer(*remembered)) bring(remembered);
}

// Null when none can be.
QVMParameterControl* EditorFocus::shownControlNamed(std::string_view codename) const {
    QVMParameterControl* const first = surface_.parameterControlWithCodename(codename);
    if (first && canBeShown(*first)) return first;
    const auto shown = std::find_if(standIns_.begin(), standIns_.end(), [&](const QVMParameterControl* control) {
        return control->codename() == codename && canBeShown(*control);
    });
    return shown == standIns_.end() ? nullptr : *shown;
}

QVMParameterControl* EditorFocus::adjacent(const FocusableControl* from, int direction) const {
    const std::vector<std::string>& order = config_.metadata->tabOrder;
    if (order.empty() || static_cast<int>(values_.memoized(pidMasterOnOff)) == 0) return nullptr;
    if (!from) {
        for (const std::string& name : order)
            if (QVMParameterControl* shown = shownControlNamed(name); shown && !isInClosedDrawer(*shown)) return shown;
        return nullptr;
    }

    const std::size_t count = order.size(), step = direction > 0 ? 1 : count - 1;
    std::size_t index = direction > 0 ? 0 : count - 1;
    bool passed = false;
    // Twice round is enough to come to the focused name a second time; a name that is not in the order never comes.
    for (std::size_t visits = 0; visits < 2 * count; ++visits, index = (index + step) % count) {
        if (order[index] == from->codename()) {
            if (passed) return nullptr;
            passed = true;
            continue;
        }
        QVMParameterControl* candidate = passed ? shownControlNamed(order[index]) : nullptr;
        if (isUsable(candidate)) return candidate;
    }
    return nullptr;
}

} // namespace QVM_NAMESPACE
