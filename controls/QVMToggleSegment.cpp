#include "controls/QVMToggleSegment.h"

#include "controls/TextFitting.h"
#include "platform/layer/TextMetrics.h"
#include "theme/QVMUITheme.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double kTextSize = 14, kIconSize = 20; // points
constexpr double kTextPadding = 6;
constexpr double kDividerInset = 7; // points above and below the line

} // namespace

QVMToggleSegment::QVMToggleSegment(const Rect& frame, std::string text)
    : View(frame, YAxis::up), text_(std::move(text)), divider_(std::make_shared<Layer>(YAxis::up)),
      label_(std::make_shared<TextLayer>(YAxis::up)) {
    divider_->setName("divider");
    label_->setName("label");
    label_->setAlignment(TextAlignment::center, TextPlacement::middle);
    layer()->tree().add(divider_);
    layer()->tree().add(label_);
    redraw();
}

void QVMToggleSegment::setSelected(bool selected) {
    selected_ = selected;
    redraw();
}

void QVMToggleSegment::redraw() {
    const QVMUITheme& theme = QVMUITheme::theme();
    const QVMPalette& palette = theme.palette;
    divider_->setFrame({0, kDividerInset, 1, std::max(bounds().height - 2 * kDividerInset, 0.0)});
    divider_->look().setBackgroundColor(theme.interiorBorderColor);

    const Font font = QVMUITheme::appropriateFontForValueSizeIconSize(text_, kTextSize, kIconSize);
    const Rect room = bounds().insetBy(kTextPadding, 0);
    label_->setFrame(isAscii(text_) ? room : bounds());
    label_->setString(
        shrunkenToWidth({text_, font, selected_ ? palette.onAccent : theme.textColor}, std::max(room.width, 0.0)));
}

} // namespace QVM_NAMESPACE
