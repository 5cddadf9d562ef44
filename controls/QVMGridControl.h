// A field of squares, one a value from 0 up, of which one is taken; the value's text stands below. Chosen by pressing
// or sweeping; the arrow keys for up and down go by rows. Main thread only.
#pragma once

#include "controls/SweptControl.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"

#include <vector>

namespace QVM_NAMESPACE {

class QVMGridControl : public SweptControl {
public:
    QVMGridControl(const Rect& frame, const QVMParameter& parameter);

    // The squares in value order, own coordinates: rows from the top down, each from the left. And how many make a row.
    const std::vector<Rect>& squares() const { return squares_; }
    int square() const { return square_; }
    // Where squares and text stand, own coordinates.
    Rect calculatedSquares() const;
    Rect strValueRect() const;

    // The value under the pointer; the present one, as a whole number, where it is on no square.
    int indexValueForEvent(const QVMEvent& event) const;
    // How the text stands under the squares.
    static TextAlignment centeredStyle() { return TextAlignment::center; }

    // Under the square that is taken; hidden for a value that has none.
    const std::shared_ptr<Layer>& current() const { return current_; }
    const std::shared_ptr<TextLayer>& strValue() const { return strValue_; }

    // A value without a square is shown as text alone.
    void setFloatValue(float value) override;
    // A row for up and down, as far as there are values; a step of the parameter for left and right.
    float incrementedValueForArrowGranularity(char32_t arrow, std::int32_t granularity) const override;

protected:
    // On no square it takes the present value, as a whole number.
    void takeValueFromEvent(const QVMEvent& event) override { takeIndex(indexValueForEvent(event)); }
    void redraw() override;
    int indexAt(Point point) const override;
    std::optional<Rect> hoverFrame(int index) const override { return squares_[static_cast<std::size_t>(index)]; }

private:
    void addSquares();
    void showValue(Animate animate);

    std::vector<Rect> squares_;
    int square_ = 1;
    std::shared_ptr<Layer> current_;
    std::shared_ptr<ShapeLayer> field_; // all squares
    std::shared_ptr<TextLayer> strValue_;
};

} // namespace QVM_NAMESPACE
