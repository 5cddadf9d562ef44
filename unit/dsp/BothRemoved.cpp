#include "unit/dsp/BothRemoved.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <numeric>
#include <utility>

namespace QVM_NAMESPACE::dsp {

namespace {

constexpr int kMostRounds = 100, kMostWarmRounds = 12;
constexpr double kClose = 1e-9; // relative change of a round
constexpr double kReal = 1e-5;  // of an imaginary part, relative

using Complex = std::complex<double>;

Complex product(const Complex& a, const Complex& b) { // without the care for infinity
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}
Complex inverse(const Complex& a) {
    return std::conj(a) / std::norm(a);
}

template <class Polynomial, class Roots>
Complex aberthStep(const Polynomial& c, const Roots& roots, std::size_t i) {
    const Complex x = roots[i];
    Complex value = c.back(), slope = 0, others = 0;
    for (std::size_t k = c.size() - 1; k-- > 0;) {
        slope = product(slope, x) + value;
        value = product(value, x) + c[k];
    }
    for (std::size_t j = 0; j < roots.size(); ++j)
        if (j != i) others += inverse(x - roots[j]);
    const Complex newton = product(value, inverse(slope));
    return product(newton, inverse(1.0 - product(newton, others)));
}

} // namespace

// The polynomial of the zeros. Frequencies are measured in `unit` hertz, so that the products stay in range.
BothRemoved::Polynomial BothRemoved::zeros(std::span<const AnalogSection, filterSections> low,
                                           std::span<const AnalogSection, filterSections> high, double unit) {
    using Quadratic = std::array<double, 3>;
    const double square = unit * unit;
    const auto multiply = [square](Polynomial& all, const Quadratic& by) {
        const Quadratic c = {by[0] / (square * square), by[1] / square, by[2]};
        for (std::size_t k = all.size(); k-- > 0;)
            all[k] = c[0] * all[k] + (k > 0 ? c[1] * all[k - 1] : 0) + (k > 1 ? c[2] * all[k - 2] : 0);
    };
    Polynomial first{1}, second{1}, both{1};
    for (std::size_t i = 0; i < filterSections; ++i) {
        const AnalogSection::Powers a = low[i].powers(), b = high[i].powers();
        multiply(first, a.num);
        multiply(first, b.den);
        multiply(second, b.num);
        multiply(second, a.den);
        multiply(both, a.num);
        multiply(both, b.num);
    }
    for (std::size_t k = 0; k < first.size(); ++k)
        first[k] += second[k] - both[k];
    return first;
}

// Where the roots may be: on the circles that the upper hull of the coefficients' logarithms gives (D. A. Bini,
// "Numerical computation of polynomial zeros by means of Aberth's method", 1996).
void BothRemoved::guess() {
    Polynomial logs;
    std::transform(polynomial_.begin(), polynomial_.end(), logs.begin(),
                   [](double value) { return std::log(std::abs(value) + 1e-300); });
    for (std::size_t from = 0; from < degree;) {
        std::size_t to = from + 1;
        const auto slope = [&](std::size_t k) { return (logs[k] - logs[from]) / static_cast<double>(k - from); };
        for (std::size_t k = to + 1; k <= degree; ++k)
            if (slope(k) >= slope(to)) to = k;
        for (std::size_t k = from; k < to; ++k) {
            const double turn = (static_cast<double>(k - from) + 0.37) / static_cast<double>(to - from);
            roots_[k] = std::polar(std::exp(-slope(to)), 2 * std::numbers::pi * turn + 0.1 * static_cast<double>(from));
        }
        from = to;
    }
}

bool BothRemoved::solve(int mostRounds) {
    for (int round = 0; round < mostRounds; ++round) {
        double change = 0;
        for (std::size_t i = 0; i < degree; ++i) {
            const Complex step = aberthStep(polynomial_, roots_, i);
            if (!std::isfinite(step.real() + step.imag())) continue;
            roots_[i] -= step;
            change = std::max(change, std::norm(step) / std::norm(roots_[i]));
        }
        if (change < kClose * kClose) return true;
    }
    return false;
}

// Each beside the one that is nearest to its conjugate, and real ones beside their neighbours.
void BothRemoved::pair() {
    const auto turn = [](const Complex& r) { return std::abs(r.imag()) / std::abs(r); };
    std::sort(roots_.begin(), roots_.end(), [&](const Complex& a, const Complex& b) { return turn(a) > turn(b); });
    auto first = roots_.begin();
    for (; first != roots_.end() && turn(*first) > kReal; first += 2) {
        const auto partner = std::min_element(first + 1, roots_.end(), [first](const Complex& a, const Complex& b) {
            return std::abs(a - std::conj(*first)) < std::abs(b - std::conj(*first));
        });
        std::rotate(first + 1, partner, partner + 1);
    }
    std::sort(first, roots_.end(), [](const Complex& a, const Complex& b) { return std::abs(a) < std::abs(b); });
    // By size, or each where its like was.
    if (isPlaced_) return place();
    std::array<std::size_t, sections> order;
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [this](std::size_t a, std::size_t b) { return zerosAt(a).corner < zerosAt(b).corner; });
    const auto roots = roots_;
    for (std::size_t i = 0; i < sections; ++i)
        std::copy_n(roots.begin() + static_cast<std::ptrdiff_t>(2 * order[i]), 2,
                    roots_.begin() + static_cast<std::ptrdiff_t>(2 * i));
}

// The nearest first.
void BothRemoved::place() {
    std::array<AnalogPair, sections> zeros;
    for (std::size_t i = 0; i < sections; ++i)
        zeros[i] = zerosAt(i);
    const auto distance = [&](std::size_t from, std::size_t to) {
        return std::abs(std::log(zeros[from].corner * unit_ / last_[to].corner)) +
               std::abs(std::log(zeros[from].damping / last_[to].damping));
    };
    const auto roots = roots_;
    std::array<bool, sections> isTaken{}, isFull{};
    for (std::size_t round = 0; round < sections; ++round) {
        std::size_t from = sections, to = sections;
        for (std::size_t i = 0; i < sections * sections; ++i) {
            const std::size_t f = i / sections, t = i % sections;
            if (isTaken[f] || isFull[t]) continue;
            if (from == sections || distance(f, t) < distance(from, to)) {
                from = f;
                to = t;
            }
        }
        isTaken[from] = isFull[to] = true;
        roots_[2 * to] = roots[2 * from];
        roots_[2 * to + 1] = roots[2 * from + 1];
    }
}

// The pair as a quadratic of the squared frequency, x^2 + linear x + square^2. The corner is in units.
AnalogPair BothRemoved::zerosAt(std::size_t index) const {
    const Complex &a = roots_[2 * index], &b = roots_[2 * index + 1];
    const double square = std::sqrt(std::abs(product(a, b))), linear = -a.real() - b.real();
    return {std::sqrt(square), std::sqrt(std::max(linear / square + 2, 1e-6))};
}

// Those that lay together still do: each pair is that of a real quadratic.
bool BothRemoved::isPaired() const {
    for (std::size_t i = 0; i < degree; i += 2) {
        const double apart = std::abs(roots_[i].imag() + roots_[i + 1].imag());
        if (apart > kReal * std::min(std::abs(roots_[i]), std::abs(roots_[i + 1]))) return false;
    }
    return true;
}

bool BothRemoved::design(std::span<const AnalogSection, filterSections> low,
                         std::span<const AnalogSection, filterSections> high, std::span<AnalogSection, sections> out) {
    const auto pole = [&](std::size_t i) { return i < filterSections ? low[i].den : high[i - filterSections].den; };
    const double unit = std::sqrt(low[0].den.corner * high[0].den.corner);
    for (Complex& root : roots_)
        root *= (unit_ / unit) * (unit_ / unit);
    unit_ = unit;
    polynomial_ = zeros(low, high, unit);
    bool isSolved = isPlaced_ && solve(kMostWarmRounds) && isPaired();
    if (!isSolved) {
        guess();
        isSolved = solve(kMostRounds);
        pair();
    }
    if (!isPlaced_) {
        std::iota(poles_.begin(), poles_.end(), std::size_t{0});
        std::sort(poles_.begin(), poles_.end(),
                  [&](std::size_t a, std::size_t b) { return pole(a).corner < pole(b).corner; });
    }
    for (std::size_t i = 0; i < sections; ++i) {
        const AnalogPair zeros = zerosAt(i);
        last_[i] = {unit * zeros.corner, zeros.damping};
        out[i] = {};
        out[i].num = last_[i];
        out[i].den = pole(poles_[i]);
    }
    isPlaced_ = isSolved;
    return isSolved;
}

} // namespace QVM_NAMESPACE::dsp
