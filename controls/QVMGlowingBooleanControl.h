// The master switch: a bare glyph on the product colour, with a round spotlight while the plug-in is on.
#pragma once

#include "controls/QVMBooleanControl.h"

namespace QVM_NAMESPACE {

class QVMGlowingBooleanControl : public QVMBooleanControl {
public:
    QVMGlowingBooleanControl(const Rect& frame, const QVMParameter& parameter);

protected:
    void redraw() override;
    Look lookForValue(float value) const override;
    Rect backgroundFrame() const override; // a disc in the middle
    // None of the theme's: the product colour.
    std::optional<Color> surface() const override { return std::nullopt; }
};

} // namespace QVM_NAMESPACE
