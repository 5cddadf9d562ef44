// Whatever comes in and however the parameters are thrown about, what comes out is sound.
#include "unit/Signals.h"
#include "unit/dsp/Response.h"

#include "support/RealtimeTrap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cfloat>
#include <limits>
#include <thread>

namespace QVM_NAMESPACE {
namespace {

constexpr double rateHz = 48000;

ShownValues busyValues() {
    ShownValues values = initialValues();
    for (const auto& [pid, value] :
         {std::pair{1, 9.0F}, {9, 60.0F}, {10, 9000.0F}, {14, 48.0F}, {15, 12.0F}, {21, 33.0F}, {22, 6.0F}})
        values[static_cast<std::size_t>(pid)] = value;
    return values;
}

template <class Sample>
void render(QVM0015_AudioUnit& unit, std::vector<Sample>& signal, std::size_t block = 512) {
    for (std::size_t at = 0; at < signal.size(); at += block) {
        Sample* const here[] = {signal.data() + at};
        unit.process(here, here, static_cast<std::uint32_t>(std::min(block, signal.size() - at)));
    }
}

void refill(std::vector<float>& left, std::vector<float>& right, const std::vector<float>& with) {
    std::ranges::copy(with, left.begin());
    std::ranges::copy(with, right.begin());
}

TEST(Equaliser, AtInitialValuesItPassesEveryBit) {
    for (const float quality : {0.0F, 1.0F}) {
        QVM0015_AudioUnit unit;
        unit.setParameter(23, kAudioUnitScope_Global, 0, quality, 0);
        unit.prepare(rateHz, 512, 1, 1);
        const std::vector<float> in = signals::tone<float>(20000, 997, 0.7);
        std::vector<float> out = in;
        render(unit, out);
        EXPECT_EQ(out, in);
    }
}

TEST(Equaliser, SwitchedOffItPassesEveryBitWhateverElseIsSet) {
    ShownValues values = busyValues();
    values[0] = 0;
    QVM0015_AudioUnit unit;
    setAll(unit, values);
    unit.prepare(rateHz, 512, 1, 1);
    const std::vector<double> in = signals::tone<double>(20000, 997, 0.7);
    std::vector<double> out = in;
    render(unit, out);
    EXPECT_EQ(out, in);
}

TEST(Equaliser, OnceEverythingIsBackAtItsInitialValueTheBitsPassAgain) {
    QVM0015_AudioUnit unit;
    setAll(unit, busyValues());
    unit.prepare(rateHz, 512, 1, 1);
    std::vector<float> out = signals::tone<float>(20000, 997, 0.7);
    render(unit, out);
    setAll(unit, initialValues());
    const std::vector<float> in = signals::tone<float>(48000, 997, 0.7);
    out = in;
    render(unit, out);
    EXPECT_TRUE(std::equal(in.end() - 9600, in.end(), out.end() - 9600));
}

TEST(Equaliser, LinkSwitchesAndRatiosAreStoredWithoutEffectOnTheSound) {
    QVM0015_AudioUnit plain, linked;
    setAll(plain, busyValues());
    setAll(linked, busyValues());
    for (const std::uint32_t pid : {4U, 5U, 11U, 12U, 16U, 17U, 18U, 19U}) {
        const float value = GetParameter(pid)->maxValue;
        EXPECT_EQ(linked.setParameter(pid, kAudioUnitScope_Global, 0, value, 0), noErr);
        float stored = 0;
        linked.getParameter(pid, kAudioUnitScope_Global, 0, &stored);
        EXPECT_EQ(stored, value);
    }
    plain.prepare(rateHz, 512, 1, 1);
    linked.prepare(rateHz, 512, 1, 1);
    std::vector<float> a = signals::tone<float>(9600, 500, 0.5), b = a;
    for (QVM0015_AudioUnit* unit : {&plain, &linked})
        unit->setParameter(10, kAudioUnitScope_Global, 0, 12000, 0);
    render(plain, a);
    render(linked, b);
    EXPECT_EQ(a, b);
    float low = 0, was = 0;
    linked.getParameter(9, kAudioUnitScope_Global, 0, &low);
    plain.getParameter(9, kAudioUnitScope_Global, 0, &was);
    EXPECT_EQ(low, was) << "the partner stays where it is";
}

TEST(Equaliser, TheBlockSizeDoesNotMatterWhileParametersMove) {
    std::vector<double> expected;
    for (const std::size_t block : {4800U, 1U, 31U, 64U, 1024U}) {
        QVM0015_AudioUnit unit;
        unit.prepare(rateHz, 16, 1, 1);
        setAll(unit, busyValues());
        std::vector<double> out = signals::tone<double>(4800, 500, 0.5);
        render(unit, out, block);
        if (expected.empty()) expected = out;
        EXPECT_EQ(out, expected) << block;
    }
}

TEST(Equaliser, BothChannelsAreFilteredAlike) {
    QVM0015_AudioUnit stereo, mono;
    setAll(stereo, busyValues());
    setAll(mono, busyValues());
    stereo.prepare(rateHz, 512, 2, 2);
    mono.prepare(rateHz, 512, 1, 1);
    std::vector<float> left(4800), right = signals::tone<float>(4800, 500, 0.5), alone = right;
    float* const both[] = {left.data(), right.data()};
    stereo.process(both, both, 4800);
    render(mono, alone, 4800);
    EXPECT_EQ(right, alone);
    EXPECT_EQ(left, std::vector<float>(4800)) << "nothing leaks";
}

template <class Sample>
class Strange : public testing::Test {};
using SampleTypes = testing::Types<float, double>;
TYPED_TEST_SUITE(Strange, SampleTypes);

TYPED_TEST(Strange, SamplesDoNotPoisonTheState) {
    using Limits = std::numeric_limits<TypeParam>;
    for (const TypeParam odd : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max()}) {
        QVM0015_AudioUnit unit;
        setAll(unit, busyValues());
        unit.prepare(rateHz, 512, 1, 1);
        std::vector<TypeParam> in = signals::tone<TypeParam>(96000, 500, 0.5), clean = in;
        in[1000] = odd;
        in[1001] = odd;
        render(unit, in);
        QVM0015_AudioUnit other;
        setAll(other, busyValues());
        other.prepare(rateHz, 512, 1, 1);
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
    values[6] = QVMTiltEQ_LoudnessNone;
    QVM0015_AudioUnit unit;
    setAll(unit, values);
    unit.prepare(rateHz, 512, 1, 1);
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
    values[9] = 4.2F;
    QVM0015_AudioUnit unit;
    setAll(unit, values);
    unit.prepare(rateHz, 512, 1, 1);
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
            values[6] = QVMTiltEQ_LoudnessHalfGain;
            values[23] = static_cast<float>(i % 2);
            values[13] = static_cast<float>(i % 5 == 0);
            values[20] = static_cast<float>(i % 7 == 0);
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
        for (const std::uint32_t pid : {0U, 13U, 20U, 23U})
            values[pid] = static_cast<float>(random() % 8 != 0) * (pid == 0 ? 1 : static_cast<float>(random() % 2));
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
            for (const std::uint32_t pid : {0U, 8U, 13U, 20U, 23U})
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
    const std::pair<std::uint32_t, float> changes[] = {{13, 1.0F}, {20, 1.0F}, {9, 70.0F}, {9, 500.0F},
                                                       {13, 0.0F}, {23, 1.0F}, {9, 4.0F},  {20, 0.0F}};
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
