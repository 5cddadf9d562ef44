// The context menu, by mouse and by key, and what is opened in the browser.
#include "editor/surface/EditorMenu.h"
#include "editor/surface/QVMClumpView.h"
#include "editor/surface/QVMGenericUI.h"
#include "platform/system/Workspace.h"
#include "platform/view/Menu.h"
#include "platform/view/Window.h"

namespace QVM_NAMESPACE {

namespace {

// The key itself, or Shift and F10, which does the same on every desktop.
bool isMenuKey(const Event& event) {
    if (event.has(EventModifier::command) || event.has(EventModifier::option)) return false;
    return event.keyCode == Key::codeMenu || (event.keyCode == Key::codeF10 && event.has(EventModifier::shift));
}

} // namespace

std::unique_ptr<Menu> QVMGenericUI::menuForEvent(const Event& event) {
    if (event.has(EventModifier::option) || event.has(EventModifier::command)) return nullptr;
    const Point at = event.locationInWindow;
    QVMParameterControl* const control = menuSubject(controlAtWindowPoint(at));
    // A press with Control is still a press on the control: it goes no further than the menu, but it has begun.
    if (control && event.has(EventModifier::control))
        control->primaryControl()->handleMouseDownEvent({event, *control->primaryControl()});
    return makeEditorMenu(*this, control, clumpAtWindowPoint(at));
}

// A control that was displaced from its clump still belongs to it.
const QVMClump* QVMGenericUI::clumpAtWindowPoint(Point pointInWindow) const {
    const QVMParameterControl* control = controlAtWindowPoint(pointInWindow);
    if (control) return control->parameter()->clump;
    for (const View* hit = window() ? window()->hitTest(pointInWindow) : nullptr; hit; hit = hit->superview())
        if (const auto* clumpView = dynamic_cast<const QVMClumpView*>(hit)) return &clumpView->clump();
    return nullptr;
}

std::unique_ptr<Menu> QVMGenericUI::menuForKeyboard() {
    return makeKeyboardMenu(*this, menuSubject(focusedControl()));
}

QVMParameterControl* QVMGenericUI::menuSubject(QVMParameterControl* control) {
    return lastRightClickedControl_ = control && control->primaryControl() ? control : nullptr;
}

bool QVMGenericUI::popUpMenuForKey(const Event& event) {
    if (!isMenuKey(event) || !window()) return false;
    const View& about = focusedControl() ? static_cast<const View&>(*focusedControl()) : *this;
    const Rect frame = about.convertToWindow(about.bounds());
    window()->popUpMenu(menuForKeyboard(), {frame.minX(), focusedControl() ? frame.maxY() : frame.minY()});
    return true;
}

void QVMGenericUI::presetSaveTapped() {
    const std::string address = session_.settings().address();
    Workspace::current().openUrl(address);
    Workspace::current().setClipboardString(address);
}

void QVMGenericUI::openManualWithExtension(const std::string& extension) {
    Workspace::current().openUrl(session_.settings().baseAddress() + "/manual/" + extension);
}

// The manual has an anchor for each parameter.
void QVMGenericUI::parameterControlHasRequestedDocumentation(QVMParameterControl& control) {
    openManualWithExtension("#" + control.parameter()->codesafeName);
}

} // namespace QVM_NAMESPACE
