#include "platform/layer/GLLayer.h"

#include "platform/layer/LayerGeometry.h"
#include "platform/surface/DrawingSurfaceFactory.h"

namespace QVM_NAMESPACE {

GLLayer::GLLayer(YAxis axis) : Layer(axis) {
    look().setContents(nullptr, ContentsGravity::topLeft);
}

GLLayer::~GLLayer() = default;

std::unique_ptr<DrawingSurface> GLLayer::makeSurface() const {
    return makeDrawingSurface();
}

const std::shared_ptr<const Image>& GLLayer::contents() const {
    if (drawnVersion_ != look().version() || drawnSize_ != bounds().size()) render();
    return shown_;
}

void GLLayer::render() const {
    drawnVersion_ = look().version();
    drawnSize_ = bounds().size();
    const long ours = 2; // picture_ and shown_
    if (!picture_ || picture_.use_count() > ours) picture_ = std::make_shared<Image>();
    shown_ = picture_;
    if (!surface_) surface_ = makeSurface();
    if (drawPicture()) return;
    surface_ = makeSubstituteSurface();
    drawPicture();
}

bool GLLayer::drawPicture() const {
    surface_->begin(drawnSize_, look().contentsScale());
    draw(*surface_);
    painted_ = surface_->painted();
    return surface_->finish(*picture_);
}

Rect GLLayer::lookBounds(const PresentedLayer& presented) const {
    contents();
    const Rect& bounds = presented.bounds;
    if (presented.backgroundColor.a > 0 || look().borderWidth() > 0) return bounds;
    const double points = 1 / look().contentsScale();
    const Rect inBox{painted_.x * points, painted_.y * points, painted_.width * points, painted_.height * points};
    return ownToBox(yAxis(), bounds).inverted().apply(inBox).intersectionWith(bounds);
}

} // namespace QVM_NAMESPACE
