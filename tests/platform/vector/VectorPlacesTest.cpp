// Every operation at every length, wherever its arrays lie in memory.
#include "platform/vector/VectorMath.h"

#include "platform/vector/VectorMathFixture.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using VectorPlaces = VectorMathFixture;
INSTANTIATE_TEST_SUITE_P(Units, VectorPlaces, testing::ValuesIn(hwy::SupportedAndGeneratedTargets()), nameOfVectorUnit);

// One operation on two arrays, as vectors do it and as the C library does it to an element.
struct Operation {
    const char* name;
    std::function<void(const float* a, const float* b, float* out, std::size_t n)> vector;
    std::function<double(double a, double b)> scalar;
};
const Operation operations[] = {
    {"copy", [](auto a, auto, auto out, auto n) { vectors::copy(a, out, n); }, [](double a, double) { return a; }},
    {"add", vectors::add, [](double a, double b) { return a + b; }},
    {"multiply", vectors::multiply, [](double a, double b) { return a * b; }},
    {"divide", vectors::divide, [](double a, double b) { return a / b; }},
    {"divideScalarBy", [](auto a, auto, auto out, auto n) { vectors::divideScalarBy(3, a, out, n); },
     [](double a, double) { return 3 / a; }},
    {"scaleAndOffset", [](auto a, auto, auto out, auto n) { vectors::scaleAndOffset(a, 0.5f, 0.75f, out, n); },
     [](double a, double) { return a * 0.5 + 0.75; }},
    {"multiplyAdd", [](auto a, auto b, auto out, auto n) { vectors::multiplyAdd(a, 0.5f, b, out, n); },
     [](double a, double b) { return a * 0.5 + b; }},
    {"power", [](auto a, auto, auto out, auto n) { vectors::power(a, 2.5f, out, n); },
     [](double a, double) { return std::pow(a, 2.5); }},
    {"power of 0", [](auto a, auto, auto out, auto n) { vectors::power(a, 0, out, n); },
     [](double, double) { return 1.0; }},
    {"log", [](auto a, auto, auto out, auto n) { vectors::log(a, out, n); },
     [](double a, double) { return std::log(a); }},
    {"exp", [](auto a, auto, auto out, auto n) { vectors::exp(a, out, n); },
     [](double a, double) { return std::exp(a); }},
    {"sqrt", [](auto a, auto, auto out, auto n) { vectors::sqrt(a, out, n); },
     [](double a, double) { return std::sqrt(a); }},
    {"clip", [](auto a, auto, auto out, auto n) { vectors::clip(a, 2, 5, out, n); },
     [](double a, double) { return std::clamp(a, 2.0, 5.0); }},
    {"magnitude", vectors::magnitude, [](double a, double b) { return std::hypot(a, b); }},
    {"angle", vectors::angle, [](double a, double b) { return std::atan2(a, b); }},
};

// At every length and place, into an array of its own and into either input; what is beside it is left alone.
TEST_P(VectorPlaces, EveryOperationDoesEveryElementWhereverTheArraysLie) {
    constexpr std::size_t margin = 4;
    for (const Operation& operation : operations) {
        for (const std::size_t n : lengths) {
            for (const std::size_t shift : {0u, 1u, 3u}) {
                for (const int into : {0, 1, 2}) {
                    // Of three arrays each begins at another distance from where a vector would.
                    std::vector<float> arrays[3] = {uniform(n + 2 * margin, 1, 9), uniform(n + 2 * margin, 1, 9),
                                                    uniform(n + 2 * margin, 1, 9)};
                    const std::vector<float> before[3] = {arrays[0], arrays[1], arrays[2]};
                    float* const a = arrays[0].data() + shift;
                    float* const b = arrays[1].data() + (shift + 1) % margin;
                    const std::size_t places[] = {shift, (shift + 1) % margin, (shift + 2) % margin};
                    const std::size_t target = into == 0 ? 2 : static_cast<std::size_t>(into - 1), at = places[target];
                    operation.vector(a, b, arrays[target].data() + at, n);
                    for (std::size_t i = 0; i < n + 2 * margin; ++i) {
                        const float got = arrays[target][i];
                        if (i < at || i >= at + n) {
                            ASSERT_EQ(got, before[target][i]) << operation.name << " beside " << n;
                            continue;
                        }
                        const double exact = operation.scalar(double{before[0][places[0] + i - at]},
                                                              double{before[1][places[1] + i - at]});
                        ASSERT_NEAR(got, exact, 2e-5 * std::max(1.0, std::abs(exact)))
                            << operation.name << " of " << n << " at " << i - at;
                    }
                }
            }
        }
    }
}

TEST_P(VectorPlaces, SumsAndShufflesDoEveryElementWhereverTheArraysLie) {
    for (const std::size_t n : lengths) {
        for (const std::size_t shift : {0u, 1u, 3u}) {
            const auto both = uniform(2 * n + 8, -3, 3), kernel = uniform(3, 0, 1);
            const float* const in = both.data() + shift;
            std::vector<float> out(n + 8, 42.0f), other(n + 8, 42.0f), pairs(2 * n + 8, 42.0f);
            vectors::convolve(in, kernel.data(), 3, out.data() + 1, n);
            long double squares = 0;
            for (std::size_t i = 0; i < n; ++i) {
                ASSERT_NEAR(out[i + 1], in[i] * kernel[0] + in[i + 1] * kernel[1] + in[i + 2] * kernel[2], 5e-6);
                squares += static_cast<long double>(in[i]) * in[i];
            }
            EXPECT_EQ(out[0], 42.0f);
            EXPECT_EQ(out[n + 1], 42.0f);
            const double mean = n > 0 ? static_cast<double>(std::sqrt(squares / n)) : 0;
            EXPECT_NEAR(vectors::rms(in, n), mean, 3e-6);
            vectors::deinterleave(in, 0.5f, out.data() + 1, other.data() + 3, n);
            vectors::interleave(out.data() + 1, other.data() + 3, pairs.data() + 1, n);
            for (std::size_t i = 0; i < n; ++i) {
                ASSERT_EQ(out[i + 1], in[2 * i] * 0.5f);
                ASSERT_EQ(other[i + 3], in[2 * i + 1] * 0.5f);
                ASSERT_EQ(pairs[2 * i + 1], out[i + 1]);
                ASSERT_EQ(pairs[2 * i + 2], other[i + 3]);
            }
            EXPECT_EQ(pairs[0], 42.0f);
            EXPECT_EQ(pairs[2 * n + 1], 42.0f);
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
