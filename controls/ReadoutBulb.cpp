#include "controls/ReadoutBulb.h"

#include "controls/ReadoutText.h"
#include "controls/TextFitting.h"
#include "platform/layer/TextMetrics.h"
#include "theme/QVMUITheme.h"

#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr double kPointerHalfWidth = 5; // points
constexpr double kFieldInset = 2;
constexpr Size kCaret = {1, 15};
constexpr float kHoverShade = 0.07f, kPressShade = 0.14f; // darker, so that the text stays legible
constexpr float kFieldAlpha = 0.75f;

// A capsule of the given size with, at the middle of a long side, a pointer; y grows upwards.
Path capsule(Size size, BulbPointer pointer) {
    using std::numbers::pi;
    const double w = size.width, h = size.height, r = h / 2, mid = w / 2;
    const double length = ReadoutBulb::pointerLength;
    Path path;
    path.moveTo({r, 0});
    if (pointer == BulbPointer::down)
        path.lineTo({mid - kPointerHalfWidth, 0}).lineTo({mid, -length}).lineTo({mid + kPointerHalfWidth, 0});
    path.addArc({w - r, r}, r, -pi / 2, pi / 2);
    if (pointer == BulbPointer::up)
        path.lineTo({mid + kPointerHalfWidth, h}).lineTo({mid, h + length}).lineTo({mid - kPointerHalfWidth, h});
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

ReadoutBulb::ReadoutBulb(Color color, BulbPointer pointer)
    : color_(color), pointer_(pointer), bulb_(std::make_shared<Layer>(YAxis::up)),
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
    bulb_->setBounds({0, 0, height, height});
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
    const Rect box = {0, 0, points, height};
    bulb_->setBounds(box);
    for (Layer* layer :
         {static_cast<Layer*>(background_.get()), static_cast<Layer*>(border_.get()), static_cast<Layer*>(text_.get())})
        layer->setFrame(box);
    background_->setPath(capsule(box.size(), pointer_));
    border_->setPath(Path::roundedRect(box.insetBy(kFieldInset, kFieldInset), height / 2 - kFieldInset));
    placeCaret();
}

bool ReadoutBulb::contains(Point point) const {
    const Point local = point - bulb_->frame().origin();
    const Rect box = {0, 0, width(), height};
    if (box.contains(local)) return true;
    const double left = width() / 2 - kPointerHalfWidth;
    switch (pointer_) {
    case BulbPointer::down:
        return Rect{left, -pointerLength, 2 * kPointerHalfWidth, pointerLength}.contains(local);
    case BulbPointer::up:
        return Rect{left, height, 2 * kPointerHalfWidth, pointerLength}.contains(local);
    case BulbPointer::none:
        break;
    }
    return false;
}

void ReadoutBulb::setText(const AttributedString& text) {
    text_->setString(shrunkenToWidth(text, textWidth()));
    placeCaret();
}

void ReadoutBulb::placeCaret() {
    if (caret_->isHidden()) return;
    const double x = std::round(width() / 2 + sizeOf(text_->string()).width / 2 + 1);
    caret_->setFrame({x, (height - kCaret.height) / 2, kCaret.width, kCaret.height});
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
