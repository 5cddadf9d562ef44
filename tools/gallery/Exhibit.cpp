#include "tools/gallery/Exhibit.h"

#include "tools/gallery/ButtonExhibit.h"
#include "tools/gallery/Displays.h"
#include "tools/gallery/ParameterExhibit.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

std::unique_ptr<Exhibit> makeDisplay(const ExhibitRow& row, ExhibitState state, const Rect& frame, StereoFeed& feed) {
    const auto displays = galleryDisplays();
    const auto found = std::ranges::find(displays, row.key, &GalleryDisplay::title);
    if (state != ExhibitState::normal || found == displays.end()) return nullptr;
    auto exhibit = std::make_unique<Exhibit>(frame);
    exhibit->addSubview(found->make(exhibit->bounds(), feed));
    return exhibit;
}

} // namespace

std::unique_ptr<Exhibit> Exhibit::make(const ExhibitRow& row, ExhibitState state, const Rect& frame, StereoFeed& feed) {
    switch (row.kind) {
    case ExhibitKind::parameter:
    case ExhibitKind::range:
        return ParameterExhibit::make(row, state, frame);
    case ExhibitKind::symbolButton:
    case ExhibitKind::meterButton:
        return ButtonExhibit::make(row, state, frame);
    case ExhibitKind::display:
        return makeDisplay(row, state, frame, feed);
    }
    return nullptr;
}

} // namespace QVM_NAMESPACE
