#include "viz/displays/SpectrumTrace.h"

#include "viz/analysis/SpectrumBands.h"
#include "viz/analysis/SpectrumLevels.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr float kLeastDifference = 0.25f; // pixels

// Between two bands the level is in between.
float levelAt(std::span<const float> levels, float band) {
    const float within = std::clamp(band, 0.0f, static_cast<float>(levels.size() - 1));
    const auto below = static_cast<std::size_t>(within);
    const std::size_t above = std::min(below + 1, levels.size() - 1);
    return std::lerp(levels[below], levels[above], within - static_cast<float>(below));
}

float highestBetween(std::span<const float> levels, float from, float to) {
    float highest = levelAt(levels, (from + to) / 2);
    const auto last = static_cast<float>(levels.size() - 1);
    for (float band = std::ceil(from); band < to && band <= last; ++band)
        highest = std::max(highest, levels[static_cast<std::size_t>(band)]);
    return highest;
}

} // namespace

SpectrumTrace::SpectrumTrace(std::span<const float> levels, int width, int height)
    : height_(height), tops_(static_cast<std::size_t>(width)) {
    static const auto bandsAcross =
        static_cast<float>(bands::perOctave * std::log2(model::highestHertz / model::lowestHertz));
    const float bandsAPixel = bandsAcross / static_cast<float>(width);
    constexpr QVMFloat32Range axis = SpectrumLevels::range;
    for (std::size_t x = 0; x < tops_.size(); ++x) {
        const float from = static_cast<float>(x) * bandsAPixel, to = from + bandsAPixel;
        const float level = bandsAPixel < 1 ? levelAt(levels, (from + to) / 2) : highestBetween(levels, from, to);
        const float share = std::clamp((level - axis.min) / (axis.max - axis.min), 0.0f, 1.0f);
        tops_[x] = static_cast<float>(height) * (1 - share);
    }
}

bool SpectrumTrace::isEmpty() const {
    return std::ranges::all_of(tops_, [bottom = static_cast<float>(height_)](float top) { return top >= bottom; });
}

bool SpectrumTrace::differsFrom(const SpectrumTrace& other) const {
    return !std::ranges::equal(tops_, other.tops_,
                               [](float one, float two) { return std::abs(one - two) < kLeastDifference; });
}

} // namespace QVM_NAMESPACE
