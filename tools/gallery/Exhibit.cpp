#include "tools/gallery/Exhibit.h"

#include "tools/gallery/ButtonExhibit.h"
#include "tools/gallery/DisplayExhibit.h"
#include "tools/gallery/ParameterExhibit.h"

namespace QVM_NAMESPACE {

std::unique_ptr<Exhibit> Exhibit::make(const ExhibitRow& row, ExhibitState state, const Rect& frame, StereoFeed& feed) {
    switch (row.kind) {
    case ExhibitKind::parameter:
    case ExhibitKind::range:
        return ParameterExhibit::make(row, state, frame);
    case ExhibitKind::symbolButton:
    case ExhibitKind::meterButton:
        return ButtonExhibit::make(row, state, frame);
    case ExhibitKind::display:
        return DisplayExhibit::make(row, state, frame, feed);
    }
    return nullptr;
}

} // namespace QVM_NAMESPACE
