#include "controls/ReadoutBulb.h"

#include "controls/DimmedText.h"
#include "controls/ReadoutText.h"
#include "controls/TextFitting.h"
#include "platform/layer/TextMetrics.h"
#include "theme/QVMUITheme.h"

#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr double kPointerHalfWidth = 5, kShortPointerHalfWidth = 4; // points
constexpr double kFieldInset = 2;
constexpr Size kCaret = {1, 15};
constexpr float kHoverShade = 0.07f, kPressShade = 0.14f; // darker, so that the text stays legible
constexpr float kFieldAlpha = 0.75f;

double halfWidthOf(BulbPointer pointer) {
    return pointer == BulbPointer::down || pointer == BulbPointer::up ? kPointerHalfWidth : kShortPointerHalfWidth;
}

// What a pointer takes up beside a capsule of the given size.
Rect pointerBox(Size size, BulbPointer pointer) {
    const double half = halfWidthOf(pointer), left = size.width / 2 - half;
    switch (pointer) {
    case BulbPointer::down:
        return {left, -ReadoutBulb::pointerLength, 2 * half, ReadoutBulb::pointerLength};
    case BulbPointer::up:
        return {left, size.height, 2 * half, ReadoutBulb::pointerLength};
    case BulbPointer::shortDown:
        return {left, -ReadoutBulb::shortPointerLength, 2 * half, ReadoutBulb::shortPointerLength};
    case BulbPointer::shortRight:
        return {size.width, size.height / 2 - half, ReadoutBulb::shortPointerLength, 2 * half};
    case BulbPointer::none:
        break;
    }
    return {};
}

// A capsule of the given size with, at the middle of a side, a pointer; y grows upwards.
Path capsule(Size size, BulbPointer pointer) {
    using std::numbers::pi;
    const double w = size.width, h = size.height, r = h / 2;
    const Rect tip = pointerBox(size, pointer);
    Path path;
    path.moveTo({r, 0});
    if (pointer == BulbPointer::down || pointer == BulbPointer::shortDown)
        path.lineTo({tip.minX(), 0}).lineTo({tip.midX(), tip.minY()}).lineTo({tip.maxX(), 0});
    if (pointer == BulbPointer::shortRight) {
        // From where the round end is as high as the pointer is wide.
        const double angle = std::asin(tip.height / 2 / r);
        path.addArc({w - r, r}, r, -pi / 2, -angle).lineTo({tip.maxX(), tip.midY()});
        path.addArc({w - r, r}, r, angle, pi / 2);
    } else {
        path.addArc({w - r, r}, r, -pi / 2, pi / 2);
    }
    if (pointer == BulbPointer::up)
        path.lineTo({tip.maxX(), h}).lineTo({tip.midX(), tip.maxY()}).lineTo({tip.minX(), h});
    path.addArc({r, r}, r, pi / 2, pi * 3 / 2);
    return path.close();
}

Color fillFor(Color color, BulbState state) {
    const Color shade = QVMUITheme::theme().palette.shade;
    switch (state) {
    case BulbState::hovered:
        return color.mixedWith(shade, kHoverShade);
    case BulbState::pressed:
        return color.mixedWith(shade, kPressShade);
    case BulbState::normal:
        break;
    }
    return color;
}

} // namespace

ReadoutBulb::ReadoutBulb(Color color, BulbPointer pointer, double room)
    : color_(color), pointer_(pointer), room_(room), bulb_(std::make_shared<Layer>(YAxis::up)),
      background_(std::make_shared<ShapeLayer>(YAxis::up)), border_(std::make_shared<ShapeLayer>(YAxis::up)),
      text_(std::make_shared<TextLayer>(YAxis::up)), caret_(std::make_shared<Layer>(YAxis::up)) {
    bulb_->setName("readoutBulb");
    background_->setName("readoutBg");
    border_->setName("readoutBorder");
    text_->setName("readout");
    caret_->setName("caret");
    text_->setAlignment(TextAlignment::center);
    border_->setFillColor(QVMCGClearColor());
    for (const std::shared_ptr<Layer>& layer :
         {std::shared_ptr<Layer>(background_), std::shared_ptr<Layer>(border_), std::shared_ptr<Layer>(text_), caret_})
        bulb_->tree().add(layer);
    bulb_->setBounds({0, 0, height, height + 2 * room_});
    style();
    setTyping(false);
}

void ReadoutBulb::style() {
    const Color mark = QVMUITheme::theme().palette.onAccent;
    border_->setStrokeColor(mark.withAlpha(kFieldAlpha));
    caret_->look().setBackgroundColor(mark);
    setState(state_);
}

void ReadoutBulb::setWidth(double points) {
    bulb_->setBounds({0, 0, points, height + 2 * room_});
    const Rect box = {0, 0, points, height};
    for (Layer* layer :
         {static_cast<Layer*>(background_.get()), static_cast<Layer*>(border_.get()), static_cast<Layer*>(text_.get())})
        layer->setFrame(capsuleBox());
    background_->setPath(capsule(box.size(), pointer_));
    border_->setPath(Path::roundedRect(box.insetBy(kFieldInset, kFieldInset), height / 2 - kFieldInset));
    placeCaret();
}

bool ReadoutBulb::contains(Point point) const {
    const Point local = point - bulb_->frame().origin() - capsuleBox().origin();
    const Rect box = {0, 0, width(), height};
    return box.contains(local) || pointerBox(box.size(), pointer_).contains(local);
}

void ReadoutBulb::setText(const AttributedString& text) {
    value_ = text;
    text_->setString(shrunkenToWidth(isDimmed_ ? inDimmedInk(text) : text, textWidth()));
    placeCaret();
}

void ReadoutBulb::setDimmed(bool dimmed) {
    isDimmed_ = dimmed;
    text_->setLeastOpacity(dimmed ? dimmedValueOpacity : 0);
    setText(AttributedString(value_));
}

void ReadoutBulb::placeCaret() {
    if (caret_->isHidden()) return;
    const double x = std::round(width() / 2 + sizeOf(text_->string()).width / 2 + 1);
    caret_->setFrame({x, capsuleBox().midY() - kCaret.height / 2, kCaret.width, kCaret.height});
}

void ReadoutBulb::setState(BulbState state) {
    state_ = state;
    background_->setFillColor(fillFor(groundForText(color_, readoutUnitColor()), state));
}

void ReadoutBulb::setTyping(bool typing) {
    border_->setHidden(!typing);
    caret_->setHidden(!typing);
    placeCaret();
}

} // namespace QVM_NAMESPACE
