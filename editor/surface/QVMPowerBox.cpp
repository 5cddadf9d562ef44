#include "editor/surface/QVMPowerBox.h"

#include "controls/QVMSymbolButton.h"
#include "description/QVMMetadata.h"
#include "editor/surface/QVMLogoStamp.h"
#include "editor/surface/ToolTips.h"
#include "platform/view/Window.h"
#include "resources/IconGlyphs.h"

#include <string>

namespace QVM_NAMESPACE {

namespace {

constexpr double logoGlyphSize = 22, gearGlyphSize = 30; // points
constexpr double underlineWidth = 32, underlineHeight = 1.5, underlineBelowLogo = 28;
constexpr float underlineAlpha = 0.75f;
constexpr double hiddenSignSize = 20, hiddenSignAlpha = 0.45; // points
constexpr float sketchPlaceAlpha = 0.17f;                     // of the shade over the product's colour

} // namespace

QVMPowerBox::QVMPowerBox(const Rect& frame, AdvancedControls advanced, const QVMMetadata& metadata)
    : ThemedView(frame), metadata_(metadata) {
    layer()->setName("powerBox");
    sketchPlace_ = std::make_shared<Layer>();
    sketchPlace_->setName("sketchPlace");
    layer()->tree().add(sketchPlace_);
    hiddenSign_ = std::make_shared<TextLayer>();
    hiddenSign_->setName("hiddenSign");
    hiddenSign_->setAlignment(TextAlignment::center, TextPlacement::middle);
    hiddenSign_->setOpacity(0);
    layer()->tree().add(hiddenSign_);
    underline_ = std::make_shared<Layer>();
    underline_->setName("underline");
    underline_->look().setCornerRadius(underlineHeight / 2);
    layer()->tree().add(underline_);

    const QVMEditorLayout& layout = EditorLayoutForAltFrame(QVMAltFrameNormal);
    logo_ = &btnWithFrameGlyph(layout.logoButton, icons::logoMark, logoGlyphSize);
    logo_->layer()->setName("logoButton");
    logo_->setToolTip(toolTipOf(Button::logo));
    if (advanced == AdvancedControls::yes) {
        gear_ = &btnWithFrameGlyph(layout.gearButton, icons::gear, gearGlyphSize);
        gear_->layer()->setName("gearButton");
        gear_->setToolTip(toolTipOf(Button::gear));
    }
    logoStamp_ = &addSubview(std::make_unique<QVMLogoStamp>(layout.logoStamp, metadata.logo));
    assumeLayout(layout);
    themeUpdated();
}

void QVMPowerBox::assumeLayout(const QVMEditorLayout& layout) {
    logo_->setFrame(layout.logoButton);
    if (gear_) gear_->setFrame(layout.gearButton);
    logoStamp_->setFrame(layout.logoStamp);
    layOutUnderline(layout.logoButton);
    sketchPlace_->setFrame(layout.sketchPlace);
    sketchPlace_->look().setCornerRadius(layout.sketchPlaceRadius);
    hiddenSign_->setFrame(layout.sketchPlace);
}

void QVMPowerBox::setShowsHiddenSign(bool shows) {
    hiddenSign_->setOpacity(shows ? hiddenSignAlpha : 0);
}

void QVMPowerBox::themeUpdated() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    const Color product = QVMCGColor(metadata_.color);
    const Color box = composite(palette.shade.withAlpha(palette.columnShade), product);
    const Color mark = palette.onAccent;
    layer()->look().setBackgroundColor(box);
    sketchPlace_->look().setBackgroundColor(composite(palette.shade.withAlpha(sketchPlaceAlpha), box));
    underline_->look().setBackgroundColor(mark.withAlpha(underlineAlpha));
    hiddenSign_->setString({std::string(icons::eye), QVMUITheme::iconFontOfSize(hiddenSignSize), mark});
    logo_->resetGlyphColor(logo_->symbol(), mark);
    if (!gear_) return;
    gear_->resetGlyphColor(gear_->symbol(), mark);
    if (!gear_->selected()) return;
    // A spotlight behind a gear of its own kind of colour would drown it.
    const Color lit = composite(gear_->spotlight()->look().backgroundColor(), box);
    gear_->resetGlyphColor(gear_->symbol(), contrasted(product, lit));
}

void QVMPowerBox::mouseDown(const Event& event) {
    constexpr int doubleClick = 2;
    const bool asksForToggle = event.clickCount == doubleClick && !isOnButton(event.locationInWindow);
    ThemedView::mouseDown(event); // on to the editor
    if (asksForToggle && frameToggle_) frameToggle_();
}

void QVMPowerBox::mouseEntered(const Event&) {
    if (hoverHandler_) hoverHandler_(true);
}

void QVMPowerBox::mouseExited(const Event&) {
    if (hoverHandler_) hoverHandler_(false);
}

bool QVMPowerBox::isOnButton(Point pointInWindow) const {
    const View* hit = window() ? window()->hitTest(pointInWindow) : nullptr;
    while (hit && hit != this && !dynamic_cast<const Control*>(hit))
        hit = hit->superview();
    return hit != this;
}

QVMSymbolButton& QVMPowerBox::btnWithFrameGlyph(const Rect& frame, std::string_view glyph, double size) {
    return addSubview(
        std::make_unique<QVMSymbolButton>(frame, std::string(glyph), size, QVMUITheme::theme().palette.onAccent));
}

void QVMPowerBox::layOutUnderline(const Rect& logoFrame) {
    underline_->setFrame(
        {logoFrame.midX() - underlineWidth / 2, logoFrame.y + underlineBelowLogo, underlineWidth, underlineHeight});
}

} // namespace QVM_NAMESPACE
