// A colour by hue, saturation and lightness, to derive others from it (G. H. Joblove, D. Greenberg, "Color spaces for
// computer graphics", 1978). A plain value; any thread.
#pragma once

#include "platform/surface/Color.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

struct HueAndLightness {
    float hue = 0;        // turns; whole ones do not matter
    float saturation = 0; // 0 to 1
    float lightness = 0;  // 0 black to 1 white

    // Of components from 0 to 1. A grey has hue 0.
    static HueAndLightness of(float r, float g, float b) {
        const float most = std::max({r, g, b}), least = std::min({r, g, b}), range = most - least;
        HueAndLightness result{0, 0, (most + least) / 2};
        if (!(range > 0)) return result;
        result.saturation = range / (1 - std::abs(2 * result.lightness - 1));
        const float sixths = most == r ? (g - b) / range : most == g ? (b - r) / range + 2 : (r - g) / range + 4;
        result.hue = sixths / 6;
        return result;
    }
    // And back. Each component is a trapezium over the hue, a third of a turn from the next one's.
    Color color(float alpha) const {
        const float chroma = (1 - std::abs(2 * lightness - 1)) * saturation;
        const auto component = [&](float offset) {
            const float turn = hue + offset;
            const float slope = std::abs(6 * (turn - std::floor(turn)) - 3) - 1;
            return lightness + chroma * (std::clamp(slope, 0.0f, 1.0f) - 0.5f);
        };
        return {component(0), component(2.0f / 3), component(1.0f / 3), alpha};
    }
};

} // namespace QVM_NAMESPACE
