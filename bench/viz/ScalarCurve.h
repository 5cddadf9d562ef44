// One frame of the response curve, point by point in double precision with the C library's functions: what the vector
// arithmetic is measured against. The same formulas, tables and line as the display has.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace scalar {

struct Settings {
    double gain = 0;               // dB
    double low = 20, high = 20000; // corners of the tilt, hertz
    int mode = 0;                  // loudness
    bool lowOn = false, highOn = false;
    double lowCorner = 4, highCorner = 24000; // hertz
    double lowOrder = 2, highOrder = 2;
    double lowReso = 0, highReso = 0; // dB
};

class Curve {
public:
    Curve(int points, int smoothing)
        : half_(smoothing), freqs_(points), weights_(points), sinSq_(points), response_(points), filter_(points),
          ys_(points), xs_(points), lineX_(points), lineY_(points), padded_(points + 2 * smoothing) {
        for (int i = 0; i < points; ++i) {
            const double f = std::exp(std::log(4.0) + i / (points - 1.0) * std::log(6000.0));
            freqs_[i] = f;
            weights_[i] = 1 / std::sqrt(1 + std::pow(500 / f, 2)) / std::sqrt(1 + std::pow(63 / f, 2.7)) /
                          std::sqrt(1 + std::pow(f / 5000, 4.8)) / std::sqrt(1 + std::pow(f / 20, 2));
            sinSq_[i] = std::pow(std::sin(std::numbers::pi * f / 48000), 2);
            xs_[i] = 2.0 * i / (points - 1) - 1;
        }
    }

    // Returns the number of points of the line.
    std::size_t frame(const Settings& s) {
        const std::size_t n = freqs_.size();
        for (std::size_t i = 0; i < n; ++i) {
            const double lowPass =
                s.highOn ? 1 / std::sqrt(1 + std::pow(freqs_[i] / s.highCorner, 2 * s.highOrder)) : 1;
            const double highPass = s.lowOn ? 1 / std::sqrt(1 + std::pow(s.lowCorner / freqs_[i], 2 * s.lowOrder)) : 1;
            filter_[i] = lowPass * highPass;
        }
        reference_ = -tilt(s) - s.gain;
        for (std::size_t i = 0; i < n; ++i)
            response_[i] += std::log(filter_[i]) * kDecibelsPerNeper - s.gain;
        if (s.highOn && s.highReso > 0) addResonance(s.highCorner, s.highReso, s.highOrder);
        if (s.lowOn && s.lowReso > 0) addResonance(s.lowCorner, s.lowReso, s.lowOrder);
        const double axis = std::max(7.5, std::abs(s.gain) + 1.5);
        return makeLine(axis);
    }

    double referenceLevel() const { return reference_; }
    const std::vector<double>& response() const { return response_; }

private:
    static constexpr double kDecibelsPerNeper = 8.685889638065037;

    double tilt(const Settings& s) {
        const double gain = 2 * s.gain, m = std::max(std::abs(gain), 12.0), high = std::max(s.high, 2 * s.low);
        const double e = std::exp(m * -0.11512925464970228);
        const double p = std::log(1 / (e * e) - 1) / std::log(high / s.low);
        const double k = 1 / (std::pow(high / s.low, p) + 1);
        double flat = 0, tilted = 0;
        for (std::size_t i = 0; i < freqs_.size(); ++i) {
            const double f = std::max(freqs_[i], 1.0);
            const double a = std::pow(f / s.low, p), b = std::pow(high / f, p);
            const double magnitude = std::pow(std::sqrt(k * std::sqrt(1 / (b + 1)) + 1 / (a + 1)), gain / -m);
            if (s.mode == 0) {
                const double seen = weights_[i] * filter_[i];
                flat += seen * seen;
                tilted += seen * magnitude * seen * magnitude;
            }
            response_[i] = std::log(magnitude) * kDecibelsPerNeper;
        }
        return s.mode == 0 ? 0.5 * std::log(flat / tilted) * kDecibelsPerNeper : 0;
    }

    void addResonance(double corner, double reso, double order) {
        const double q = std::max(order, 2.0), amplitude = std::pow(10, reso / 40);
        const double w0 = 2 * std::numbers::pi * std::min(corner, 23760.0) / 48000;
        const double alpha = std::sin(w0) / (2 * (1 + 2 / q)), middle = -2 * std::cos(w0);
        const auto level = [&](double c0, double c1, double c2, double phi) {
            const double sum = c0 + c1 + c2;
            return 10 * std::log10(sum * sum - 4 * (c0 * c1 + 4 * c0 * c2 + c1 * c2) * phi + 16 * c0 * c2 * phi * phi);
        };
        for (std::size_t i = 0; i < freqs_.size(); ++i)
            response_[i] += level(1 + alpha * amplitude, middle, 1 - alpha * amplitude, sinSq_[i]) -
                            level(1 + alpha / amplitude, middle, 1 - alpha / amplitude, sinSq_[i]);
    }

    std::size_t makeLine(double axis) {
        const std::size_t n = freqs_.size(), lead = 2 * static_cast<std::size_t>(half_);
        for (std::size_t i = 0; i < n; ++i)
            padded_[lead + i] = (response_[i] + axis) / axis - 1;
        std::fill_n(padded_.begin(), lead, padded_[lead]);
        const double sum = (half_ + 1) * (half_ + 1);
        for (std::size_t i = 0; i < n; ++i) {
            double y = 0;
            for (std::size_t j = 0; j <= lead; ++j)
                y += padded_[i + j] * static_cast<double>(std::min(j, lead - j) + 1) / sum;
            ys_[i] = std::clamp(y, -2.0, 2.0);
        }
        std::size_t kept = 0;
        for (std::size_t i = 0; i < n; ++i) {
            if (kept >= 2 && i + 1 < n) {
                const double turn = (lineX_[kept - 1] - lineX_[kept - 2]) * (ys_[i] - lineY_[kept - 1]) -
                                    (lineY_[kept - 1] - lineY_[kept - 2]) * (xs_[i] - lineX_[kept - 1]);
                if (std::abs(turn) * static_cast<double>(n) <= 0.01) continue;
            }
            lineX_[kept] = xs_[i];
            lineY_[kept] = ys_[i];
            ++kept;
        }
        return kept;
    }

    int half_;
    double reference_ = 0;
    std::vector<double> freqs_, weights_, sinSq_, response_, filter_, ys_, xs_, lineX_, lineY_, padded_;
};

} // namespace scalar
