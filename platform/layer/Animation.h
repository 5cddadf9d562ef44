// Key-path animations of layers. They change what is presented, never the layer's own values.
#pragma once

#include "geometry/Geometry.h"
#include "platform/surface/Color.h"

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <variant>

namespace QVM_NAMESPACE {

using AnimatableValue = std::variant<double, Point, Rect, AffineTransform, Color>;

enum class TimingFunction : unsigned char { linear, easeIn, easeOut, easeInEaseOut };

// Progress 0..1 to eased progress 0..1, as a cubic Bezier through the usual control points of each name.
double ease(TimingFunction timing, double progress);
// A value between two of the same kind; of different kinds, the second.
AnimatableValue interpolate(const AnimatableValue& from, const AnimatableValue& to, double progress);

// Key paths: "opacity", "position", "position.x", "position.y", "bounds", "transform", "transform.scale",
// "transform.translation.x", "transform.translation.y", "backgroundColor", "cornerRadius", "lineDashPhase".
struct BasicAnimation {
    static constexpr double forever = std::numeric_limits<double>::infinity();

    std::string keyPath;
    std::optional<AnimatableValue> fromValue; // absent: the layer's own value
    std::optional<AnimatableValue> toValue;   // absent: the layer's own value
    double duration = 0.25;                   // seconds, one way
    double beginDelay = 0;                    // seconds before it starts; until then it presents `fromValue`
    TimingFunction timing = TimingFunction::easeInEaseOut;
    bool autoreverses = false;
    double repeatCount = 1; // times forth (and back); `forever` never ends
    bool removedOnCompletion = true;
    std::function<void(bool finished)> completion; // on the main thread; false when removed before its end

    // Seconds from its start to its end, without the delay; nothing lasts when one way takes no time.
    double totalDuration() const { return duration > 0 ? duration * (autoreverses ? 2 : 1) * repeatCount : 0; }
    // Eased progress at `elapsed` seconds after it was added.
    double progressAt(double elapsed) const;
    bool isFinishedAt(double elapsed) const { return elapsed >= beginDelay + totalDuration(); }
};

} // namespace QVM_NAMESPACE
