#include "plugin/HostFrame.h"

#include "toolkit/KeyboardFocus.h"
#include "toolkit/WindowAround.h"

#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double answerSeconds = 0.3; // that a host has to change its window
constexpr double lookSeconds = 0.5;   // between looks at a window that is not as it was asked for

// A size that was rounded, in other units than these, is no other size.
bool isSame(Size a, Size b) {
    return std::abs(a.width - b.width) <= 1 && std::abs(a.height - b.height) <= 1;
}

Size sizeOf(const juce::Component& component) {
    return {double(component.getWidth()), double(component.getHeight())};
}

} // namespace

void HostFrame::ask(Size wanted) {
    const juce::ScopedValueSetter<bool> busy(isBusy_, true);
    wanted_ = wanted;
    if (editor_.getPeer()) lastAsk_ = RunLoop::main().now();
    wasOnlyContent_ = isForced_ || isOnlyContent();
    isForced_ = false;
    editor_.setSize(static_cast<int>(wanted.width), static_cast<int>(wanted.height));
    if (wrapper()) lookCall_.schedule(answerSeconds, [this] { look(); });
}

bool HostFrame::takesAsHosts(Size frame) {
    const bool isAnswer = lastAsk_ && RunLoop::main().now() - *lastAsk_ < answerSeconds;
    if (isBusy_ || isAnswer || isSame(frame, wanted_)) return false;
    wanted_ = frame;
    isForced_ = false;
    return true;
}

void HostFrame::refresh() {
    if (isForced_ && RunLoop::main().now() - lastLook_ >= lookSeconds) look();
}

bool HostFrame::isOnlyContent() const {
    if (!wrapper()) return false;
    const auto around = windowAround(connection_, nativeWindowOf(editor_));
    return around && around->isFilled();
}

juce::Component* HostFrame::wrapper() const {
    juce::Component* const parent = editor_.getParentComponent();
    return parent && parent->isOnDesktop() ? parent : nullptr;
}

std::optional<Size> HostFrame::given() const {
    if (wasOnlyContent_) {
        const auto around = windowAround(connection_, nativeWindowOf(editor_));
        if (!around) return std::nullopt;
        const double pixels = double{juce::Component::getApproximateScaleFactorForComponent(&editor_)} *
                              editor_.getPeer()->getPlatformScaleFactor();
        return Size{std::round(around->size.width / pixels), std::round(around->size.height / pixels)};
    }
    const juce::Rectangle<int> inside = editor_.getLocalArea(wrapper(), wrapper()->getLocalBounds());
    return Size{double(inside.getWidth()), double(inside.getHeight())};
}

void HostFrame::look() {
    // The first look is for the answer; what it is later is the host's own doing.
    const juce::ScopedValueSetter<bool> busy(isBusy_, !isForced_);
    lastLook_ = RunLoop::main().now();
    if (!wrapper()) return;
    const std::optional<Size> frame = given();
    isForced_ = frame && !isSame(*frame, wanted_);
    if (frame && !isSame(*frame, sizeOf(editor_))) adopt(isForced_ ? *frame : wanted_);
}

// By way of the wrapper, which makes the editor as large as itself and asks nobody; as large as that it may be already.
void HostFrame::adopt(Size frame) {
    const juce::Rectangle<int> bounds(0, 0, static_cast<int>(frame.width), static_cast<int>(frame.height));
    const juce::Rectangle<int> outside = wrapper()->getLocalArea(&editor_, bounds);
    wrapper()->setSize(outside.getWidth(), outside.getHeight());
    if (!isSame(sizeOf(editor_), frame)) editor_.setBounds(bounds);
}

} // namespace QVM_NAMESPACE
