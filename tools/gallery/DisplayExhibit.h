// A live display on a card of its own.
#pragma once

#include "tools/gallery/Exhibit.h"

namespace QVM_NAMESPACE {

class DisplayExhibit final : public Exhibit {
public:
    // Null when no display has the row's key, or for a state but the normal one. The feed outlives the exhibit.
    static std::unique_ptr<Exhibit> make(const ExhibitRow& row, ExhibitState state, const Rect& frame,
                                         StereoFeed& feed);

    explicit DisplayExhibit(const Rect& frame);

    void themeUpdated() override;
};

} // namespace QVM_NAMESPACE
