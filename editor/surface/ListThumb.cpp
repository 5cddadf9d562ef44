#include "editor/surface/ListThumb.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr double width = 3, inset = 3, grasp = 10, shortest = 24; // points

} // namespace

ListThumb::ListThumb(Layer& view) : layer_(std::make_shared<Layer>()) {
    layer_->setName("thumb");
    layer_->look().setCornerRadius(width / 2);
    layer_->setHidden(true);
    view.tree().add(layer_);
}

double ListThumb::greatestOffset() const {
    return std::max(0.0, listHeight_ - view_.height);
}

void ListThumb::place(Size view, double listHeight, double offset) {
    view_ = view;
    listHeight_ = listHeight;
    layer_->setHidden(greatestOffset() <= 0);
    if (layer_->isHidden()) return;
    const double track = view.height - 2 * inset;
    const double length = std::max(shortest, track * view.height / listHeight);
    const double travelled = offset / greatestOffset();
    layer_->setFrame({view.width - inset - width, inset + travelled * (track - length), width, length});
}

std::optional<double> ListThumb::press(Point at) {
    if (layer_->isHidden() || at.x < view_.width - grasp) return std::nullopt;
    const Rect thumb = layer_->frame();
    const bool isOnThumb = at.y >= thumb.minY() && at.y < thumb.maxY();
    grip_ = isOnThumb ? at.y - thumb.y : thumb.height / 2;
    return drag(at);
}

std::optional<double> ListThumb::drag(Point at) const {
    if (!grip_) return std::nullopt;
    const double travel = view_.height - 2 * inset - layer_->frame().height;
    return travel > 0 ? (at.y - *grip_ - inset) / travel * greatestOffset() : 0;
}

} // namespace QVM_NAMESPACE
