#include "toolkit/ToolTipWindow.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {
constexpr int delayMs = 700;
} // namespace

ToolTipWindow::ToolTipWindow(juce::Component& parent, Placement placement)
    : TooltipWindow(&parent, delayMs), placement_(std::move(placement)) {
    setOpaque(false); // what is behind a tip is seen at its round corners
}

juce::String ToolTipWindow::getTipFor(juce::Component& component) {
    // There the toolkit shows no new tip, and leaves the one that is shown.
    const juce::MouseInputSource pointer = juce::Desktop::getInstance().getMainMouseSource();
    if (pointer.getScreenPosition() == pointer.getLastMouseDownPosition()) return {};
    auto* const client = dynamic_cast<juce::TooltipClient*>(&component);
    return client && !component.isCurrentlyBlockedByAnotherModalComponent() ? client->getTooltip() : juce::String();
}

} // namespace QVM_NAMESPACE
