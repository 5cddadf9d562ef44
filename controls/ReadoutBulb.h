// The handle of a slider: a capsule in the parameter's colour that carries the value, with a pointer at its middle: to
// the track, if it stands off it, or from the track to the scale.
//
// All its layers hang below one, so that moving the handle is moving that layer and nothing is drawn again. Main
// thread.
#pragma once

#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"

namespace QVM_NAMESPACE {

// Long ones reach for a track, short ones for a scale.
enum class BulbPointer : unsigned char { none, down, up, shortDown, shortRight };
enum class BulbState : unsigned char { normal, hovered, pressed };

class ReadoutBulb {
public:
    static constexpr double height = 26;       // points, of the capsule
    static constexpr double pointerLength = 5; // points, beyond the capsule
    static constexpr double shortPointerLength = 3.5;
    static constexpr double textMargin = 4; // points, left and right of the text

    // `room` (points) is kept free above and below the capsule.
    ReadoutBulb(Color color, BulbPointer pointer, double room = 0);

    // The one to move: as large as the capsule with its room, placed by its centre; y grows upwards.
    const std::shared_ptr<Layer>& bulb() const { return bulb_; }
    const std::shared_ptr<ShapeLayer>& background() const { return background_; }
    const std::shared_ptr<ShapeLayer>& border() const { return border_; }
    const std::shared_ptr<TextLayer>& text() const { return text_; }
    BulbPointer pointer() const { return pointer_; }

    double width() const { return bulb_->bounds().width; }
    // Of `bulb()`, points.
    double fullHeight() const { return bulb_->bounds().height; }
    // The capsule in `bulb()`.
    Rect capsuleBox() const { return bulb_->bounds().insetBy(0, room_); }
    void setWidth(double points);
    // The room for text, points.
    double textWidth() const { return width() - 2 * textMargin; }
    // Whether a point of the superlayer lies on the capsule or its pointer.
    bool contains(Point point) const;

    // Takes the theme's present colours.
    void style();
    void setText(const AttributedString& text);
    // Has the text stay legible while all else of it is dimmed.
    void setDimmed(bool dimmed);
    void setState(BulbState state);
    // Shows the border and the caret of a field that is being typed into.
    void setTyping(bool typing);

private:
    void placeCaret();

    const Color color_; // the parameter's, which is darkened where the unit needs it
    BulbPointer pointer_;
    const double room_; // points
    BulbState state_ = BulbState::normal;
    bool isDimmed_ = false;
    AttributedString value_; // as it was given
    std::shared_ptr<Layer> bulb_;
    std::shared_ptr<ShapeLayer> background_, border_;
    std::shared_ptr<TextLayer> text_;
    std::shared_ptr<Layer> caret_;
};

} // namespace QVM_NAMESPACE
