#include "tools/gallery/DisplayExhibit.h"

#include "theme/QVMUITheme.h"
#include "tools/gallery/Displays.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double kPadding = 12, kRadius = 6, kBorder = 1; // points

} // namespace

std::unique_ptr<Exhibit> DisplayExhibit::make(const ExhibitRow& row, ExhibitState state, const Rect& frame,
                                              StereoFeed& feed) {
    const auto displays = galleryDisplays();
    const auto found = std::ranges::find(displays, row.key, &GalleryDisplay::key);
    if (state != ExhibitState::normal || found == displays.end()) return nullptr;
    auto exhibit = std::make_unique<DisplayExhibit>(frame);
    exhibit->addSubview(found->make(exhibit->bounds().insetBy(kPadding, kPadding), feed));
    return exhibit;
}

DisplayExhibit::DisplayExhibit(const Rect& frame) : Exhibit(frame) {
    layer()->look().setCornerRadius(kRadius);
    themeUpdated();
}

void DisplayExhibit::themeUpdated() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    layer()->look().setBackgroundColor(palette.boxFill);
    layer()->look().setBorder(kBorder, palette.boxBorder);
}

} // namespace QVM_NAMESPACE
