#include "tools/gallery/GalleryView.h"

#include "controls/ControlClasses.h"
#include "description/NumberText.h"
#include "platform/view/Window.h"
#include "theme/QVMUITheme.h"
#include "tools/gallery/Parameters.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double kHeader = 46, kFooter = 26, kMargin = 24, kStatusSize = 12; // points
constexpr Rect kTabs = {kMargin, 9, 760, 28};
constexpr Rect kTheme = {GalleryView::size.width - kMargin - 150, 9, 150, 28};
constexpr Rect kPage = {0, kHeader, GalleryView::size.width, GalleryView::size.height - kHeader - kFooter};

} // namespace

GalleryView::GalleryView(StereoFeed& feed, std::size_t page, Listener listener)
    : View({0, 0, size.width, size.height}), feed_(feed), listener_(std::move(listener)), page_(page),
      header_(std::make_shared<Layer>()), headerLine_(std::make_shared<Layer>()), footer_(std::make_shared<Layer>()),
      footerLine_(std::make_shared<Layer>()), statusText_(std::make_shared<TextLayer>()) {
    header_->setFrame({0, 0, size.width, kHeader});
    headerLine_->setFrame({0, kHeader - 1, size.width, 1});
    footer_->setFrame({0, size.height - kFooter, size.width, kFooter});
    footerLine_->setFrame({0, size.height - kFooter, size.width, 1});
    statusText_->setFrame(footer_->frame().insetBy(kMargin, 0));
    statusText_->setAlignment(TextAlignment::left);
    for (const std::shared_ptr<Layer>& part :
         {header_, headerLine_, footer_, footerLine_, std::shared_ptr<Layer>(statusText_)})
        layer()->tree().add(part);

    tabs_ = &addSwitch("Page", kTabs);
    tabs_->setFloatValue(static_cast<float>(page_));
    tabs_->setAction([this](Control& tabs) {
        const auto chosen = static_cast<std::size_t>(tabs.floatValue());
        if (chosen != page_) showPage(chosen);
    });
    theme_ = &addSwitch("Theme", kTheme);
    theme_->setFloatValue(QVMUITheme::isDark() ? 1 : 0);
    theme_->setAction([this](Control& theme) {
        if ((theme.floatValue() == 1) != QVMUITheme::isDark()) QVMUITheme::toggleThemeForWindow(window());
    });
    themeObservation_ = NotificationCenter::defaultCenter().observe(QVMUITheme::updatedNotification, nullptr,
                                                                    [this](const Notification&) { redraw(); });
    status_ = feed_.title();
    showPage(page_);
    redraw();
}

GalleryView::~GalleryView() {
    keys_.setControls({}); // they go before it does
}

QVMFloatControl& GalleryView::addSwitch(const char* key, const Rect& frame) {
    const GalleryParameter& parameter = *galleryParameter(key);
    return addSubview(controlClassForType(parameter.controlType)(frame, parameter));
}

void GalleryView::showPage(std::size_t index) {
    page_ = std::min(index, galleryPages().size() - 1);
    keys_.setControls({});
    if (pageView_) pageView_->removeFromSuperview();
    pageView_ = &addSubview(std::make_unique<PageView>(
        kPage, galleryPages()[page_], feed_,
        [this](Exhibit& exhibit, const std::string& what) { exhibitReported(exhibit, what); }));
    std::vector<QVMParameterControl*> controls;
    for (Exhibit* exhibit : pageView_->exhibits())
        if (QVMParameterControl* control = exhibit->parameterControl()) controls.push_back(control);
    keys_.setControls(std::move(controls));
    tabs_->setFloatValue(static_cast<float>(page_));
    if (window()) tellPlaces();
}

void GalleryView::exhibitReported(Exhibit& exhibit, const std::string& what) {
    if (what == "began") keys_.focus(exhibit.parameterControl());
    status_ = exhibit.identifier() + "   " + what;
    if (listener_) listener_(exhibit.identifier() + " " + what);
    redraw();
}

void GalleryView::tellPlaces() {
    if (!listener_) return;
    for (const Exhibit* exhibit : pageView_->exhibits()) {
        const Rect place = exhibit->coordinates().toWindow(exhibit->bounds());
        std::string line = "at " + exhibit->identifier();
        for (const double number : {place.x, place.y, place.width, place.height})
            line += " " + ShortestText(number);
        listener_(line);
    }
}

void GalleryView::viewDidMoveToWindow() {
    if (!window()) return;
    window()->makeFirstResponder(this);
    tellPlaces();
}

void GalleryView::mouseDown(const Event&) {
    if (!window()) return;
    window()->makeFirstResponder(this);
    window()->makeKey();
}

bool GalleryView::keyDown(const Event& event) {
    return keys_.handleKey(event) || View::keyDown(event);
}

bool GalleryView::performKeyEquivalent(const Event& event) {
    return keys_.handleKey(event) || View::performKeyEquivalent(event);
}

void GalleryView::redraw() {
    const QVMUITheme& theme = QVMUITheme::theme();
    layer()->look().setBackgroundColor(theme.backgroundColor);
    for (const auto& bar : {header_, footer_})
        bar->look().setBackgroundColor(theme.palette.sidePanel);
    for (const auto& line : {headerLine_, footerLine_})
        line->look().setBackgroundColor(theme.interiorBorderColor);
    statusText_->setString(
        {status_, QVMUITheme::unitFontOfSize(kStatusSize), theme.labelColorGivenInk(theme.palette.labelInk)});
    theme_->setFloatValue(QVMUITheme::isDark() ? 1 : 0);
}

} // namespace QVM_NAMESPACE
