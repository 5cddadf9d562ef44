// How large the desktop wants things, where nobody else says: the resource "Xft.dpi" of the X server, which desktops
// set for programs that know of no scale of theirs. 96 dots an inch are a pixel a point.
#pragma once

#include "toolkit/XConnection.h"

#include <optional>
#include <string_view>

namespace QVM_NAMESPACE {

// Device pixels a point, in eighths from 0.5 to 4; nothing where the resources, a line each, do not say or make no
// sense.
std::optional<double> scaleOfResources(std::string_view resources);

// Main thread.
class DesktopScale {
public:
    // The connection is borrowed.
    explicit DesktopScale(XConnection& connection) : connection_(connection) {}

    // Device pixels a point as of now, or of half a second ago: the server is asked no more often than that. 1 where
    // nobody says, and where the toolkit scales the program's windows by itself.
    double value();

private:
    void ask();

    XConnection& connection_;
    std::optional<double> lastAsked_; // seconds on the run loop's clock
    double scale_ = 1;
};

} // namespace QVM_NAMESPACE
