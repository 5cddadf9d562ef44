#include "unit/dsp/Corrector.h"

#include "platform/vector/VectorMath.h"
#include "response/ResponseModel.h"
#include "unit/dsp/DigitalSection.h"
#include "unit/dsp/FilterMath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE::dsp {

namespace {

constexpr double kNormalTop = 16500, kHighTop = 20500; // hertz, up to which the response is held
constexpr double kLongAbove = 60000;
constexpr double kBeyond = 0.03;     // weight above the top
constexpr double kSmoothness = 2e-7; // of the sum of k^4 c_k^2
constexpr float kMostNepers = 4;

} // namespace

void Corrector::prepare(double sampleRateHz, Quality quality) {
    // At high rates the band is a small part of the spectrum and takes more terms.
    const bool isLong = quality == Quality::high || sampleRateHz > kLongAbove;
    terms_ = isLong ? 16 : 9;
    tapCount_ = isLong ? 32 : 20;
    const double end = std::min(sampleRateHz / 2, model::highestHertz);
    const double top = quality == Quality::high ? kHighTop : kNormalTop;
    std::array<std::array<double, points>, maxTerms> basis{};
    solution_ = {};
    std::array<double, points> weights{};
    for (std::size_t i = 0; i < points; ++i) {
        const double hertz = end * (static_cast<double>(i) + 0.5) / points;
        squares_[i] = hertz * hertz;
        const double w = 2 * std::numbers::pi * hertz / sampleRateHz;
        positions_[i] = std::pow(std::sin(w / 2), 2);
        modelPositions_[i] = Peak::modelPosition(hertz);
        weights[i] = hertz <= top ? 1 : kBeyond;
        for (std::size_t k = 0; k < terms_; ++k)
            basis[k][i] = -2 * std::pow(std::sin(static_cast<double>(k + 1) * w / 2), 2);
    }
    // (A W A' + smoothness) C = A W by Gauss and Jordan.
    std::array<std::array<double, maxTerms>, maxTerms> matrix{};
    for (std::size_t k = 0; k < terms_; ++k) {
        for (std::size_t l = 0; l < terms_; ++l) {
            for (std::size_t i = 0; i < points; ++i)
                matrix[k][l] += basis[k][i] * weights[i] * basis[l][i];
        }
        matrix[k][k] += kSmoothness * std::pow(static_cast<double>(k + 1), 4);
        for (std::size_t i = 0; i < points; ++i)
            solution_[i][k] = basis[k][i] * weights[i];
    }
    for (std::size_t k = 0; k < terms_; ++k) {
        for (std::size_t l = 0; l < terms_; ++l) {
            if (l == k) continue;
            const double factor = matrix[l][k] / matrix[k][k];
            for (std::size_t m = k; m < terms_; ++m)
                matrix[l][m] -= factor * matrix[k][m];
            for (std::size_t i = 0; i < points; ++i)
                solution_[i][l] -= factor * solution_[i][k];
        }
    }
    for (std::size_t k = 0; k < terms_; ++k) {
        for (std::size_t i = 0; i < points; ++i)
            solution_[i][k] /= matrix[k][k];
    }
    for (std::size_t n = 1; n < maxTaps; ++n)
        inverses_[n] = 1 / static_cast<double>(n);
}

void Corrector::taps(const Rest& rest, Taps& out) const {
    std::array<float, points> nepers;
    std::transform(rest.begin(), rest.end(), nepers.begin(), [](double power) { return static_cast<float>(power); });
    vectors::log(nepers.data(), nepers.data(), points);
    vectors::scaleAndOffset(nepers.data(), 0.5F, 0, nepers.data(), points);
    vectors::clip(nepers.data(), -kMostNepers, kMostNepers, nepers.data(), points);
    std::array<double, points> levels;
    std::copy(nepers.begin(), nepers.end(), levels.begin());
    std::array<double, maxTerms> c;
    vectors::multiplyRows(solution_.front().data(), levels.data(), points, c.data(), maxTerms);
    double sum = 0;
    for (std::size_t k = 0; k < maxTerms; ++k) {
        sum += c[k];
        c[k] *= static_cast<double>(k + 1);
    }
    // n times tap n is the sum over k of c[k] and tap n - k - 1; each tap goes to all sums that it is a part of.
    std::array<double, maxTaps + maxTerms> sums{};
    out.fill(0);
    out[0] = std::exp(-sum);
    double total = 0;
    for (std::size_t n = 0; n < tapCount_; ++n) {
        if (n > 0) out[n] = sums[n] * inverses_[n];
        total += out[n];
        for (std::size_t k = 0; k < maxTerms; ++k)
            sums[n + 1 + k] += c[k] * out[n];
    }
    for (std::size_t n = 0; n < tapCount_; ++n) // what the taps that are left out would add at 0 Hz
        out[n] /= total;
}

} // namespace QVM_NAMESPACE::dsp
