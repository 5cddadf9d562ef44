#include "editor/surface/NoticeView.h"

#include "editor/surface/ElidedText.h"
#include "editor/surface/LabelLayer.h"
#include "platform/layer/TextLayer.h"
#include "platform/layer/TextMetrics.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double headSize = 9, headKern = 1, lineSize = 11;        // points
constexpr double topGap = 3, sideGap = 8, inset = 12, headTop = 4; // points; not as far down as a handle
constexpr double headHeight = 11, lineHeight = 15, height = 32;    // points
constexpr double borderWidth = 1;

} // namespace

NoticeView::NoticeView()
    : ThemedView(Rect{}), head_(std::make_shared<TextLayer>()), line_(std::make_shared<TextLayer>()) {
    layer()->setName("notice");
    layer()->look().setCornerRadius(radii::box);
    head_->setName("head");
    line_->setName("line");
    layer()->tree().add(head_);
    layer()->tree().add(line_);
    setHidden(true);
    NoticeView::themeUpdated();
}

void NoticeView::show(std::string what, std::string why) {
    what_ = std::move(what);
    why_ = std::move(why);
    themeUpdated();
    layer()->animations().removeAll();
    setAlpha(1);
    setHidden(false);
    end_.schedule(shownSeconds, [this] {
        animateAlpha(0, fadeSeconds);
        end_.schedule(fadeSeconds, [this] { setHidden(true); });
    });
}

void NoticeView::placeIn(const Rect& place) {
    place_ = place;
    layOut();
}

void NoticeView::layOut() {
    if (place_.isEmpty()) return;
    const Font font = QVMUITheme::appropriateFontForValueSizeIconSize(why_, lineSize, lineSize);
    const std::string shown = elided(why_, font, place_.width - 2 * (sideGap + inset));
    line_->setString(AttributedString(shown, font, QVMUITheme::theme().textColor));
    const double wanted = std::max(sizeOf(head_->string()).width, sizeOf(line_->string()).width) + 2 * inset;
    const double width = std::min(std::ceil(wanted), place_.width - 2 * sideGap);
    setFrame({place_.x + std::floor((place_.width - width) / 2), place_.y + topGap, width, height});
    head_->setFrame({0, headTop, width, headHeight});
    line_->setFrame({0, headTop + headHeight, width, lineHeight});
}

void NoticeView::themeUpdated() {
    const QVMUITheme& theme = QVMUITheme::theme();
    const QVMPalette& palette = theme.palette;
    layer()->look().setBackgroundColor(palette.drawer);
    layer()->look().setBorder(borderWidth, palette.boxBorder);
    AttributedString head(capitals(what_), QVMUITheme::unitFontOfSize(headSize),
                          theme.labelColorGivenInk(palette.headingInk));
    head.runs.front().kern = headKern;
    head_->setString(head);
    layOut();
}

} // namespace QVM_NAMESPACE
