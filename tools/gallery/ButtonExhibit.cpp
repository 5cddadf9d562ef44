#include "tools/gallery/ButtonExhibit.h"

#include "controls/QVMMeterButton.h"
#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

namespace {

constexpr double kGlyphSize = 22, kSmallGlyphSize = 18, kSmallButton = 36, kReadingSize = 16; // points
constexpr const char* kReading = "-12.4";

Color colorOn(ExhibitSurface surface) {
    const QVMUITheme& theme = QVMUITheme::theme();
    return surface == ExhibitSurface::accent ? theme.palette.onAccent : theme.symbolColor;
}

std::unique_ptr<QVMSymbolButton> makeButton(const ExhibitRow& row, const Rect& bounds) {
    const Color color = colorOn(row.surface);
    if (row.kind == ExhibitKind::symbolButton) {
        const double size = bounds.height < kSmallButton ? kSmallGlyphSize : kGlyphSize;
        return std::make_unique<QVMSymbolButton>(bounds, std::string(row.otherKey), size, color);
    }
    auto reading = std::make_unique<QVMMeterButton>(bounds, kReading, kReadingSize, color);
    reading->setFont(QVMUITheme::appropriateFontForValueSizeIconSize(kReading, kReadingSize, 0));
    reading->setSuffix(" " + std::string(row.otherKey));
    return reading;
}

} // namespace

std::unique_ptr<Exhibit> ButtonExhibit::make(const ExhibitRow& row, ExhibitState state, const Rect& frame) {
    auto exhibit =
        std::make_unique<ButtonExhibit>(frame, makeButton(row, {0, 0, frame.width, frame.height}), row.surface);
    if (!exhibit->show(state)) return nullptr;
    return exhibit;
}

ButtonExhibit::ButtonExhibit(const Rect& frame, std::unique_ptr<QVMSymbolButton> button, ExhibitSurface surface)
    : Exhibit(frame), button_(addSubview(std::move(button))), surface_(surface) {
    layer()->setMasksToBounds(false); // the warning light pulses beyond the button
    button_.setAction([this](Control&) { report("pressed"); });
}

bool ButtonExhibit::show(ExhibitState state) {
    Event event;
    switch (state) {
    case ExhibitState::normal:
        return true;
    case ExhibitState::hovered:
        event.locationInWindow = button_.coordinates().toWindow(button_.bounds().center());
        button_.mouseEntered(event);
        return true;
    case ExhibitState::selected:
        button_.setSelected(true);
        return true;
    case ExhibitState::warning:
        button_.setWarning(true);
        return true;
    case ExhibitState::disabled:
        button_.setButtonEnabled(false);
        return true;
    default:
        return false;
    }
}

void ButtonExhibit::themeUpdated() {
    button_.resetGlyphColor(button_.symbol(), colorOn(surface_));
}

} // namespace QVM_NAMESPACE
