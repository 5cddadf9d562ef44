// A symbol or meter button in one state.
#pragma once

#include "controls/QVMSymbolButton.h"
#include "tools/gallery/Exhibit.h"

namespace QVM_NAMESPACE {

class ButtonExhibit final : public Exhibit {
public:
    // Null when buttons have no such state.
    static std::unique_ptr<Exhibit> make(const ExhibitRow& row, ExhibitState state, const Rect& frame);
    ButtonExhibit(const Rect& frame, std::unique_ptr<QVMSymbolButton> button, ExhibitSurface surface);

    QVMSymbolButton& button() { return button_; }
    void themeUpdated() override;

private:
    bool show(ExhibitState state);

    QVMSymbolButton& button_;
    const ExhibitSurface surface_;
};

} // namespace QVM_NAMESPACE
