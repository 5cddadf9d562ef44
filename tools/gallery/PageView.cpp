#include "tools/gallery/PageView.h"

#include "theme/QVMUITheme.h"
#include "tools/gallery/Accent.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

// Points.
constexpr double kMargin = 24, kTop = 14, kGapX = 20, kLeastWidth = 62;
constexpr double kTitleHeight = 18, kTitleGap = 6, kCaptionGap = 5, kCaptionHeight = 13, kRowGap = 11;
constexpr double kAccentMargin = 10, kAccentRadius = 6; // a pulsing light has room within the margin
constexpr double kTitleSize = 12, kCaptionSize = 11, kTitleKern = 0.4;

std::string identifierOf(const GalleryPage& page, const ExhibitRow& row, std::string_view state) {
    return std::string(page.name) + "/" + std::string(row.key) + "/" + std::string(state);
}

} // namespace

PageView::PageView(const Rect& frame, const GalleryPage& page, StereoFeed& feed, const Exhibit::Report& report)
    : View(frame), contentHeight_(kTop) {
    if (page.flow == PageFlow::tiles) {
        addTiles(page, feed, report);
    } else {
        for (const ExhibitRow& row : page.rows)
            addRow(page, row, feed, report);
    }
    redraw();
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { redraw(); });
}

void PageView::addRow(const GalleryPage& page, const ExhibitRow& row, StereoFeed& feed, const Report& report) {
    addText(std::string(row.title), {kMargin, contentHeight_, bounds().width - 2 * kMargin, kTitleHeight}, true);
    const double margin = row.surface == ExhibitSurface::accent ? kAccentMargin : 0;
    const Size place = {row.size.width + 2 * margin, row.size.height + 2 * margin};
    const double pitch = std::max(place.width, kLeastWidth) + kGapX;
    const double lineHeight = place.height + kCaptionGap + kCaptionHeight;
    double x = kMargin, y = contentHeight_ + kTitleHeight + kTitleGap;
    for (const auto& [state, name] : exhibitStates()) {
        auto exhibit = Exhibit::make(row, state, {0, 0, row.size.width, row.size.height}, feed);
        if (!exhibit) continue;
        if (x + place.width > bounds().width - kMargin) {
            x = kMargin;
            y += lineHeight + kRowGap;
        }
        addText(std::string(name), {x, y + place.height + kCaptionGap, pitch - kGapX, kCaptionHeight}, false);
        if (row.surface == ExhibitSurface::accent) addAccent({x, y, place.width, place.height});
        addExhibit(std::move(exhibit), identifierOf(page, row, name), {x + margin, y + margin}, report);
        x += pitch;
    }
    contentHeight_ = y + lineHeight + kRowGap;
}

// The tiles of a line are as high as one another.
void PageView::addTiles(const GalleryPage& page, StereoFeed& feed, const Report& report) {
    double x = kMargin, top = contentHeight_;
    for (const ExhibitRow& row : page.rows) {
        if (x + row.size.width > bounds().width - kMargin) {
            x = kMargin;
            top = contentHeight_;
        }
        const double y = top + kTitleHeight + kTitleGap;
        contentHeight_ = y + row.size.height + kCaptionGap + kCaptionHeight + kRowGap;
        addText(std::string(row.title), {x, top, row.size.width, kTitleHeight}, true);
        addText(std::string(row.caption), {x, y + row.size.height + kCaptionGap, row.size.width, kCaptionHeight},
                false);
        const auto& [state, name] = exhibitStates().front();
        if (auto exhibit = Exhibit::make(row, state, {0, 0, row.size.width, row.size.height}, feed))
            addExhibit(std::move(exhibit), identifierOf(page, row, name), {x, y}, report);
        x += row.size.width + kGapX;
    }
}

void PageView::addExhibit(std::unique_ptr<Exhibit> exhibit, const std::string& identifier, Point at,
                          const Report& report) {
    exhibit->setFrame({at.x, at.y, exhibit->bounds().width, exhibit->bounds().height});
    exhibit->setIdentifier(identifier);
    exhibit->setReport(report);
    exhibits_.push_back(&addSubview(std::move(exhibit)));
}

void PageView::addAccent(const Rect& frame) {
    auto accent = std::make_shared<Layer>();
    accent->setFrame(frame);
    accent->look().setCornerRadius(kAccentRadius);
    accent->look().setBackgroundColor(galleryAccent);
    layer()->tree().insert(accent, 0);
}

void PageView::addText(const std::string& text, const Rect& frame, bool isTitle) {
    auto added = std::make_shared<TextLayer>();
    added->setFrame(frame);
    added->setAlignment(TextAlignment::left);
    layer()->tree().add(added);
    texts_.push_back({added, text, isTitle});
}

void PageView::redraw() {
    const QVMUITheme& theme = QVMUITheme::theme();
    const QVMPalette& palette = theme.palette;
    layer()->look().setBackgroundColor(theme.backgroundColor);
    for (const Text& text : texts_) {
        AttributedString shown(text.text,
                               text.isTitle ? QVMUITheme::unitFontOfSize(kTitleSize)
                                            : QVMUITheme::italicFontOfSize(kCaptionSize),
                               text.isTitle ? theme.labelColorGivenInk(palette.headingInk) : palette.note);
        if (text.isTitle) shown.runs.front().kern = kTitleKern;
        text.layer->setString(shown);
    }
    for (Exhibit* exhibit : exhibits_)
        exhibit->themeUpdated();
}

} // namespace QVM_NAMESPACE
