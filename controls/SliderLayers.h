// What a slider shows, and where: the groove with what stands in it, the scale beside it and the handle on it.
//
// From the size of the slider and that of the handle follow the way that the handle can go and the places of all the
// rest. Which values belong to the positions, and what a press does, is the slider's to say. Members of a low/high pair
// show neither groove nor scale: their handles hang above or below the pair's. Main thread only; lengths in points, in
// the slider's coordinates (y up).
#pragma once

#include "controls/Animate.h"
#include "controls/ReadoutBulb.h"
#include "controls/SliderAxis.h"
#include "controls/SliderScale.h"
#include "platform/view/View.h"

#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class SliderLayers {
public:
    static constexpr double trackThickness = 14;
    // Of an upright track with a scale: odd, so that two channels of a meter and the gap between them are whole points.
    static constexpr double uprightTrackThickness = 15;
    static constexpr double readoutSize = 16;   // of the value's font
    static constexpr double glideSeconds = 0.1; // of an animated move

    // Both are borrowed and outlive this. The layers are added to the slider's, the handle above all others; it is as
    // wide as its widest value needs. Nothing stands anywhere before `layOut()`.
    SliderLayers(View& slider, const QVMParameter& parameter);

    // Where the handle's centre can go, as of the last calculation: to be repeated when the slider has another size.
    const SliderAxis& axis() const { return axis_; }
    void calculateExtents();
    Rect trackRect() const;

    // Everything but the handle's position anew, in the theme's present colours. `position` says where on the axis a
    // value stands, and is called at once.
    void layOut(const SliderScale::PositionOfValue& position);
    // Puts a view below the scale and the handle that covers the slider, but is seen in the track only and takes no
    // clicks. The slider owns it.
    void addInTrack(std::unique_ptr<View> view);

    // The handle: its position on the axis, also while it is still on the way there.
    void moveHandle(double position, Animate animate);
    double handlePosition() const { return axis_.coordinateOf(bulb_.bulb()->position()); }
    bool isHandleGliding() const;
    // Whether a point is on the handle or its pointer.
    bool isOnHandle(Point point) const { return bulb_.contains(point); }
    // Makes the handle as wide as its widest value needs, but not narrower than usual; the extents follow.
    void sizeHandleToFitWidestValue();
    void showValue(float value);
    ReadoutBulb& bulb() { return bulb_; }
    const ReadoutBulb& bulb() const { return bulb_; }

    // The marks that can be clicked, and the one at a point; null when there is none. They live until the next layout.
    const std::vector<QVMCueRect>& cueRects() const { return scale_.cueRects(); }
    const QVMCueRect* cueAt(Point point) const;

    const std::shared_ptr<Layer>& background() const { return background_; }
    // The part of the track between 0 and the value, where the parameter goes as far to either side of 0; else hidden.
    const std::shared_ptr<Layer>& fill() const { return fill_; }

private:
    bool isMember() const { return !parameter_.range.empty(); }
    bool hasScale() const { return !isMember() && SliderScale::hasMarks(parameter_); }
    double thickness() const { return !axis_.horizontal && hasScale() ? uprightTrackThickness : trackThickness; }
    double trackCenter() const;
    double handleCenter() const;
    void layOutScale(const SliderScale::PositionOfValue& position);
    void layOutTrackContent();
    void layOutFill(const SliderScale::PositionOfValue& position);
    void placeFill(double position);

    View& slider_;
    const QVMParameter& parameter_;
    SliderAxis axis_;
    std::shared_ptr<Layer> background_, fill_;
    double zeroPosition_ = 0;      // where the fill begins, on the axis
    View* trackContent_ = nullptr; // as large as the track; null while nothing was added there
    SliderScale scale_;
    ReadoutBulb bulb_;
};

} // namespace QVM_NAMESPACE
