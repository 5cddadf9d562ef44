#include "editor/keyboard/EditorFocus.h"

#include "description/ParameterIDs.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

bool isInClumpOfType(const QVMParameter* parameter, std::int32_t type) {
    return parameter && parameter->clump && parameter->clump->clumpType == type;
}

bool isUsable(const QVMParameterControl* control) {
    return control && control->primaryControl() && !control->primaryControl()->isDisabled();
}

} // namespace

EditorFocus::EditorFocus(const QVMConfig& config, const EditorValues& values, const View& root, FocusSurface& surface)
    : config_(config), values_(values), root_(root), surface_(surface) {}

void EditorFocus::bring(QVMParameterControl* control) {
    if (control && isInClumpOfType(control->parameter(), QVMClumpTypeMaster)) return;
    if (control && !canBeShown(*control)) control = nullptr;
    if (control != focused_) surface_.focusWillMove();
    focused_ = control;
    for (QVMParameterControl* each : surface_.parameterControls())
        each->setFocused(control && each == control);
    surface_.focusDidMove(control);
}

bool EditorFocus::canBeShown(const QVMParameterControl& control) const {
    const View* const drawer = surface_.closedDrawer();
    for (const View* view = &control; view && view != &root_; view = view->superview())
        if (view->isHidden() && view != drawer) return false;
    return true;
}

bool EditorFocus::isInClosedDrawer(const QVMParameter* parameter) const {
    return surface_.closedDrawer() && isInClumpOfType(parameter, QVMClumpTypeAdvanced);
}

void EditorFocus::reveal() {
    if (focused_ && isInClosedDrawer(focused_->parameter())) surface_.openClosedDrawer();
}

void EditorFocus::dropIfHidden() {
    if (focused_ && (!canBeShown(*focused_) || isInClosedDrawer(focused_->parameter()))) bring(nullptr);
}

void EditorFocus::setHasFocus(bool hasFocus) {
    hasFocus_ = hasFocus;
    if (!hasFocus) {
        if (focused_) remembered_ = focused_;
        bring(nullptr);
        return;
    }
    QVMParameterControl* const remembered = std::exchange(remembered_, nullptr);
    // A click on a control that brought the window to the front has chosen already.
    if (!remembered || focused_) return;
    if (!isInClosedDrawer(remembered->parameter())) bring(remembered);
}

QVMParameterControl* EditorFocus::adjacent(const QVMParameterControl* from, int direction) const {
    const std::vector<std::string>& order = config_.metadata->tabOrder;
    if (order.empty() || static_cast<int>(values_.memoized(pidMasterOnOff)) == 0) return nullptr;
    if (!from) return surface_.parameterControlWithCodename(order.front());
    if (!from->parameter()) return nullptr;

    const std::size_t count = order.size(), step = direction > 0 ? 1 : count - 1;
    std::size_t index = direction > 0 ? 0 : count - 1;
    bool passed = false;
    // Twice round is enough to come to the focused name a second time; a name that is not in the order never comes.
    for (std::size_t visits = 0; visits < 2 * count; ++visits, index = (index + step) % count) {
        if (order[index] == from->parameter()->codesafeName) {
            if (passed) return nullptr;
            passed = true;
            continue;
        }
        QVMParameterControl* candidate = passed ? surface_.parameterControlWithCodename(order[index]) : nullptr;
        if (isUsable(candidate) && canBeShown(*candidate)) return candidate;
    }
    return nullptr;
}

} // namespace QVM_NAMESPACE
