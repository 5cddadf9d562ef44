#include "tools/gallery/LiveDisplayView.h"

#include "tools/gallery/Accent.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr unsigned kBlockFrames = 512;
constexpr double kLongestFrame = 0.25; // seconds; what a stalled program has missed stays missed

} // namespace

class LiveDisplayView::Picture final : public GLLayer {
public:
    explicit Picture(LiveDisplay& display) : display_(display) { setName("liveDisplay"); }

protected:
    void draw(DrawingSurface& surface) const override { display_.draw(surface); }

private:
    LiveDisplay& display_;
};

LiveDisplayView::LiveDisplayView(const Rect& frame, StereoFeed& feed, std::unique_ptr<LiveDisplay> display)
    : View(frame), feed_(feed), display_(std::move(display)), picture_(std::make_shared<Picture>(*display_)) {
    picture_->setFrame(bounds());
    block_.alloc(kBlockFrames);
}

LiveDisplayView::~LiveDisplayView() {
    stop();
    picture_->tree().removeFromSuperlayer(); // somebody may still hold it, and the display goes
}

void LiveDisplayView::viewDidMoveToWindow() {
    stop();
    if (!window()) return;
    setUp();
    layer()->tree().add(picture_);
    hearing_ = feed_.listen([this](auto left, auto right) { hear(left, right); });
    link_ = DisplayLink::create();
    link_->setOutputCallback(linkDidTick, this);
    link_->start();
}

void LiveDisplayView::stop() {
    if (!link_) return;
    link_->stop();
    link_.reset();
    hearing_ = {};
    lastFrame_ = 0;
}

void LiveDisplayView::setUp() {
    const double scale = layer()->look().contentsScale();
    if (!window() || (size_ == bounds().size() && scale_ == scale)) return;
    size_ = bounds().size();
    scale_ = scale;
    picture_->setFrame(bounds());
    picture_->look().setContentsScale(scale);
    PBGLCanvas canvas;
    canvas.sketch.color = {galleryAccent.r, galleryAccent.g, galleryAccent.b};
    canvas.width = static_cast<float>(size_.width);
    canvas.height = static_cast<float>(size_.height);
    canvas.scale = static_cast<float>(scale);
    display_->init(canvas, static_cast<float>(feed_.sampleRateHz()), kBlockFrames);
    picture_->look().setNeedsDisplay();
}

void LiveDisplayView::hear(std::span<const float> left, std::span<const float> right) {
    for (std::size_t at = 0; at < left.size(); at += kBlockFrames) {
        const std::size_t count = std::min<std::size_t>(kBlockFrames, left.size() - at);
        std::ranges::copy(left.subspan(at, count), block_.channels[0]);
        std::ranges::copy(right.subspan(at, count), block_.channels[1]);
        display_->processAudio(block_, static_cast<unsigned>(count));
    }
}

int LiveDisplayView::linkDidTick(const std::shared_ptr<DisplayLink>& link, const DisplayTimeStamp& output, void* view) {
    const double seconds = static_cast<double>(output.videoRefreshPeriod) / output.videoTimeScale;
    const double time = static_cast<double>(output.videoTime) / output.videoTimeScale;
    link->postFrame([view, seconds, time] { static_cast<LiveDisplayView*>(view)->showFrame(seconds, time); });
    return 0;
}

void LiveDisplayView::showFrame(double seconds, double time) {
    const double elapsed = lastFrame_ > 0 ? std::clamp(time - lastFrame_, seconds, kLongestFrame) : seconds;
    lastFrame_ = time;
    if (!isShown()) return;
    if (display_->prepareForDrawing(static_cast<float>(elapsed)) == Redraw::yes) picture_->look().setNeedsDisplay();
}

bool LiveDisplayView::isShown() const {
    const View* view = this;
    while (view && !view->isHidden() && view->alpha() > 0)
        view = view->superview();
    return view == nullptr;
}

} // namespace QVM_NAMESPACE
