#include "platform/juce/WindowComponent.h"

#include "platform/DisplayLink.h"
#include "platform/ToolTipPlacement.h"
#include "platform/juce/Conversions.h"
#include "platform/juce/NativePeer.h"
#include "platform/juce/ToolkitMenu.h"
#include "platform/juce/ToolkitRasterTarget.h"

#include <cmath>
#include <functional>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double shortestFrame = 0.012;     // seconds between frames that a change asks for
constexpr double restShare = 0.5;           // of the time that drawing took, during which nothing is drawn
constexpr int tooltipDelayMs = 700;
constexpr double wakefulSeconds = 1;       // after the last frame or pointer event
constexpr double lookAroundSeconds = 0.25; // between looks whether the window is still to be seen, and where
constexpr int idleRefreshHz = 12;          // what is uncovered is painted at this rate while nothing else goes on

// The toolkit shows tooltips only in a window that has the keyboard, and ours leaves that with the host.
class Tooltips final : public juce::TooltipWindow {
public:
    using Placement = std::function<juce::Point<int>(int width, int height)>;

    Tooltips(juce::Component* parent, int delayMs, Placement placement)
        : TooltipWindow(parent, delayMs), placement_(std::move(placement)) {}
    // The toolkit has put it beside the pointer.
    void moved() override { setTopLeftPosition(placement_(getWidth(), getHeight())); }
    void resized() override { moved(); }
    juce::String getTipFor(juce::Component& component) override {
        auto* const client = dynamic_cast<juce::TooltipClient*>(&component);
        return client && !component.isCurrentlyBlockedByAnotherModalComponent() ? client->getTooltip() : juce::String();
    }

private:
    Placement placement_;
};

// Free of the noise of single precision: 1.1f is 1.1.
double cleanScale(double scale) {
    return std::round(scale * 1e4) / 1e4;
}

} // namespace

WindowComponent::WindowComponent(Embedding embedding)
    : embedding_(embedding), lastFrame_(&renderer_.update(0)), refresh_(this, [this] { refresh(); }) {
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
    if (hasMenu_) juce::PopupMenu::dismissAllActiveMenus();
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
    keepAwake();
    // A pointer that moves faster than the display is shown at the display's rate.
    if (!isFrameWanted_ || RunLoop::main().now() - lastFrameTime_ < shortestFrame || !mayDraw()) return;
    if (juce::ComponentPeer* peer = isShowing() ? getPeer() : nullptr) {
        frame();
        peer->performAnyPendingRepaintsNow();
    }
}

void WindowComponent::refresh() {
    juce::dispatchEventsRead();
    if (RunLoop::main().now() - lastLookAround_ >= lookAroundSeconds) lookAround();
    if ((isFrameWanted_ || renderer_.isAnimating()) && isShowing() && mayDraw()) frame();
    // A window that was moved, or put on another screen, is at the display's rate again without a word.
    const double now = RunLoop::main().now(), sinceLast = now - std::exchange(lastRefresh_, now);
    if (isIdle() && sinceLast < 0.5 / idleRefreshHz) setRefresh(Refresh::idle);
}

// A window around this one may be hidden, or moved to another display, without a word.
void WindowComponent::lookAround() {
    lastLookAround_ = RunLoop::main().now();
    if (!getPeer()) return window_.setVisible(!wasOnScreen_);
    // On its way to the screen it is about to be seen, and opening must not wait for the server's answers.
    if (!std::exchange(wasOnScreen_, true)) return;
    window_.setVisible(isShowing() && mapState_.isViewable(nativeWindow()));
    const auto* const display = juce::Desktop::getInstance().getDisplays().getDisplayForRect(getScreenBounds());
    if (display && display->verticalFrequencyHz) DisplayLink::setRefreshRate(*display->verticalFrequencyHz);
}

void WindowComponent::keepAwake() {
    lastActivity_ = RunLoop::main().now();
    if (refreshRate_ == Refresh::idle) setRefresh(Refresh::atDisplayRate);
}

bool WindowComponent::isIdle() const {
    const double last = std::max(lastActivity_, lastFrameTime_);
    return !hasMenu_ && !renderer_.isAnimating() && RunLoop::main().now() - last > wakefulSeconds;
}

void WindowComponent::setRefresh(Refresh rate) {
    refreshRate_ = rate;
    if (juce::ComponentPeer* peer = getPeer())
        juce::setPeerRefreshRate(*peer, rate == Refresh::idle ? idleRefreshHz : 0);
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

// The toolkit looks for input when its own messages have run out, and its timer posts the next one as soon as it is
// due: with frames that take longer than a refresh, and no rest after them, a click would wait for seconds.
bool WindowComponent::mayDraw() const {
    return RunLoop::main().now() - lastDrawingEnd_ >= drawingSeconds_ * restShare;
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
    return layer.backgroundColor().a >= 1 && layer.cornerRadius() <= 0 &&
           content->frame().contains(Rect{0, 0, double(getWidth()), double(getHeight())});
}

// The pointer

void WindowComponent::send(const juce::MouseEvent& event, EventType type) {
    // The server is asked where the answer counts: moves and drags come too often.
    const bool isClick = type == EventType::mouseDown || type == EventType::mouseUp;
    juce::ComponentPeer* const peer = isClick ? getPeer() : nullptr;
    const SuperKey super = peer && juce::isSuperKeyDown(*peer) ? SuperKey::down : SuperKey::up;
    const Event mapped = mouseEventFrom(event, type, super);
    // The toolkit sends moves of a pointer that rests, too.
    if (std::exchange(pointer_, mapped.locationInWindow) != mapped.locationInWindow) areToolTipsQuiet_ = false;
    keepAwake();
    window_.sendEvent(mapped);
}

void WindowComponent::mouseDown(const juce::MouseEvent& event) {
    if (event.mods.isRightButtonDown() && !event.mods.isLeftButtonDown()) {
        send(event, EventType::rightMouseDown);
    } else if (event.mods.isLeftButtonDown()) {
        isPressed_ = true;
        send(event, EventType::mouseDown);
    }
}

void WindowComponent::mouseDrag(const juce::MouseEvent& event) {
    if (isPressed_) send(event, EventType::mouseDragged);
}

void WindowComponent::mouseUp(const juce::MouseEvent& event) {
    const SafePointer<WindowComponent> self(this);
    if (std::exchange(isPressed_, false)) send(event, EventType::mouseUp);
    if (self) settleKeys();
}

void WindowComponent::mouseMove(const juce::MouseEvent& event) {
    send(event, EventType::mouseMoved);
}

void WindowComponent::mouseEnter(const juce::MouseEvent& event) {
    if (embedding_ == Embedding::inHost) hostFocus_.remember(nativeWindow());
    if (!tooltips_) {
        tooltips_ = std::make_unique<Tooltips>(this, tooltipDelayMs, [this](int width, int height) {
            const Rect frame = toolTipFrame(window_, pointer_, {double(width), double(height)});
            return juce::Point<int>(static_cast<int>(frame.x), static_cast<int>(frame.y));
        });
        tooltips_->setLookAndFeel(&runtime_->lookAndFeel());
    }
    send(event, EventType::mouseMoved); // the toolkit tells of a move only when there is one
}

void WindowComponent::mouseExit(const juce::MouseEvent& event) {
    tooltips_ = nullptr;
    send(event, EventType::mouseExited);
}

void WindowComponent::mouseWheelMove(const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) {
    window_.sendEvent(scrollEventFrom(event, wheel, SuperKey::up));
}

juce::String WindowComponent::getTooltip() {
    if (window_.mouseCapture() || areToolTipsQuiet_) return {};
    return juce::String::fromUTF8(window_.toolTipAt(pointer_).c_str());
}

void WindowComponent::setCursor(Cursor shown) {
    setMouseCursor(toToolkit(shown));
}

void WindowComponent::popUpMenu(std::unique_ptr<Menu> menu, Point at) {
    if (juce::Desktop::getInstance().getDisplays().displays.isEmpty()) return; // the toolkit can't do without one
    const juce::Rectangle<int> target(static_cast<int>(at.x), static_cast<int>(at.y), 1, 1);
    hasMenu_ = true;
    updateKeys();
    juce::PopupMenu popup = toToolkit(*menu, SafePointer<juce::Component>(this), [this] { settleKeys(); });
    popup.setLookAndFeel(&runtime_->lookAndFeel());
    popup.showMenuAsync(
        juce::PopupMenu::Options().withParentComponent(this).withDeletionCheck(*this).withTargetScreenArea(
            localAreaToGlobal(target)),
        [self = SafePointer<WindowComponent>(this)](int) {
            if (!self) return;
            self->hasMenu_ = false;
            self->updateKeys();
            if (!self->wantsKeys_) self->giveFocusBack();
        });
    juce::Component* const shown = getChildComponent(getNumChildComponents() - 1);
    if (menu->selectsFirst && shown) shown->keyPressed(juce::KeyPress(juce::KeyPress::downKey));
}

std::uint64_t WindowComponent::nativeWindow() const {
    const juce::ComponentPeer* peer = getPeer();
    return peer ? reinterpret_cast<std::uintptr_t>(peer->getNativeHandle()) : 0;
}

void WindowComponent::contentSizeDidChange(Size points) {
    setSize(static_cast<int>(std::ceil(points.width)), static_cast<int>(std::ceil(points.height)));
}

} // namespace QVM_NAMESPACE
