#include "editor/surface/NoticeView.h"

#include "editor/surface/ElidedText.h"
#include "editor/surface/LabelLayer.h"
#include "platform/layer/TextLayer.h"
#include "platform/layer/TextMetrics.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

constexpr double headSize = 9, headKern = 1, lineSize = 11;        // points
constexpr double topGap = 3, sideGap = 8, inset = 12, headTop = 4; // points; not as far down as a handle
constexpr double headHeight = 11, lineHeight = 15, footHeight = 2; // points
constexpr double borderWidth = 1;

} // namespace

NoticeView::NoticeView() : ThemedView(Rect{}), head_(std::make_shared<TextLayer>()) {
    layer()->setName("notice");
    layer()->look().setCornerRadius(radii::box);
    head_->setName("head");
    layer()->tree().add(head_);
    for (std::shared_ptr<TextLayer>& line : lines_) {
        line = std::make_shared<TextLayer>();
        line->setName("line");
        layer()->tree().add(line);
    }
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
    end_.schedule(shownSeconds + furtherSeconds * static_cast<double>(shownLines_ - 1), [this] {
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
    const std::vector<std::string> shown = inLines(why_, font, place_.width - 2 * (sideGap + inset), mostLines);
    shownLines_ = std::max<std::size_t>(shown.size(), 1);
    double wanted = sizeOf(head_->string()).width;
    for (std::size_t i = 0; i < mostLines; ++i) {
        const std::string text = i < shown.size() ? shown[i] : std::string();
        lines_[i]->setString(AttributedString(text, font, QVMUITheme::theme().textColor));
        wanted = std::max(wanted, sizeOf(lines_[i]->string()).width);
    }
    const double width = std::min(std::ceil(wanted + 2 * inset), place_.width - 2 * sideGap);
    const double height = headTop + headHeight + lineHeight * static_cast<double>(shownLines_) + footHeight;
    setFrame({place_.x + std::floor((place_.width - width) / 2), place_.y + topGap, width, height});
    head_->setFrame({0, headTop, width, headHeight});
    for (std::size_t i = 0; i < mostLines; ++i)
        lines_[i]->setFrame({0, headTop + headHeight + lineHeight * static_cast<double>(i), width, lineHeight});
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
