#include "tools/gallery/OffscreenTime.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr std::int32_t kUnitsPerSecond = 720'000;
constexpr int kFramesPerSecond = 60;

} // namespace

void OffscreenTime::advance(double seconds) {
    const double end = time_.now() + seconds;
    constexpr double tolerance = 1e-6; // of a frame: whole ones in decimals count as such
    for (auto frames = static_cast<long>(seconds * kFramesPerSecond + tolerance); frames > 0; --frames) {
        time_.advance(1.0 / kFramesPerSecond);
        if (!tick_) continue;
        tick_({std::llround(time_.now() * kUnitsPerSecond), kUnitsPerSecond, kUnitsPerSecond / kFramesPerSecond});
        time_.settle();
    }
    time_.advance(std::max(0.0, end - time_.now()));
}

} // namespace QVM_NAMESPACE
