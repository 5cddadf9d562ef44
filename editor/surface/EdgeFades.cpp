#include "editor/surface/EdgeFades.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace QVM_NAMESPACE {

namespace {

constexpr int rows = 72; // of the picture: a fine one at every scale

enum class Strongest : bool { top, bottom };

// One pixel wide and premultiplied, from nothing to the whole colour.
std::shared_ptr<const Image> gradient(Color color, Strongest strongest) {
    Image image{1, rows, std::vector<std::uint32_t>(rows)};
    for (int row = 0; row < rows; ++row) {
        const double way = (row + 0.5) / rows, share = strongest == Strongest::bottom ? way : 1 - way;
        const double alpha = share * share * (3 - 2 * share); // soft at both ends
        const auto byte = [alpha](double level) {
            return static_cast<std::uint32_t>(std::lround(level * alpha * 255));
        };
        image.pixels[static_cast<std::size_t>(row)] =
            byte(1) << 24 | byte(color.r) << 16 | byte(color.g) << 8 | byte(color.b);
    }
    return std::make_shared<const Image>(std::move(image));
}

std::shared_ptr<Layer> makeFade(const char* name, const Rect& frame, Layer& parent) {
    auto fade = std::make_shared<Layer>();
    fade->setName(name);
    fade->setFrame(frame);
    fade->setOpacity(0);
    parent.tree().add(fade);
    return fade;
}

} // namespace

EdgeFades::EdgeFades(Layer& parent, const Rect& bounds)
    : top_(makeFade("topFade", {bounds.x, bounds.y, bounds.width, height}, parent)),
      bottom_(makeFade("bottomFade", {bounds.x, bounds.maxY() - height, bounds.width, height}, parent)) {}

void EdgeFades::setGround(Color color) {
    top_->look().setContents(gradient(color, Strongest::top));
    bottom_->look().setContents(gradient(color, Strongest::bottom));
}

void EdgeFades::update(double above, double below) {
    top_->setOpacity(std::clamp(above / height, 0.0, 1.0));
    bottom_->setOpacity(std::clamp(below / height, 0.0, 1.0));
}

} // namespace QVM_NAMESPACE
