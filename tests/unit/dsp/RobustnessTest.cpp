// Whatever comes in and however the parameters are thrown about, what comes out is sound.
#include "unit/dsp/BusyUnit.h"

#include "support/RealtimeTrap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cfloat>
#include <limits>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

template <class Sample>
class Strange : public testing::Test {};
using SampleTypes = testing::Types<float, double>;
TYPED_TEST_SUITE(Strange, SampleTypes);

TYPED_TEST(Strange, SamplesDoNotPoisonTheState) {
    using Limits = std::numeric_limits<TypeParam>;
    for (const TypeParam odd : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max()}) {
        QVM0015_AudioUnit unit;
        makeMono(unit, busyValues());
        std::vector<TypeParam> in = signals::tone<TypeParam>(96000, 500, 0.5), clean = in;
        in[1000] = odd;
        in[1001] = odd;
        render(unit, in);
        QVM0015_AudioUnit other;
        makeMono(other, busyValues());
        render(other, clean);
        if (odd == Limits::max()) {
            in.assign(480000, TypeParam(0));
            render(unit, in);
            in = clean = signals::tone<TypeParam>(96000, 500, 0.5);
            render(unit, in);
            render(other, clean);
        } else {
            EXPECT_TRUE(std::isfinite(in[1000]));
        }
        for (std::size_t i = 90000; i < in.size(); ++i)
            ASSERT_NEAR(static_cast<double>(in[i]), static_cast<double>(clean[i]), 1e-4) << odd << ", " << i;
    }
}

TYPED_TEST(Strange, AnOverflowLeavesNothingBehind) {
    using Limits = std::numeric_limits<TypeParam>;
    ShownValues values = busyValues();
    values[pidTiltLoudnessMode] = QVMTiltEQ_LoudnessNone;
    QVM0015_AudioUnit unit;
    makeMono(unit, values);
    std::vector<TypeParam> signal(9600, Limits::max());
    render(unit, signal);
    signal.assign(480000, TypeParam(0));
    render(unit, signal);
    signal = signals::tone<TypeParam>(48000, 500, 0.5);
    render(unit, signal);
    for (const TypeParam sample : signal) {
        ASSERT_TRUE(std::isfinite(sample));
        ASSERT_LT(std::abs(sample), 100);
    }
}

TEST(Equaliser, SilenceEndsInZerosAndNotInDenormals) {
    ShownValues values = busyValues();
    values[pidFilterRangeLow] = 4.2F;
    QVM0015_AudioUnit unit;
    makeMono(unit, values);
    std::vector<double> signal(3000000);
    signal[0] = 1;
    render(unit, signal);
    for (const double sample : signal)
        ASSERT_TRUE(sample == 0 || std::abs(sample) >= DBL_MIN);
    EXPECT_EQ(signal.back(), 0);
}

TEST(Equaliser, EveryRateAndEveryCornerIsStable) {
    for (const double rate : {22050.0, 32000.0, 44100.0, 88200.0, 176400.0, 384000.0}) {
        std::mt19937 random(5);
        for (int i = 0; i < 30; ++i) {
            ShownValues values = randomValues(random);
            values[pidTiltLoudnessMode] = QVMTiltEQ_LoudnessHalfGain;
            values[pidHQMode] = static_cast<float>(i % 2);
            values[pidFilterListenLow] = static_cast<float>(i % 5 == 0);
            values[pidFilterListenHigh] = static_cast<float>(i % 7 == 0);
            QVM0015_AudioUnit unit;
            setAll(unit, values);
            ASSERT_EQ(unit.prepare(rate, 512, 1, 1), noErr);
            std::vector<float> signal = signals::tone<float>(20000, rate / 7, 0.5);
            render(unit, signal);
            for (const float sample : signal)
                ASSERT_LT(std::abs(sample), 200) << rate << ", " << i;
        }
    }
}

TEST(Equaliser, ResponsesAtTheLowestRateFollowTheCurve) {
    std::mt19937 random(2);
    for (int i = 0; i < 30; ++i) {
        const ShownValues values = randomValues(random);
        const Curve curve = curveOf(values);
        const Response response(values, 22050);
        for (std::size_t k = 0; k < curve.hertz.size(); ++k) {
            if (curve.hertz[k] < 20 || curve.hertz[k] > 8000 || curve.level[k] < -60) continue;
            EXPECT_NEAR(response.level(curve.hertz[k]), curve.level[k], 0.5) << i << ", " << curve.hertz[k] << " Hz";
        }
    }
}

TEST(Equaliser, AStormOfParametersStaysBounded) {
    QVM0015_AudioUnit unit;
    unit.prepare(rateHz, 512, 2, 2);
    std::mt19937 random(9);
    std::vector<float> left(4000), right(4000);
    float* const both[] = {left.data(), right.data()};
    float largest = 0;
    for (int i = 0; i < 3000; ++i) {
        refill(left, right, signals::tone<float>(4000, 440, 0.5));
        ShownValues values = randomValues(random);
        for (const std::uint32_t pid : {pidMasterOnOff, pidFilterListenLow, pidFilterListenHigh, pidHQMode})
            values[pid] =
                static_cast<float>(random() % 8 != 0) * (pid == pidMasterOnOff ? 1 : static_cast<float>(random() % 2));
        setAll(unit, values);
        const auto frames = static_cast<std::uint32_t>(random() % 200);
        unit.process(both, both, frames);
        for (std::uint32_t k = 0; k < frames; ++k)
            largest = std::max(largest, std::abs(left[k]));
    }
    EXPECT_LT(largest, 20000); // tilt, two resonances and the loudness match
    setAll(unit, initialValues());
    refill(left, right, signals::tone<float>(4000, 440, 0.5));
    unit.process(both, both, 4000);
    EXPECT_LE(*std::max_element(left.end() - 400, left.end()), 0.51F);
}

TEST(Equaliser, AStormFromOtherThreadsIsHeardWithoutARace) {
    QVM0015_AudioUnit unit;
    unit.prepare(rateHz, 512, 2, 2);
    std::atomic<bool> done = false;
    std::thread writer([&] {
        std::mt19937 random(4);
        for (int i = 0; i < 2000; ++i)
            setAll(unit, randomValues(random));
        done = true;
    });
    std::vector<float> left(256), right(256);
    float* const both[] = {left.data(), right.data()};
    while (!done) {
        refill(left, right, signals::tone<float>(256, 440, 0.5));
        unit.process(both, both, 256);
        for (const float sample : left)
            ASSERT_TRUE(std::isfinite(sample));
    }
    writer.join();
}

TEST(Equaliser, NoPathAllocatesLocksOrCallsTheSystem) {
    for (const double rate : {44100.0, 192000.0}) {
        QVM0015_AudioUnit unit;
        unit.prepare(rate, 512, 2, 2);
        std::vector<float> left = signals::tone<float>(2000, 440, 0.5), right = left;
        float* const both[] = {left.data(), right.data()};
        std::mt19937 random(1);
        for (int i = 0; i < 200; ++i) {
            ShownValues values = randomValues(random);
            for (const std::uint32_t pid :
                 {pidMasterOnOff, pidMeterMode, pidFilterListenLow, pidFilterListenHigh, pidHQMode})
                values[pid] = static_cast<float>(random() % 2);
            left[5] = i % 20 ? 0 : std::numeric_limits<float>::infinity();
            right[900] = i % 30 ? 0 : std::numeric_limits<float>::max();
            const realtime::Offences seen = realtime::offencesOf([&] {
                setAll(unit, values);
                unit.process(both, both, 2000);
            });
            ASSERT_FALSE(seen.any()) << seen;
            refill(left, right, signals::tone<float>(2000, 440, 0.5));
        }
    }
}

// As when one begins to listen to one filter and to both, and moves a corner meanwhile.
TEST(Equaliser, ListeningNeitherAllocatesNorLocksFromTheFirstSampleOn) {
    QVM0015_AudioUnit unit;
    setAll(unit, busyValues());
    unit.prepare(rateHz, 512, 2, 2);
    std::vector<float> left = signals::tone<float>(2000, 440, 0.5), right = left;
    float* const both[] = {left.data(), right.data()};
    const std::pair<std::uint32_t, float> changes[] = {{pidFilterListenLow, 1.0F}, {pidFilterListenHigh, 1.0F},
                                                       {pidFilterRangeLow, 70.0F}, {pidFilterRangeLow, 500.0F},
                                                       {pidFilterListenLow, 0.0F}, {pidHQMode, 1.0F},
                                                       {pidFilterRangeLow, 4.0F},  {pidFilterListenHigh, 0.0F}};
    for (const auto& change : changes) {
        const float value = GetParameter(change.first)->reverseCastValue(change.second);
        const realtime::Offences seen = realtime::offencesOf([&] {
            unit.setParameter(change.first, kAudioUnitScope_Global, 0, value, 0);
            unit.process(both, both, 2000);
        });
        EXPECT_FALSE(seen.any()) << seen << "; parameter " << change.first;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
