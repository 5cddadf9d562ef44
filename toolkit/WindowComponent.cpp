#include "toolkit/WindowComponent.h"

#include "toolkit/Conversions.h"
#include "toolkit/NativePeer.h"
#include "toolkit/ToolkitRasterTarget.h"
#include "toolkit/WindowMapState.h"

#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double shortestFrame = 0.012;    // seconds between frames that a change asks for
constexpr double restShare = 0.5;          // of the time that drawing took, during which nothing is drawn
constexpr double lookAroundSeconds = 0.25; // between looks whether the window is still to be seen, and where
constexpr double usualHz = 60;             // of a display that does not say: a virtual one, or a far one

// Free of the noise of single precision: 1.1f is 1.1.
double cleanScale(double scale) {
    return std::round(scale * 1e4) / 1e4;
}

} // namespace

WindowComponent::WindowComponent(Embedding embedding)
    : lastFrame_(&renderer_.update(0)), keys_(*this, window_, runtime_->connection(), embedding),
      refresh_(this, [this] { refresh(); }) {
    setOpaque(true);
    setWantsKeyboardFocus(true);
    setMouseClickGrabsKeyboardFocus(false); // the views say when they want keys
    renderer_.setChangeHandler([this] {
        isFrameWanted_ = true;
        triggerAsyncUpdate();
    });
}

WindowComponent::~WindowComponent() {
    window_.setHost(nullptr);
    if (keys_.hasMenu()) juce::PopupMenu::dismissAllActiveMenus();
    tooltips_ = nullptr;
    renderer_.setRootLayer(nullptr);
}

void WindowComponent::contentViewDidChange() {
    const View* content = window_.contentView();
    renderer_.setRootLayer(content ? content->layer() : nullptr);
    if (content) contentSizeDidChange(content->bounds().size());
}

// Frames

void WindowComponent::handleAsyncUpdate() {
    drawSoon();
}

// A pointer that moves faster than the display is shown at the display's rate.
void WindowComponent::drawSoon() {
    if (!isFrameWanted_ || !isOnScreen()) return;
    const double wait = std::max(secondsToRest(), lastFrameTime_ + shortestFrame - RunLoop::main().now());
    if (wait > 0) return frameCall_.schedule(wait, [this] { drawSoon(); });
    {
        const RefreshPace::ScopedFrame ours(pace_);
        frame();
    }
    if (renderer_.isAnimating()) pace_.keepAwake();
    show();
}

void WindowComponent::show() {
    juce::ComponentPeer* const peer = getPeer();
    if (!peer) return;
    isFrameShown_ = lastFrame_->damage.empty();
    peer->performAnyPendingRepaintsNow();
    juce::exchangeEvents();
    // While the server is at the last picture the toolkit leaves the next one to a refresh of the display.
    if (!isFrameShown_) pace_.keepAwake();
}

// The toolkit looks for input when its own messages have run out, and its timer posts the next one as soon as it is
// due: with frames that take longer than a refresh, and no rest after them, a click would wait for seconds.
double WindowComponent::secondsToRest() const {
    return lastDrawingEnd_ + drawingSeconds_ * restShare - RunLoop::main().now();
}

void WindowComponent::refresh() {
    if (RunLoop::main().now() - lastLookAround_ >= lookAroundSeconds) lookAround();
    if ((isFrameWanted_ || renderer_.isAnimating()) && isOnScreen() && secondsToRest() <= 0) frame();
    // A press may be lost: that is found out by looking.
    if (keys_.hasMenu() || keys_.isPressed() || renderer_.isAnimating()) pace_.keepAwake();
    pace_.didRefresh();
    juce::exchangeEvents();
}

// A window around this one may be hidden, or moved to another display, without a word.
void WindowComponent::lookAround() {
    lastLookAround_ = RunLoop::main().now();
    if (!getPeer()) return window_.setVisible(!wasOnScreen_);
    // On its way to the screen it is about to be seen, and opening must not wait for the server's answers.
    if (!std::exchange(wasOnScreen_, true)) return;
    window_.setVisible(isShowing() && isWindowViewable(runtime_->connection(), nativeWindowOf(*this)));
    if (isPressLost()) losePress();
    adoptLinkRate();
}

// As far as is known: the toolkit would ask the server each time.
bool WindowComponent::isOnScreen() const {
    return wasOnScreen_ && window_.isVisible() && getPeer();
}

void WindowComponent::adoptLinkRate() {
    const auto* const display = juce::Desktop::getInstance().getDisplays().getDisplayForRect(getScreenBounds());
    const double hertz = display ? display->verticalFrequencyHz.value_or(0) : 0;
    linkRequest_.setHertz(hertz > 0 ? hertz : usualHz);
}

void WindowComponent::frame() {
    if (const juce::ComponentPeer* peer = getPeer())
        adoptScale(cleanScale(getApproximateScaleFactorForComponent(this) * peer->getPlatformScaleFactor()));
    lastFrameTime_ = RunLoop::main().now();
    isFrameWanted_ = false;
    lastFrame_ = &renderer_.update(lastFrameTime_);
    repaintDamage();
    drawingSeconds_ = 0;
    didDraw(lastFrameTime_);
}

void WindowComponent::didDraw(double since) {
    lastDrawingEnd_ = RunLoop::main().now();
    drawingSeconds_ += lastDrawingEnd_ - since;
}

void WindowComponent::adoptScale(double scale) {
    if (scale == window_.backingScaleFactor() && scale == renderer_.scale()) return;
    renderer_.setScale(scale);
    window_.setBackingScaleFactor(scale);
}

void WindowComponent::repaintDamage() {
    const double points = 1 / renderer_.scale();
    for (const Rect& r : lastFrame_->damage)
        repaint(toToolkit(Rect{r.x * points, r.y * points, r.width * points, r.height * points})
                    .getSmallestIntegerContainer());
}

void WindowComponent::paint(juce::Graphics& g) {
    const double start = RunLoop::main().now();
    isFrameShown_ = true;
    const double scale = cleanScale(g.getInternalContext().getPhysicalPixelScaleFactor());
    // A host may change the scale without a word; and the first paint may come before the first frame.
    if (scale != renderer_.scale() || isFrameWanted_) {
        adoptScale(scale);
        isFrameWanted_ = false;
        lastFrame_ = &renderer_.update(RunLoop::main().now());
        repaintDamage(); // what lies outside of this paint's clip
    }
    if (!isContentOpaque()) g.fillAll(juce::Colours::black);
    composeInto(g, scale);
    didDraw(start);
}

void WindowComponent::composeInto(juce::Graphics& g, double scale) const {
    const juce::Rectangle<int> clip = g.getClipBounds();
    // Where this component begins in its peer may be between two pixels; it is drawn from the nearest one.
    const juce::Component* const top = getTopLevelComponent();
    const juce::Point<double> origin = top->getLocalPoint(this, juce::Point<float>()).toDouble() *
                                       (scale / std::max(1e-3, double{getApproximateScaleFactorForComponent(this)})) *
                                       double{getApproximateScaleFactorForComponent(top)};
    const auto toWhole = [](double v) { return static_cast<float>(std::round(v) - v); };
    juce::Graphics::ScopedSaveState saved(g);
    g.addTransform(
        juce::AffineTransform::translation(toWhole(origin.x), toWhole(origin.y)).scaled(static_cast<float>(1 / scale)));
    ToolkitRasterTarget target(g);
    const Rect device{clip.getX() * scale, clip.getY() * scale, clip.getWidth() * scale, clip.getHeight() * scale};
    renderer_.compose(target, device.integral().insetBy(-1, -1));
}

bool WindowComponent::isContentOpaque() const {
    const View* content = window_.contentView();
    if (!content || content->isHidden() || content->alpha() < 1) return false;
    const Layer& layer = *content->layer();
    return layer.look().backgroundColor().a >= 1 && layer.look().cornerRadius() <= 0 &&
           content->frame().contains(Rect{0, 0, double(getWidth()), double(getHeight())});
}

void WindowComponent::parentHierarchyChanged() {
    keys_.nativeWindowMayHaveChanged();
    lookAround();
}

void WindowComponent::contentSizeDidChange(Size points) {
    setSize(static_cast<int>(std::ceil(points.width)), static_cast<int>(std::ceil(points.height)));
}

} // namespace QVM_NAMESPACE
