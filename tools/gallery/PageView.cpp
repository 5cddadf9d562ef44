#include "tools/gallery/PageView.h"

#include "theme/QVMUITheme.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

// Points.
constexpr double kMargin = 24, kTop = 14, kGapX = 20, kLeastWidth = 62;
constexpr double kTitleHeight = 18, kTitleGap = 6, kCaptionGap = 5, kCaptionHeight = 13, kRowGap = 11;
constexpr double kAccentMargin = 5, kAccentRadius = 6;
constexpr unsigned kAccentColor = 0xA5666C;
constexpr double kTitleSize = 12, kCaptionSize = 11, kTitleKern = 0.4;

} // namespace

PageView::PageView(const Rect& frame, const GalleryPage& page, StereoFeed& feed, const Exhibit::Report& report)
    : View(frame), contentHeight_(kTop) {
    for (const ExhibitRow& row : page.rows)
        addRow(page, row, feed, report);
    redraw();
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { redraw(); });
}

void PageView::addRow(const GalleryPage& page, const ExhibitRow& row, StereoFeed& feed, const Exhibit::Report& report) {
    addText(std::string(row.title), {kMargin, contentHeight_, bounds().width - 2 * kMargin, kTitleHeight}, true);
    const double pitch = std::max(row.size.width, kLeastWidth) + kGapX;
    const double margin = row.surface == ExhibitSurface::accent ? kAccentMargin : 0;
    const double lineHeight = row.size.height + 2 * margin + kCaptionGap + kCaptionHeight;
    double x = kMargin, y = contentHeight_ + kTitleHeight + kTitleGap + margin;
    for (const auto& [state, name] : exhibitStates()) {
        auto exhibit = Exhibit::make(row, state, {0, 0, row.size.width, row.size.height}, feed);
        if (!exhibit) continue;
        if (x + row.size.width > bounds().width - kMargin) {
            x = kMargin;
            y += lineHeight + kRowGap;
        }
        exhibit->setFrame({x, y, row.size.width, row.size.height});
        exhibit->setIdentifier(std::string(page.name) + "/" + std::string(row.key) + "/" + std::string(name));
        exhibit->setReport(report);
        const std::string caption = row.kind == ExhibitKind::display ? "live" : std::string(name);
        addText(caption, {x, y + row.size.height + margin + kCaptionGap, pitch - kGapX, kCaptionHeight}, false);
        if (row.surface == ExhibitSurface::accent) addAccent(exhibit->frame().insetBy(-margin, -margin));
        exhibits_.push_back(&addSubview(std::move(exhibit)));
        x += pitch;
    }
    contentHeight_ = y - margin + lineHeight + kRowGap;
}

void PageView::addAccent(const Rect& frame) {
    auto accent = std::make_shared<Layer>();
    accent->setFrame(frame);
    accent->setCornerRadius(kAccentRadius);
    accent->setBackgroundColor(colorFromHex(kAccentColor));
    layer()->insertSublayer(accent, 0);
}

void PageView::addText(const std::string& text, const Rect& frame, bool isTitle) {
    auto added = std::make_shared<TextLayer>();
    added->setFrame(frame);
    added->setAlignment(TextAlignment::left);
    layer()->addSublayer(added);
    texts_.push_back({added, text, isTitle});
}

void PageView::redraw() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    layer()->setBackgroundColor(palette.panel);
    for (const Text& text : texts_) {
        AttributedString shown(text.text,
                               text.isTitle ? QVMUITheme::unitFontOfSize(kTitleSize)
                                            : QVMUITheme::italicFontOfSize(kCaptionSize),
                               text.isTitle ? palette.heading : palette.note);
        if (text.isTitle) shown.runs.front().kern = kTitleKern;
        text.layer->setString(shown);
    }
    for (Exhibit* exhibit : exhibits_)
        exhibit->themeUpdated();
}

} // namespace QVM_NAMESPACE
