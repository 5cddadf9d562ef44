// Which context menu comes up, by mouse or by key, and what it is about. Main thread only.
#pragma once

#include "geometry/Geometry.h"
#include "platform/view/Event.h"

#include <memory>

namespace QVM_NAMESPACE {

class Menu;
class QVMGenericUI;
class QVMParameterControl;
struct QVMClump;

class EditorMenus {
public:
    // The editor is borrowed.
    explicit EditorMenus(QVMGenericUI& ui) : ui_(ui) {}

    // For a press of the right button, or with Control; none while Option or Command is held.
    std::unique_ptr<Menu> menuForEvent(const Event& event);
    // That of the control with the focus.
    std::unique_ptr<Menu> menuForKeyboard();
    // True for the key that asks for a menu, which comes up then.
    bool popUpForKey(const Event& event);

    // The control that the last menu was about; null when it was about none.
    QVMParameterControl* subject() const { return subject_; }

private:
    const QVMClump* clumpAtWindowPoint(Point pointInWindow) const;
    QVMParameterControl* setSubject(QVMParameterControl* control);

    QVMGenericUI& ui_;
    QVMParameterControl* subject_ = nullptr;
};

} // namespace QVM_NAMESPACE
