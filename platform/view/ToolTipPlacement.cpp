#include "platform/view/ToolTipPlacement.h"

#include "platform/view/Window.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double gap = 4, beside = 80; // points; as far from the pointer as a handle under it may reach
constexpr int samples = 5;             // a side: finer than the views that could be covered

bool coversAnother(const Window& window, const Rect& frame, const View& about) {
    for (int column = 0; column < samples; ++column) {
        for (int row = 0; row < samples; ++row) {
            const Point at = {frame.x + frame.width * column / (samples - 1),
                              frame.y + frame.height * row / (samples - 1)};
            const View* view = window.toolTippedViewAt(at);
            if (view && view != &about) return true;
        }
    }
    return false;
}

Rect frameBeside(const Window& window, const View& about, Point pointer, Size size) {
    const Rect all = window.contentView()->bounds(), view = about.coordinates().toWindow(about.bounds());
    const double lastX = std::max(0.0, all.width - size.width), lastY = std::max(0.0, all.height - size.height);
    const double x = std::clamp(pointer.x - size.width / 2, 0.0, lastX);
    const double y = std::clamp(pointer.y - size.height / 2, 0.0, lastY);
    const std::array<Point, 4> origins = {{{x, view.minY() - gap - size.height},
                                           {x, view.maxY() + gap},
                                           {pointer.x - beside - size.width, y},
                                           {pointer.x + beside, y}}};
    std::array<Rect, 4> frames;
    std::transform(origins.begin(), origins.end(), frames.begin(), [size](Point origin) {
        return Rect{std::round(origin.x), std::round(origin.y), size.width, size.height};
    });
    const auto isInside = [&all](const Rect& frame) { return all.contains(frame); };
    const auto isFree = [&](const Rect& frame) { return isInside(frame) && !coversAnother(window, frame, about); };
    if (const auto free = std::find_if(frames.begin(), frames.end(), isFree); free != frames.end()) return *free;
    const auto inside = std::find_if(frames.begin(), frames.end(), isInside);
    return inside != frames.end() ? *inside : Rect{std::round(x), std::round(lastY), size.width, size.height};
}

} // namespace

Rect toolTipFrame(const Window& window, Point pointer, Size size) {
    const View* about = window.toolTippedViewAt(pointer);
    if (!about) return {pointer.x, pointer.y + gap, size.width, size.height};
    return frameBeside(window, *about, pointer, size);
}

Rect toolTipFrame(const Window& window, const View& about, Size size) {
    const Rect view = about.coordinates().toWindow(about.bounds());
    return frameBeside(window, about, {view.midX(), view.midY()}, size);
}

} // namespace QVM_NAMESPACE
