#include "toolkit/WindowFrames.h"

#include "platform/runloop/RunLoop.h"
#include "theme/QVMUITheme.h"
#include "toolkit/Conversions.h"
#include "toolkit/NativePeer.h"
#include "toolkit/ToolkitRasterTarget.h"

#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double shortestFrame = 0.012; // seconds between frames that a change asks for
constexpr double restShare = 0.5;       // of the time that drawing took, during which nothing is drawn

// Free of the noise of single precision: 1.1f is 1.1.
double cleanScale(double scale) {
    return std::round(scale * 1e4) / 1e4;
}

} // namespace

WindowFrames::WindowFrames(juce::Component& component, Window& window, const WindowPresence& presence,
                           RefreshPace& pace, FaceLibrary& faces)
    : component_(component), window_(window), presence_(presence), pace_(pace), backend_(faces),
      last_(&renderer_.update(0)) {
    renderer_.setChangeHandler([this] {
        isWanted_ = true;
        triggerAsyncUpdate();
    });
}

// A pointer that moves faster than the display is shown at the display's rate.
void WindowFrames::drawSoon() {
    if (!isWanted_ || !presence_.isOnScreen()) return;
    const double wait = std::max(secondsToRest(), lastFrameTime_ + shortestFrame - RunLoop::main().now());
    if (wait > 0) return wait_.schedule(wait, [this] { drawSoon(); });
    {
        const RefreshPace::ScopedFrame ours(pace_);
        draw();
    }
    if (isAnimating()) pace_.keepAwake();
    show();
}

void WindowFrames::show() {
    juce::ComponentPeer* const peer = component_.getPeer();
    if (!peer) return;
    isShown_ = last_->damage.empty();
    peer->performAnyPendingRepaintsNow();
    juce::exchangeEvents();
    // While the server is at the last picture the toolkit leaves the next one to a refresh of the display.
    if (!isShown_) pace_.keepAwake();
}

// The toolkit looks for input when its own messages have run out, and its timer posts the next one as soon as it is
// due: with frames that take longer than a refresh, and no rest after them, a click would wait for seconds.
double WindowFrames::secondsToRest() const {
    return lastDrawingEnd_ + drawingSeconds_ * restShare - RunLoop::main().now();
}

void WindowFrames::didRefresh() {
    if ((isWanted_ || isAnimating()) && presence_.isOnScreen() && secondsToRest() <= 0) draw();
}

void WindowFrames::draw() {
    if (const juce::ComponentPeer* peer = component_.getPeer())
        adoptScale(cleanScale(juce::Component::getApproximateScaleFactorForComponent(&component_) *
                              peer->getPlatformScaleFactor()));
    lastFrameTime_ = RunLoop::main().now();
    isWanted_ = false;
    last_ = &renderer_.update(lastFrameTime_);
    repaintDamage();
    drawingSeconds_ = 0;
    didDraw(lastFrameTime_);
}

void WindowFrames::didDraw(double since) {
    lastDrawingEnd_ = RunLoop::main().now();
    drawingSeconds_ += lastDrawingEnd_ - since;
}

void WindowFrames::adoptScale(double scale) {
    if (scale == window_.backingScaleFactor() && scale == renderer_.scale()) return;
    renderer_.setScale(scale);
    window_.setBackingScaleFactor(scale);
}

void WindowFrames::repaintDamage() {
    const double points = 1 / renderer_.scale();
    for (const Rect& r : last_->damage)
        component_.repaint(toToolkit(Rect{r.x * points, r.y * points, r.width * points, r.height * points})
                               .getSmallestIntegerContainer());
}

void WindowFrames::paint(juce::Graphics& g) {
    const double start = RunLoop::main().now();
    isShown_ = true;
    const double scale = cleanScale(g.getInternalContext().getPhysicalPixelScaleFactor());
    // A host may change the scale without a word; and the first paint may come before the first frame.
    if (scale != renderer_.scale() || isWanted_) {
        adoptScale(scale);
        isWanted_ = false;
        last_ = &renderer_.update(RunLoop::main().now());
        repaintDamage(); // what lies outside of this paint's clip
    }
    // Beside the content is the ground that its panels have.
    const Color ground = window_.contentView() ? QVMUITheme::theme().palette.sidePanel : Color::white(0);
    if (!isContentOpaque()) g.fillAll(toToolkit(ground));
    composeInto(g, scale);
    didDraw(start);
}

void WindowFrames::composeInto(juce::Graphics& g, double scale) const {
    const juce::Rectangle<int> clip = g.getClipBounds();
    // Where this component begins in its peer may be between two pixels; it is drawn from the nearest one.
    const juce::Component* const top = component_.getTopLevelComponent();
    const juce::Point<double> origin =
        top->getLocalPoint(&component_, juce::Point<float>()).toDouble() *
        (scale / std::max(1e-3, double{juce::Component::getApproximateScaleFactorForComponent(&component_)})) *
        double{juce::Component::getApproximateScaleFactorForComponent(top)};
    const auto toWhole = [](double v) { return static_cast<float>(std::round(v) - v); };
    juce::Graphics::ScopedSaveState saved(g);
    g.addTransform(
        juce::AffineTransform::translation(toWhole(origin.x), toWhole(origin.y)).scaled(static_cast<float>(1 / scale)));
    ToolkitRasterTarget target(g);
    const Rect device{clip.getX() * scale, clip.getY() * scale, clip.getWidth() * scale, clip.getHeight() * scale};
    renderer_.compose(target, device.integral().insetBy(-1, -1));
}

bool WindowFrames::isContentOpaque() const {
    const View* content = window_.contentView();
    if (!content || content->isHidden() || content->alpha() < 1) return false;
    const Layer& layer = *content->layer();
    return layer.look().backgroundColor().a >= 1 && layer.look().cornerRadius() <= 0 &&
           content->frame().contains(Rect{0, 0, double(component_.getWidth()), double(component_.getHeight())});
}

} // namespace QVM_NAMESPACE
