// The hair line over the response curve with a dot where it crosses, and the small plate with what the curve says
// there.
//
// A move puts layers elsewhere; only texts that say something else are drawn again. Main thread only.
#pragma once

#include "platform/layer/Layer.h"

#include <array>
#include <memory>
#include <string>

namespace QVM_NAMESPACE {

class ShapeLayer;
class TextLayer;

class CurveReadout {
public:
    struct Content {
        Point at;                                  // on the curve, points of the curve's view
        std::string frequency, level, note, cents; // an empty one takes no room
        bool operator==(const Content&) const = default;
    };

    CurveReadout();

    // To be put above the curve, in the same box.
    const std::shared_ptr<Layer>& layer() const { return layer_; }
    // `ground` is what the curve stands on, and opaque.
    void setColors(Color ground);

    // The plate stands near the upper edge, at the hair line's end, left of `keptFree`; near the lower one where the
    // curve or a lack of room is in the way. Cents are left out where they would not fit beside the rest.
    void layOutIn(Size box, const Rect& keptFree);
    void show(const Content& content);
    void hide();
    bool isShown() const { return isShown_; }
    const Content& content() const { return content_; }
    // The plate and the hair line while they are shown, empty otherwise.
    std::array<Rect, 2> frames() const;

private:
    enum Column : std::size_t { frequency, level, note, columns };

    void showTexts();
    bool showsCents() const;
    void placeColumns();
    void place();

    std::shared_ptr<Layer> layer_, hairLine_, plate_;
    std::shared_ptr<ShapeLayer> dot_;
    std::array<std::shared_ptr<TextLayer>, columns> texts_;
    Color ink_, quietInk_; // of the cents
    Content content_;
    Size box_;
    Rect keptFree_;
    std::array<double, columns> widths_{}; // of the widest text in each column
    double centsWidth_ = 0;                // and of the widest cents behind a note
    double plateWidth_ = 0;
    bool isShown_ = false;
};

} // namespace QVM_NAMESPACE
