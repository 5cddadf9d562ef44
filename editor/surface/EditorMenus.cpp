#include "editor/surface/EditorMenus.h"

#include "editor/surface/EditorMenu.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMGenericUI.h"
#include "platform/view/Menu.h"
#include "platform/view/Window.h"

namespace QVM_NAMESPACE {

namespace {

// The key itself, or Shift and F10, which does the same on every desktop.
bool isMenuKey(const Event& event) {
    if (event.has(EventModifier::command) || event.has(EventModifier::option)) return false;
    return event.keyCode == Key::codeMenu || (event.keyCode == Key::codeF10 && event.has(EventModifier::shift));
}

// The clump whose panel has the point, of those in a view. A press on a panel's ground is the view's around it.
const QVMClumpView* clumpViewIn(const View& around, Point pointInWindow) {
    const Point at = around.coordinates().fromWindow(pointInWindow);
    for (const auto& subview : around.subviews()) {
        const auto* clumpView = dynamic_cast<const QVMClumpView*>(subview.get());
        if (clumpView && !clumpView->isHidden() && clumpView->frame().contains(at)) return clumpView;
    }
    return nullptr;
}

} // namespace

std::unique_ptr<Menu> EditorMenus::menuForEvent(const Event& event) {
    if (event.has(EventModifier::option) || event.has(EventModifier::command)) return nullptr;
    const Point at = event.locationInWindow;
    QVMParameterControl* const control = setSubject(ui_.controlAtWindowPoint(at));
    // A press with Control is still a press on the control: it goes no further than the menu, but it has begun.
    if (control && event.has(EventModifier::control))
        control->primaryControl()->handleMouseDownEvent({event, *control->primaryControl()});
    return makeEditorMenu(ui_, control, clumpAtWindowPoint(at));
}

// A control that was displaced from its clump still belongs to it.
const QVMClump* EditorMenus::clumpAtWindowPoint(Point pointInWindow) const {
    const QVMParameterControl* control = ui_.controlAtWindowPoint(pointInWindow);
    if (control) return control->parameter()->clump;
    for (const View* hit = ui_.window() ? ui_.window()->hitTest(pointInWindow) : nullptr; hit; hit = hit->superview())
        if (const QVMClumpView* clumpView = clumpViewIn(*hit, pointInWindow)) return &clumpView->clump();
    return nullptr;
}

std::unique_ptr<Menu> EditorMenus::menuForKeyboard() {
    QVMParameterControl* const control = setSubject(dynamic_cast<QVMParameterControl*>(ui_.focusedControl()));
    return makeEditorMenu(ui_, control, control ? control->parameter()->clump : nullptr);
}

// There is nothing to say about a control with no value to change.
QVMParameterControl* EditorMenus::setSubject(QVMParameterControl* control) {
    return subject_ = control && control->primaryControl() ? control : nullptr;
}

bool EditorMenus::popUpForKey(const Event& event) {
    if (!isMenuKey(event) || !ui_.window()) return false;
    const FocusableControl* const focused = ui_.focusedControl();
    const View& about = focused ? static_cast<const View&>(*focused) : ui_;
    const Rect frame = about.coordinates().toWindow(about.bounds());
    ui_.window()->popUpMenu(menuForKeyboard(), {frame.minX(), focused ? frame.maxY() : frame.minY()});
    return true;
}

} // namespace QVM_NAMESPACE
