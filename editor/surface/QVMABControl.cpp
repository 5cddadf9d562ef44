#include "editor/surface/QVMABControl.h"

#include "controls/QVMFocusBorder.h"
#include "controls/QVMSymbolButton.h"
#include "description/Description.h"
#include "editor/surface/ToolTips.h"
#include "platform/layer/Transaction.h"
#include "resources/IconGlyphs.h"
#include "theme/QVMUITheme.h"

#include <string>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr Rect boxFrame = {0, 4, 54, 21}; // the focus border around it stays clear of the column beside the bar
constexpr double lineWidth = 1, indicatorInset = 1.5; // points
// Each letter stands in the middle of the disc that marks it, the arrow between the discs.
constexpr Rect aFrame = {0, 0, 21, 29}, bFrame = {33, 0, 21, 29}, arrowFrame = {19, 0, 16, 29};
constexpr const char* letterFace = "HelveticaNeue-Medium";
constexpr double letterSize = 12, arrowSize = 14;
constexpr double glideSeconds = 0.15;
constexpr double focusDistance = 2; // leaves air to the bar's edges

Rect indicatorFrame(std::uint32_t position) {
    const Rect inner = boxFrame.insetBy(indicatorInset, indicatorInset);
    return {position == 0 ? inner.x : inner.maxX() - inner.height, inner.y, inner.height, inner.height};
}

} // namespace

QVMABControl::QVMABControl(const Rect& frame)
    : FocusableControl(frame), box_(std::make_shared<Layer>()), indicator_(std::make_shared<Layer>()),
      highlight_(std::make_shared<QVMFocusBorder>(YAxis::down)) {
    layer()->setName("abControl");
    box_->setName("box");
    box_->setFrame(boxFrame);
    box_->look().setCornerRadius(boxFrame.height / 2);
    indicator_->setName("indicator");
    indicator_->setFrame(indicatorFrame(position_));
    indicator_->look().setCornerRadius(indicator_->bounds().height / 2);
    for (const std::shared_ptr<Layer>& each : {box_, indicator_, std::shared_ptr<Layer>(highlight_)})
        layer()->tree().add(each);
    const Rect border = boxFrame.insetBy(-focusDistance, -focusDistance);
    highlight_->updateWithFrameRounding(border, border.height / 2);

    a_ = &addButton("aButton", aFrame, "A");
    b_ = &addButton("bButton", bFrame, "B");
    arrow_ = &addButton("arrowButton", arrowFrame, std::string(icons::copyRight));
    a_->setToolTip(toolTipOf(Button::sideA));
    b_->setToolTip(toolTipOf(Button::sideB));
    for (QVMSymbolButton* letter : {a_, b_})
        letter->setFont(QVMUITheme::safeFontWithNameSize(letterFace, letterSize));
    style();
}

QVMSymbolButton& QVMABControl::addButton(const char* name, const Rect& frame, std::string symbol) {
    const double size = frame == arrowFrame ? arrowSize : letterSize;
    QVMSymbolButton& button = addSubview(std::make_unique<QVMSymbolButton>(frame, std::move(symbol), size, Color{}));
    button.layer()->setName(name);
    button.setAction([this, &button](Control&) { handleTap(button); });
    return button;
}

void QVMABControl::handleTap(const View& tapped) {
    report(&tapped == b_ ? QVMABButtonB : &tapped == arrow_ ? QVMABButtonArrow : QVMABButtonA);
}

void QVMABControl::report(std::uint32_t button) {
    if (delegate_) delegate_->abControlChangeTriggeredByButton(*this, button);
}

void QVMABControl::updatePositionAnimated(std::uint32_t position, Animate animate) {
    position_ = position == 0 ? 0 : 1;
    const auto transaction = animate == Animate::yes ? Transaction::animated(glideSeconds, TimingFunction::easeOut)
                                                     : Transaction::disablingActions();
    indicator_->setFrame(indicatorFrame(position_));
    style();
}

void QVMABControl::style() {
    const QVMUITheme& theme = QVMUITheme::theme();
    const QVMPalette& palette = theme.palette;
    const Color label = theme.labelColorGivenInk(palette.labelInk);
    const Color accent = contrasted(QVMCGColor(GetMetadata()->color), palette.onAccent);
    box_->look().setBorder(lineWidth, palette.pillBorder);
    indicator_->look().setBackgroundColor(accent);
    highlight_->setStrokeNSColor(contrasted(accent, palette.sidePanel));
    a_->resetGlyphColor(a_->symbol(), position_ == 0 ? palette.onAccent : label);
    b_->resetGlyphColor(b_->symbol(), position_ == 1 ? palette.onAccent : label);
    const bool toB = position_ == 0;
    arrow_->resetGlyphColor(std::string(toB ? icons::copyRight : icons::copyLeft), theme.symbolColor);
    arrow_->setToolTip(toolTipOf(toB ? Button::copyAToB : Button::copyBToA));
}

bool QVMABControl::incrementWithArrowGranularity(char32_t, std::int32_t) {
    report(QVMABButtonA);
    return true;
}

bool QVMABControl::toggleBooleanControl() {
    report(QVMABButtonA);
    return true;
}

bool QVMABControl::tap() {
    report(QVMABButtonA);
    return true;
}

void QVMABControl::setTransientStringValue(const std::string&) {
    report(QVMABButtonA);
}

void QVMABControl::setFocused(bool focused) {
    FocusableControl::setFocused(focused);
    highlight_->setOpacity(focused ? 1 : 0);
}

void QVMABControl::viewDidMoveToWindow() {
    FocusableControl::viewDidMoveToWindow();
    themeObservation_.reset();
    if (!window()) return;
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { style(); });
    style();
}

} // namespace QVM_NAMESPACE
