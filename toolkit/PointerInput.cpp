#include "toolkit/PointerInput.h"

#include "platform/view/ToolTipPlacement.h"
#include "toolkit/EventMapping.h"
#include "toolkit/NativePeer.h"
#include "toolkit/ToolkitWorkspace.h"

#include <utility>

namespace QVM_NAMESPACE {

std::optional<juce::Point<float>> PointerInput::placeOnScreen() {
    if (!hasDisplay()) return std::nullopt;
    return juce::Desktop::getInstance().getMainMouseSource().getScreenPosition();
}

bool PointerInput::isWhereItOpened(const juce::MouseEvent& event) const {
    constexpr float rounding = 2; // points
    return openedAt_ && openedAt_->getDistanceFrom(event.getScreenPosition().toFloat()) <= rounding;
}

void PointerInput::send(const juce::MouseEvent& event, EventType type) {
    // The server is asked where the answer counts: moves and drags come too often.
    const bool isClick = type == EventType::mouseDown || type == EventType::mouseUp;
    juce::ComponentPeer* const peer = isClick ? component_.getPeer() : nullptr;
    const SuperKey super = peer && juce::isSuperKeyDown(*peer) ? SuperKey::down : SuperKey::up;
    const Event mapped = mouseEventFrom(event, type, super);
    // The toolkit sends moves of a pointer that rests, too.
    const bool hasMoved = std::exchange(pointer_, mapped.locationInWindow) != mapped.locationInWindow;
    if (hasMoved && !isWhereItOpened(event)) areToolTipsQuiet_ = false;
    noteUse(type);
    if (hasMoved || type != EventType::mouseMoved) keyboardTip_.hide();
    pace_.keepAwake();
    window_.sendEvent(mapped);
}

// What is pressed stays in use for as long as it has the pointer, wherever the drag leads meanwhile; who drops it
// somewhere has not come to see what stands there.
void PointerInput::noteUse(EventType type) {
    if (window_.mouseCapture()) return;
    const View* const under = window_.toolTippedViewAt(pointer_);
    if (type == EventType::mouseDown || type == EventType::rightMouseDown || type == EventType::mouseUp)
        used_ = under;
    else if (type == EventType::mouseExited || under != used_)
        used_ = nullptr;
}

// In mid-press: hidden, without the focus of its program, or the button let go where this window was not told of it.
bool PointerInput::isPressLost() {
    if (!keys_.isPressed()) return false;
    juce::ComponentPeer* const peer = component_.getPeer();
    return !window_.mouseCapture() || !peer || juce::areButtonsUp(*peer) || keys_.hasLeftInMidPress();
}

void PointerInput::endLostPress() {
    if (isPressLost()) losePress();
}

void PointerInput::losePress() {
    endPress();
    // Not in the middle of the event that the toolkit is telling of.
    toolkitRelease_.schedule(0, [this] { releaseInToolkit(); });
}

void PointerInput::leave() {
    if (isHeldByToolkit()) {
        endPress();
        releaseInToolkit();
    }
    toolTips_ = nullptr;
    keyboardTip_.hide();
}

void PointerInput::keyWillArrive() {
    areToolTipsQuiet_ = true;
    keyboardTip_.keyWillArrive();
}

void PointerInput::endPress() {
    keys_.setPressed(false);
    window_.cancelPress();
}

// Whether the toolkit takes a button for held that was pressed in the component or its menu, or in what is gone by now.
bool PointerInput::isHeldByToolkit() const {
    const juce::MouseInputSource pointer = juce::Desktop::getInstance().getMainMouseSource();
    const juce::Component* const pressed = pointer.getComponentUnderMouse();
    return pointer.isDragging() && (!pressed || pressed == &component_ || component_.isParentOf(pressed));
}

// The toolkit waits for a release that never comes: until then all moves would be drags, and the next press none.
void PointerInput::releaseInToolkit() {
    juce::ComponentPeer* const peer = component_.getPeer();
    if (!peer) return;
    juce::ModifierKeys::currentModifiers = juce::ModifierKeys::currentModifiers.withoutMouseButtons();
    const juce::Point<float> at = juce::Desktop::getInstance().getMainMouseSource().getScreenPosition();
    peer->handleMouseEvent(juce::MouseInputSource::InputSourceType::mouse, peer->globalToLocal(at),
                           juce::ModifierKeys::currentModifiers, juce::MouseInputSource::defaultPressure,
                           juce::MouseInputSource::defaultOrientation, juce::Time::currentTimeMillis());
}

void PointerInput::down(const juce::MouseEvent& event) {
    // A press beside a menu closes it and does no more. As far as is known here it is still open.
    if (keys_.hasMenu()) return;
    if (event.mods.isRightButtonDown() && !event.mods.isLeftButtonDown()) {
        send(event, EventType::rightMouseDown);
    } else if (event.mods.isLeftButtonDown()) {
        keys_.setPressed(true);
        send(event, EventType::mouseDown);
    }
}

void PointerInput::drag(const juce::MouseEvent& event) {
    if (keys_.isPressed() && juce::isMovedWithButtonsUp()) return losePress();
    send(event, EventType::mouseDragged);
}

void PointerInput::up(const juce::MouseEvent& event) {
    const juce::Component::SafePointer<juce::Component> alive(&component_);
    keys_.setPressed(false);
    send(event, EventType::mouseUp);
    if (!alive) return;
    noteUse(EventType::mouseUp); // what stands there now: the release may have put it there
    keys_.settle();
}

void PointerInput::move(const juce::MouseEvent& event) {
    send(event, EventType::mouseMoved);
}

void PointerInput::enter(const juce::MouseEvent& event) {
    keys_.pointerDidEnter();
    if (!toolTips_) {
        toolTips_ = std::make_unique<ToolTipWindow>(component_, [this](int width, int height) {
            const Rect frame = toolTipFrame(window_, pointer_, {double(width), double(height)});
            return juce::Point<int>(static_cast<int>(frame.x), static_cast<int>(frame.y));
        });
        toolTips_->setLookAndFeel(&runtime_.lookAndFeel());
    }
    send(event, EventType::mouseMoved); // the toolkit tells of a move only when there is one
}

void PointerInput::exit(const juce::MouseEvent& event) {
    toolTips_ = nullptr;
    send(event, EventType::mouseExited);
}

void PointerInput::wheel(const juce::MouseEvent& event, const juce::MouseWheelDetails& details) {
    keyboardTip_.hide();
    window_.sendEvent(scrollEventFrom(event, details, SuperKey::up));
}

juce::String PointerInput::toolTip() const {
    if (window_.mouseCapture() || areToolTipsQuiet_) return {};
    const View* const view = window_.toolTippedViewAt(pointer_);
    return view && view != used_ ? juce::String::fromUTF8(view->toolTip().c_str()) : juce::String();
}

} // namespace QVM_NAMESPACE
