#include "Grid.h"

#include "Targets.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace prototypes {

namespace {

constexpr double kWidest = 2400, kNarrowest = 2; // ratios of the tilt's corners
constexpr int kStart = 4;                        // the gain at which the walk over the spans is made
constexpr int kSteps = 10;                       // from node to node
constexpr double kDecibelsPerNeper = 8.685889638065037;
constexpr int kFilterNodes = 33, kFilterSections = 4;
constexpr double kHighestOrder = 8;

double spanAt(double index) {
    const double widest = std::log(kWidest), narrowest = std::log(kNarrowest);
    return widest * std::pow(narrowest / widest, index / (TiltGrid::spans - 1));
}

Cascade scaled(Cascade cascade, double by) {
    for (Section& s : cascade) {
        s.num.corner *= by;
        s.den.corner *= by;
    }
    return cascade;
}

// Moves each section's poles and zeros apart by a factor.
void widen(Cascade& cascade, double by) {
    for (Section& s : cascade) {
        for (double Pair::*field : {&Pair::corner, &Pair::damping}) {
            const double middle = (s.num.*field + s.den.*field) / 2;
            s.num.*field = middle + (s.num.*field - middle) * by;
            s.den.*field = middle + (s.den.*field - middle) * by;
        }
    }
}

Cascade refit(const Cascade& relative, double span, double gain, double stay, int iterations) {
    Cascade cascade = scaled(relative, span);
    fit(cascade, tiltTarget(span, gain), stay, iterations);
    return scaled(cascade, 1 / span);
}

// Adds `share` of a cascade's parameters to another one's.
void accumulate(Cascade& sum, const Cascade& part, double share) {
    for (std::size_t s = 0; s < sum.size(); ++s) {
        for (double Pair::*field : {&Pair::corner, &Pair::damping}) {
            sum[s].num.*field += part[s].num.*field * share;
            sum[s].den.*field += part[s].den.*field * share;
        }
    }
}

Cascade mean(const std::vector<const Cascade*>& neighbours) {
    Cascade sum = *neighbours.front();
    accumulate(sum, sum, -1);
    for (const Cascade* c : neighbours)
        accumulate(sum, *c, 1.0 / static_cast<double>(neighbours.size()));
    return sum;
}

constexpr double kStay = 1e-2;

} // namespace

const std::vector<double>& TiltGrid::gains() {
    static const std::vector<double> all = {4, 8, 12, 15, 18, 22, 26, 31, 36};
    return all;
}

TiltGrid::TiltGrid() : nodes_(spans, std::vector<Cascade>(gains().size())) {
    start();
    walkSpans();
    for (int span = 0; span < spans; ++span)
        walkGains(span);
    smooth();
}

// Real poles and zeros, evenly placed over the widest span.
void TiltGrid::start() {
    Cascade cascade(sections);
    const double span = spanAt(0), distance = 0.5 / sections;
    const double apart = gains()[kStart] / kDecibelsPerNeper / sections / 4 / span;
    for (int i = 0; i < sections; ++i) {
        const double middle = (2 * i + 1) * distance;
        const double damping = std::log(2 * std::cosh(distance / 2 * span));
        cascade[i] = {{middle - apart, damping}, {middle + apart, damping}};
    }
    nodes_[0][kStart] = refit(cascade, span, gains()[kStart], 1e-3, 400);
}

void TiltGrid::walkSpans() {
    for (int i = 1; i < spans; ++i) {
        Cascade cascade = nodes_[i - 1][kStart];
        for (int step = 1; step <= kSteps; ++step)
            cascade = refit(cascade, spanAt(i - 1 + double(step) / kSteps), gains()[kStart], kStay * kSteps, 40);
        nodes_[i][kStart] = cascade;
    }
}

void TiltGrid::walkGains(int span) {
    for (const int direction : {1, -1}) {
        const int end = direction > 0 ? static_cast<int>(gains().size()) : -1;
        for (int i = kStart + direction; i != end; i += direction) {
            Cascade cascade = nodes_[span][i - direction];
            double last = gains()[i - direction];
            const double stride = (gains()[i] - last) / kSteps;
            for (int step = 0; step < kSteps; ++step) {
                widen(cascade, (last + stride) / last);
                last += stride;
                cascade = refit(cascade, spanAt(span), last, kStay * kSteps, 40);
            }
            nodes_[span][i] = cascade;
        }
    }
}

void TiltGrid::smooth() {
    const int gainCount = static_cast<int>(gains().size());
    for (int pass = 0; pass < 10; ++pass) {
        for (int i = 0; i < spans; ++i) {
            for (int g = gainCount - 1; g >= 0; --g) {
                std::vector<const Cascade*> around;
                if (i > 0 && i < spans - 1) around.insert(around.end(), {&nodes_[i - 1][g], &nodes_[i + 1][g]});
                if (g > 0 && g < gainCount - 1) around.insert(around.end(), {&nodes_[i][g - 1], &nodes_[i][g + 1]});
                if (around.empty()) around = {&nodes_[i][g]};
                const Cascade middle = mean(around);
                nodes_[i][g] = refit(mean({&nodes_[i][g], &middle}), spanAt(i), gains()[g], kStay, 30);
            }
        }
    }
}

std::vector<Cascade> filterGrid(FilterKind kind) {
    const auto target = [kind](double order) {
        if (kind == FilterKind::passed) return filterTarget(order);
        return kind == FilterKind::removed ? removedTarget(order) : removedRootTarget(order);
    };
    const auto orderAt = [](double index) { return std::pow(kHighestOrder, index / (kFilterNodes - 1)); };
    const bool fallsEasily = kind != FilterKind::removed; // no faster than the sections do
    // From the highest order down, which is Butterworth's with all zeros far away.
    Cascade cascade(kFilterSections);
    for (int i = 0; i < kFilterSections; ++i) {
        const double angle = std::numbers::pi * (2 * i + 1) / (4 * kFilterSections);
        cascade[i].den = {0, std::log(2 * std::sin(angle))};
        cascade[i].num = {(fallsEasily ? 1.2 : 0.5) + 0.1 * i, fallsEasily ? 0.7 : -1.0};
    }
    cascade[0].num.isSingle = true;
    fit(cascade, target(kHighestOrder), 1e-6, 2000);
    std::vector<Cascade> nodes(kFilterNodes);
    nodes.back() = cascade;
    for (int i = kFilterNodes - 2; i >= 0; --i) {
        for (int step = 1; step <= kSteps; ++step)
            fit(cascade, target(orderAt(i + 1 - double(step) / kSteps)), kStay, 30);
        nodes[i] = cascade;
    }
    for (int pass = 0; pass < 4; ++pass) {
        for (int i = 1; i < kFilterNodes - 1; ++i) {
            const Cascade middle = mean({&nodes[i - 1], &nodes[i + 1]});
            nodes[i] = mean({&nodes[i], &middle});
            fit(nodes[i], target(orderAt(i)), kStay, 40);
        }
    }
    return nodes;
}

} // namespace prototypes
