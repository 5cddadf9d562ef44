#include "Fit.h"

#include <algorithm>
#include <cmath>

namespace prototypes {

namespace {

constexpr double kDecibelsPerNeper = 8.685889638065037;
constexpr double kFarthestStep = 0.5;
constexpr double kLeastDamping = -3.5, kMostDamping = 4; // ln k

std::vector<double*> parametersOf(Cascade& cascade) {
    std::vector<double*> all;
    for (Section& s : cascade)
        for (double* p : {&s.num.corner, &s.num.damping, &s.den.corner, &s.den.damping})
            all.push_back(p);
    return all;
}

// Solves a x = b for a symmetric positive definite matrix by Cholesky's decomposition.
bool solve(std::vector<double> a, std::vector<double>& b) {
    const std::size_t n = b.size();
    for (std::size_t j = 0; j < n; ++j) {
        for (std::size_t k = 0; k < j; ++k)
            a[j * n + j] -= a[j * n + k] * a[j * n + k];
        if (!(a[j * n + j] > 0)) return false;
        a[j * n + j] = std::sqrt(a[j * n + j]);
        for (std::size_t i = j + 1; i < n; ++i) {
            for (std::size_t k = 0; k < j; ++k)
                a[i * n + j] -= a[i * n + k] * a[j * n + k];
            a[i * n + j] /= a[j * n + j];
        }
    }
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t k = 0; k < i; ++k)
            b[i] -= a[i * n + k] * b[k];
        b[i] /= a[i * n + i];
    }
    for (std::size_t i = n; i-- > 0;) {
        for (std::size_t k = i + 1; k < n; ++k)
            b[i] -= a[k * n + i] * b[k];
        b[i] /= a[i * n + i];
    }
    return true;
}

double cost(const Cascade& cascade, const Target& target) {
    double sum = 0;
    for (std::size_t i = 0; i < target.x.size(); ++i) {
        const double e = target.weight[i] * (levelOf(cascade, target.x[i]) - target.level[i]);
        sum += e * e;
    }
    return sum;
}

} // namespace

double levelOf(const Pair& pair, double x, double* byCorner, double* byDamping) {
    const double r = std::exp(2 * (x - pair.corner));
    if (pair.isSingle) {
        if (byCorner) *byCorner = -r / (1 + r);
        if (byDamping) *byDamping = 0;
        return 0.5 * std::log1p(r);
    }
    const double kk = std::exp(2 * pair.damping);
    const double d = 1 + (kk - 2) * r + r * r;
    if (byCorner) *byCorner = -((kk - 2) * r + 2 * r * r) / d;
    if (byDamping) *byDamping = kk * r / d;
    return 0.5 * std::log(d);
}

double levelOf(const Cascade& cascade, double x) {
    double level = 0;
    for (const Section& s : cascade)
        level += levelOf(s.num, x) - levelOf(s.den, x);
    return level;
}

double fit(Cascade& cascade, const Target& target, double stay, int iterations) {
    const Cascade start = cascade;
    Cascade origin = start;
    const auto home = parametersOf(origin);
    const std::size_t n = cascade.size() * 4;
    double lambda = 1e-3, best = cost(cascade, target);
    for (int iteration = 0; iteration < iterations; ++iteration) {
        std::vector<double> a(n * n), b(n), row(n);
        for (std::size_t i = 0; i < target.x.size(); ++i) {
            double level = 0;
            for (std::size_t s = 0; s < cascade.size(); ++s) {
                level += levelOf(cascade[s].num, target.x[i], &row[4 * s], &row[4 * s + 1]);
                level -= levelOf(cascade[s].den, target.x[i], &row[4 * s + 2], &row[4 * s + 3]);
                row[4 * s + 2] *= -1;
                row[4 * s + 3] *= -1;
            }
            const double w = target.weight[i] * target.weight[i], e = level - target.level[i];
            for (std::size_t p = 0; p < n; ++p) {
                b[p] -= w * row[p] * e;
                for (std::size_t q = 0; q <= p; ++q)
                    a[p * n + q] += w * row[p] * row[q];
            }
        }
        const auto now = parametersOf(cascade);
        for (std::size_t p = 0; p < n; ++p) {
            a[p * n + p] += stay;
            b[p] -= stay * (*now[p] - *home[p]);
        }
        bool better = false;
        for (int attempt = 0; attempt < 10 && !better; ++attempt) {
            std::vector<double> damped = a, step = b;
            for (std::size_t p = 0; p < n; ++p)
                damped[p * n + p] += lambda * (a[p * n + p] + 1e-6);
            Cascade trial = cascade;
            if (solve(damped, step)) {
                const auto to = parametersOf(trial);
                for (std::size_t p = 0; p < n; ++p) {
                    *to[p] += std::clamp(step[p], -kFarthestStep, kFarthestStep);
                    if (p % 2) *to[p] = std::clamp(*to[p], kLeastDamping, kMostDamping);
                }
                double c = cost(trial, target), cNow = best;
                for (std::size_t p = 0; p < n; ++p) {
                    c += stay * std::pow(*to[p] - *home[p], 2);
                    cNow += stay * std::pow(*now[p] - *home[p], 2);
                }
                better = c < cNow;
            }
            lambda *= better ? 0.3 : 4;
            if (better) {
                cascade = trial;
                best = cost(cascade, target);
            }
        }
        lambda = std::clamp(lambda, 1e-9, 1e6);
        if (!better) break;
    }
    double worst = 0;
    for (std::size_t i = 0; i < target.x.size(); ++i) {
        const double e = target.weight[i] * (levelOf(cascade, target.x[i]) - target.level[i]);
        worst = std::max(worst, std::abs(e) * kDecibelsPerNeper);
    }
    return worst;
}

} // namespace prototypes
