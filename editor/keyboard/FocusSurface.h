// What the focus asks of the surface that the controls stand on. All calls come on the main thread.
#pragma once

#include "BuildNamespace.h"

#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

class FocusableControl;
class QVMParameterControl;
class View;

class FocusSurface {
public:
    virtual ~FocusSurface() = default;

    // Every parameter's control, in the order in which they were made.
    virtual const std::vector<QVMParameterControl*>& parameterControls() const = 0;
    // Null when there is none.
    virtual QVMParameterControl* parameterControlWithCodename(std::string_view codesafeName) const = 0;

    // The view that the closed drawer of advanced controls hides; null while that is open.
    virtual const View* closedDrawer() const = 0;
    // Opens it.
    virtual void openClosedDrawer() = 0;

    // The focus goes to another control, or to none: first before anything has changed, then with the control that has
    // it, when each parameter's control knows. The second comes also when it stays where it is.
    virtual void focusWillMove() = 0;
    virtual void focusDidMove(FocusableControl* control) = 0;
};

} // namespace QVM_NAMESPACE
