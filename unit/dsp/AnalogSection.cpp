#include "unit/dsp/AnalogSection.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE::dsp {

namespace {

// A position on a table's axis: the node before it and how far it is to the next, as the weights of four nodes (Catmull
// and Rom, "A class of local interpolating splines", 1974). Beyond the ends the table goes on in a straight line.
struct Position {
    std::size_t node = 0;
    std::array<double, 4> weights{}; // of node - 1 to node + 2

    Position(double at, std::size_t nodes) {
        const double held = std::clamp(at, 0.0, static_cast<double>(nodes - 1));
        node = std::min(static_cast<std::size_t>(held), nodes - 2);
        const double t = held - static_cast<double>(node), tt = t * t, ttt = tt * t;
        weights = {(-ttt + 2 * tt - t) / 2, (3 * ttt - 5 * tt + 2) / 2, (-3 * ttt + 4 * tt + t) / 2, (ttt - tt) / 2};
        if (node == 0) {
            weights[1] += 2 * weights[0];
            weights[2] -= weights[0];
            weights[0] = 0;
        }
        if (node + 2 == nodes) {
            weights[2] += 2 * weights[3];
            weights[1] -= weights[3];
            weights[3] = 0;
        }
    }
    // Adds the row of `values` at this position, times a factor. Rows lie `stride` values apart.
    void add(const float* table, std::size_t stride, std::size_t values, double factor, double* out) const {
        for (std::size_t i = 0; i < weights.size(); ++i) {
            if (weights[i] == 0) continue;
            const float* const row = table + (node + i - 1) * stride;
            for (std::size_t v = 0; v < values; ++v)
                out[v] += factor * weights[i] * static_cast<double>(row[v]);
        }
    }
};

// |w^2 + k w s + s^2|^2 over the square of the frequency.
std::array<double, 3> powersOf(const AnalogPair& pair) {
    const double square = pair.corner * pair.corner;
    return {square * square, (pair.damping * pair.damping - 2) * square, 1};
}

std::array<double, 3> scaled(const std::array<double, 3>& powers, double by) {
    return {powers[0] * by, powers[1] * by, powers[2] * by};
}

} // namespace

Powers AnalogSection::powers() const {
    const std::array<double, 3> poles = powersOf(den);
    const double square = num.corner * num.corner;
    if (zeros == Zeros::one) {
        // w^2 (1 + s/z) or s (s + z), and the poles.
        if (direction == Direction::lowPass) return {{poles[0], poles[0] / square, 0}, poles};
        return {{0, square, 1}, poles};
    }
    const std::array<double, 3> zeroPowers = powersOf(num);
    if (direction == Direction::highPass) return {zeroPowers, poles};
    return {scaled(zeroPowers, poles[0] / zeroPowers[0]), poles};
}

void makeTilt(double gain, double low, double high, std::span<AnalogSection, tiltSections> out) {
    const double widest = std::log(widestSpan), narrowest = std::log(narrowestSpan);
    const double span = std::clamp(std::log(high / low), narrowest, widest);
    const Position bySpan(std::log(span / widest) / std::log(narrowest / widest) * (tiltSpanNodes - 1), tiltSpanNodes);
    const double size = 2 * std::abs(gain);
    std::array<double, tiltValues> values{};
    std::size_t node = 0;
    while (node + 2 < tiltGainNodes && static_cast<double>(tiltGains[node + 1]) <= size)
        ++node;
    const double first = static_cast<double>(tiltGains[node]), second = static_cast<double>(tiltGains[node + 1]);
    const double share = std::max((size - first) / (second - first), 0.0);
    bySpan.add(tiltTable + node * tiltValues, tiltGainNodes * tiltValues, tiltValues, 1 - share, values.data());
    if (share > 0)
        bySpan.add(tiltTable + (node + 1) * tiltValues, tiltGainNodes * tiltValues, tiltValues, share, values.data());
    // Below the first node poles and zeros meet half way, and are equal where there is no gain.
    const double apart = std::min(size / static_cast<double>(tiltGains[0]), 1.0);
    for (std::size_t i = 0; i < tiltSections; ++i) {
        const double* const v = values.data() + i * valuesPerSection;
        const auto met = [apart](double own, double other) {
            const double middle = (own + other) / 2;
            return middle + (own - middle) * apart;
        };
        out[i] = {};
        out[i].num = {low * std::exp(met(v[0], v[2]) * span), std::exp(met(v[1], v[3]))};
        out[i].den = {low * std::exp(met(v[2], v[0]) * span), std::exp(met(v[3], v[1]))};
        if (gain < 0) std::swap(out[i].num, out[i].den);
    }
}

void makeFilter(FilterPart part, Direction direction, double order, double corner,
                std::span<AnalogSection, filterSections> out) {
    const Position byOrder(std::log(order) / std::log(highestOrder) * (filterNodes - 1), filterNodes);
    std::array<double, filterValues> values{};
    constexpr std::array<const float*, 3> tables = {filterTable, removedTable, removedRootTable}; // by part
    byOrder.add(tables[static_cast<std::size_t>(part)], filterValues, filterValues, 1, values.data());
    const bool isLowPass = (direction == Direction::lowPass) == (part == FilterPart::passed);
    const double sign = isLowPass ? 1 : -1;
    for (std::size_t i = 0; i < filterSections; ++i) {
        const double* const v = values.data() + i * valuesPerSection;
        out[i].num = {corner * std::exp(sign * v[0]), std::exp(v[1])};
        out[i].den = {corner * std::exp(sign * v[2]), std::exp(v[3])};
        out[i].direction = isLowPass ? Direction::lowPass : Direction::highPass;
        out[i].zeros = i == 0 ? Zeros::one : Zeros::two;
    }
}

} // namespace QVM_NAMESPACE::dsp
