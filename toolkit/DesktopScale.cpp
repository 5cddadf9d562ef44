#include "toolkit/DesktopScale.h"

#include "description/NumberText.h"
#include "platform/runloop/RunLoop.h"

#include <juce_gui_basics/juce_gui_basics.h>
#include <xcb/xcb.h>

#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* resource = "Xft.dpi";
constexpr double plainDpi = 96, stepsAPoint = 8, leastScale = 0.5, greatestScale = 4;
constexpr double askSeconds = 0.5;               // between looks, at most
constexpr std::uint32_t resourceWords = 1 << 14; // of four bytes, enough for any desktop's

// The toolkit looks at what some desktops say of windows, for a program of its own only.
bool isScaledByToolkit() {
    if (!juce::JUCEApplicationBase::isStandaloneApp()) return false;
    const auto* const display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
    return display && display->scale != 1;
}

} // namespace

std::optional<double> scaleOfResources(std::string_view resources) {
    std::optional<double> found;
    for (const juce::String& line :
         juce::StringArray::fromLines(juce::String::fromUTF8(resources.data(), static_cast<int>(resources.size())))) {
        if (!line.containsChar(':') || line.upToFirstOccurrenceOf(":", false, false).trim() != resource) continue;
        found = NumberFromText<double>(line.fromFirstOccurrenceOf(":", false, false).trim().toStdString());
    }
    if (!found || !std::isfinite(*found)) return std::nullopt;
    const double scale = std::round(*found / plainDpi * stepsAPoint) / stepsAPoint;
    return scale >= leastScale && scale <= greatestScale ? std::optional(scale) : std::nullopt;
}

double DesktopScale::value() {
    const double now = RunLoop::main().now();
    if (!lastAsked_ || now - *lastAsked_ >= askSeconds) {
        lastAsked_ = now;
        ask();
    }
    return isScaledByToolkit() ? 1 : scale_;
}

void DesktopScale::ask() {
    xcb_connection_t* const x = connection_.get();
    if (!x) return;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        x, xcb_get_property(x, 0, root, XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 0, resourceWords), nullptr));
    if (!reply) return;
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    scale_ = scaleOfResources({static_cast<const char*>(xcb_get_property_value(reply.get())), length}).value_or(1);
}

} // namespace QVM_NAMESPACE
