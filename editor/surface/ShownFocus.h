// Shows what the focus decides: in the curve, on the bar and on the logo; and tells it where the controls stand. Main
// thread only.
#pragma once

#include "editor/keyboard/FocusSurface.h"

#include <cstdint>

namespace QVM_NAMESPACE {

class QVMGenericUI;

class ShownFocus final : public FocusSurface {
public:
    // The editor is borrowed; nothing is asked of it here.
    explicit ShownFocus(QVMGenericUI& ui) : ui_(ui) {}

    // The curve is told which parameter has the focus; to be called for a curve that is made later.
    void showInCurve() const;
    // Without the keyboard the logo fades.
    void windowHasKeyboard(bool hasKeyboard) const;

    // FocusSurface
    const std::vector<QVMParameterControl*>& parameterControls() const override;
    QVMParameterControl* parameterControlWithCodename(std::string_view codesafeName) const override;
    const View* closedDrawer() const override;
    void openClosedDrawer() override;
    // What was typed for the control that has it now is given up.
    void focusWillMove() override;
    void focusDidMove(FocusableControl* control) override;

private:
    QVMGenericUI& ui_;
};

} // namespace QVM_NAMESPACE
