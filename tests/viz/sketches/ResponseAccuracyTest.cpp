// The response curve against an evaluation of its formulas in double precision, point by point.
#include "SketchFixture.h"

#include <gtest/gtest.h>
#include <random>

namespace QVM_NAMESPACE {
namespace {

using reference::Settings;

constexpr double kBound = 0.02;    // dB
constexpr double kFaintest = -110; // dB: below it the curve is not held to the bound

// The largest difference where the reference is above the faintest level. What is fainter there must be faint here.
double differenceOf(std::span<const float> curve, const std::vector<double>& expected) {
    EXPECT_EQ(curve.size(), expected.size());
    double largest = 0;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (expected[i] > kFaintest) {
            const double difference = std::abs(curve[i] - expected[i]);
            if (!(difference < kBound)) return difference; // also what is not a number
            largest = std::max(largest, difference);
        } else {
            EXPECT_LT(curve[i], kFaintest + kBound);
        }
    }
    return largest;
}

class ResponseAccuracy : public testing::Test {
protected:
    // `listens`: 1 for the low filter, 2 for the high one, 3 for both.
    void compare(Settings settings, int listens) {
        settings[pidFilterListenLow] = listens & 1;
        settings[pidFilterListenHigh] = listens >> 1;
        setSettings(*sketch, settings);
        calculate(*sketch);
        const reference::Response expected = reference::evaluate(settings, sketch->numPoints());
        largest = std::max(largest, differenceOf(sketch->response(), expected.total));
        if (listens) largest = std::max(largest, differenceOf(sketch->listenCurve(), expected.audition));
        largest = std::max(largest, std::abs(sketch->responseDisplay().referenceLevel - expected.reference));
        EXPECT_FLOAT_EQ(sketch->axisDecibels(), static_cast<float>(expected.axis));
        EXPECT_LT(largest, kBound) << describe(settings);
    }

    static std::string describe(const Settings& settings) {
        std::string text;
        for (std::size_t pid = 0; pid < settings.size(); ++pid)
            text += std::to_string(pid) + ":" + std::to_string(settings[pid]) + " ";
        return text;
    }

    std::unique_ptr<QVM0015GLSketch> sketch = makeCurve(108);
    double largest = 0;
};

TEST_F(ResponseAccuracy, EveryFactoryPresetInEveryLoudnessModeAndListen) {
    for (std::uint32_t preset = 0; preset < QVMPresetCount; ++preset) {
        Settings settings = presetSettings(preset);
        for (int mode = 0; mode < 4; ++mode) {
            settings[pidTiltLoudnessMode] = mode;
            for (int listens = 0; listens < 4; ++listens)
                compare(settings, listens);
        }
    }
    RecordProperty("largest", std::to_string(largest));
}

// Anything that a control or a settings address can hold, also filters that cross, with slopes between the usual ones.
TEST_F(ResponseAccuracy, HundredsOfRandomSettings) {
    std::mt19937 random(7);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    const auto frequency = [&](double low) {
        return static_cast<double>(static_cast<float>(std::exp(between(std::log(low), std::log(24000)))));
    };
    for (int i = 0; i < 1000; ++i) {
        Settings settings = initialSettings();
        settings[pidTiltGain] = static_cast<float>(between(-18, 18));
        settings[pidTiltRangeLow] = frequency(10);
        settings[pidTiltRangeHigh] = frequency(10);
        settings[pidTiltLoudnessMode] = i % 4;
        settings[pidFilterRangeLow] = i % 5 ? frequency(4) : 4;
        settings[pidFilterRangeHigh] = i % 7 ? frequency(4) : 24000;
        settings[pidFilterSlopeLow] = static_cast<float>(between(6, 48));
        settings[pidFilterSlopeHigh] = static_cast<float>(between(6, 48));
        settings[pidFilterResonanceLow] = i % 3 ? static_cast<float>(between(0, 18)) : 0;
        settings[pidFilterResonanceHigh] = i % 2 ? static_cast<float>(between(0, 18)) : 0;
        compare(settings, i / 4 % 4);
    }
    RecordProperty("largest", std::to_string(largest));
}

TEST_F(ResponseAccuracy, TheEndsOfEveryRange) {
    for (const double gain : {-18.0, 18.0}) {
        for (const double low : {10.0, 24000.0}) {
            for (const double lowSlope : {6.0, 48.0}) {
                for (const double lowCorner : {4.1, 23999.0}) {
                    Settings settings = initialSettings();
                    settings[pidTiltGain] = gain;
                    settings[pidTiltRangeLow] = low;
                    settings[pidTiltRangeHigh] = low;
                    settings[pidFilterRangeLow] = lowCorner;
                    settings[pidFilterRangeHigh] = 24004.0 - lowCorner;
                    settings[pidFilterSlopeLow] = settings[pidFilterSlopeHigh] = lowSlope;
                    settings[pidFilterResonanceLow] = settings[pidFilterResonanceHigh] = 18;
                    for (std::size_t pid = 0; pid < settings.size(); ++pid)
                        settings[pid] = static_cast<float>(settings[pid]);
                    for (int listens = 0; listens < 4; ++listens)
                        compare(settings, listens);
                }
            }
        }
    }
}

TEST_F(ResponseAccuracy, HoldsForEveryNumberOfPoints) {
    Settings settings = initialSettings();
    settings[pidTiltGain] = 9.5f;
    settings[pidFilterRangeLow] = 120;
    settings[pidFilterResonanceLow] = 12;
    for (const int points : {2, 3, 7, 54, 109, 1080}) {
        sketch = makeCurve(points);
        ASSERT_EQ(sketch->numPoints(), points);
        compare(settings, 3);
    }
}

// The comparison itself must notice a curve that is a little off, or shifted by one point.
TEST_F(ResponseAccuracy, TheComparisonNoticesAWrongCurve) {
    Settings settings = initialSettings();
    settings[pidTiltGain] = 6;
    setSettings(*sketch, settings);
    calculate(*sketch);
    const reference::Response expected = reference::evaluate(settings, 108);
    std::vector<float> wrong(sketch->response().begin(), sketch->response().end());
    ASSERT_LT(differenceOf(wrong, expected.total), kBound);
    wrong[50] += 0.03f;
    EXPECT_GT(differenceOf(wrong, expected.total), kBound);
    std::rotate(wrong.begin(), wrong.begin() + 1, wrong.end());
    EXPECT_GT(differenceOf(wrong, expected.total), kBound);
}

} // namespace
} // namespace QVM_NAMESPACE
