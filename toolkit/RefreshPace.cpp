#include "toolkit/RefreshPace.h"

#include "platform/runloop/RunLoop.h"
#include "toolkit/RepaintWatch.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double wakefulSeconds = 1; // after the last activity
constexpr int restHz = 1;

} // namespace

RefreshPace::RefreshPace(juce::Component& component)
    : component_(component), events_([this](const juce::ComponentPeer& peer) {
          if (&peer == component_.getPeer()) wakeSoon();
      }) {
    component_.setCachedComponentImage(new RepaintWatch(component_, [this] { wakeSoon(); }));
}

RefreshPace::~RefreshPace() {
    component_.setCachedComponentImage(nullptr);
}

void RefreshPace::keepAwake() {
    lastActivity_ = RunLoop::main().now();
    if (isResting()) setRate(Rate::display);
}

void RefreshPace::didRefresh() {
    const double now = RunLoop::main().now(), sinceLast = now - std::exchange(lastRefresh_, now);
    if (now - lastActivity_ <= wakefulSeconds) return;
    // A window that was moved, or put on another screen, is at the display's rate again without a word.
    if (!isResting() || sinceLast < 0.5 / restHz) setRate(Rate::rest);
}

void RefreshPace::setRate(Rate rate) {
    rate_ = rate;
    if (juce::ComponentPeer* const peer = component_.getPeer())
        juce::setPeerRefreshRate(*peer, rate == Rate::rest ? restHz : 0);
}

// Not at once: the toolkit is amid its components or its events, and changing the rate asks the server where they are.
void RefreshPace::wakeSoon() {
    if (isResting() && !isDrawing_) triggerAsyncUpdate();
}

} // namespace QVM_NAMESPACE
