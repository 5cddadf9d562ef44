#include "platform/GLLayer.h"

#include "platform/DrawingSurfaceFactory.h"

namespace QVM_NAMESPACE {

GLLayer::GLLayer(YAxis axis) : Layer(axis) {
    setContents(nullptr, ContentsGravity::topLeft);
}

GLLayer::~GLLayer() = default;

std::unique_ptr<DrawingSurface> GLLayer::makeSurface() const {
    return makeDrawingSurface();
}

const std::shared_ptr<const Image>& GLLayer::contents() const {
    if (drawnVersion_ != contentVersion() || drawnSize_ != bounds().size()) render();
    return shown_;
}

void GLLayer::render() const {
    drawnVersion_ = contentVersion();
    drawnSize_ = bounds().size();
    const long ours = 2; // picture_ and shown_
    if (!picture_ || picture_.use_count() > ours) picture_ = std::make_shared<Image>();
    shown_ = picture_;
    if (!surface_) surface_ = makeSurface();
    surface_->begin(drawnSize_, contentsScale());
    draw(*surface_);
    if (surface_->finish(*picture_)) return;
    surface_ = makeSubstituteSurface();
    surface_->begin(drawnSize_, contentsScale());
    draw(*surface_);
    surface_->finish(*picture_);
}

} // namespace QVM_NAMESPACE
