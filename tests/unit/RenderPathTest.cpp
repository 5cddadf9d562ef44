#include "unit/RenderPath.h"

#include "unit/Signals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace QVM_NAMESPACE {
namespace {

using Switch = BypassFade::Switch;
using signals::Channels;
using signals::tone;

constexpr double rateHz = 48000;
constexpr RenderSettings unity{1, Switch::on};

template <class Sample>
class RenderPathOf : public testing::Test {};
using SampleTypes = testing::Types<float, double>;
TYPED_TEST_SUITE(RenderPathOf, SampleTypes);

template <class Sample>
Channels<Sample> run(RenderPath& path, const Channels<Sample>& in, std::size_t chanOut, std::size_t block,
                     const RenderSettings& settings) {
    return signals::render<Sample>(in, chanOut, block, [&](Sample* const* i, Sample* const* o, std::uint32_t n) {
        path.process<Sample>(i, o, n, settings);
    });
}

TYPED_TEST(RenderPathOf, UnityGainPassesEverySampleAsItIs) {
    const Channels<TypeParam> in = {tone<TypeParam>(5000, 1000, 0.7), tone<TypeParam>(5000, 333, 0.3)};
    RenderPath path;
    path.prepare(rateHz, 2, 2, unity);
    EXPECT_EQ(run(path, in, 2, 128, unity), in);
}

TYPED_TEST(RenderPathOf, GainScalesTheSignal) {
    const Channels<TypeParam> in = {tone<TypeParam>(500, 1000, 0.7)};
    const RenderSettings half{0.5, Switch::on};
    RenderPath path;
    path.prepare(rateHz, 1, 1, half);
    const Channels<TypeParam> out = run(path, in, 1, 100, half);
    for (std::size_t i = 0; i < 500; ++i)
        EXPECT_EQ(out[0][i], in[0][i] / 2);
}

TYPED_TEST(RenderPathOf, TheResultDoesNotDependOnTheBlockSize) {
    const Channels<TypeParam> in = {tone<TypeParam>(4001, 1000, 0.7), tone<TypeParam>(4001, 77, 0.2)};
    const RenderSettings quiet{0.25, Switch::on};
    RenderPath reference;
    reference.prepare(rateHz, 2, 2, unity);
    const Channels<TypeParam> expected = run(reference, in, 2, 4001, quiet);
    for (const std::size_t block : {1U, 7U, 63U, 64U, 65U, 512U, 4000U}) {
        RenderPath path;
        path.prepare(rateHz, 2, 2, unity);
        EXPECT_EQ(run(path, in, 2, block, quiet), expected) << block;
    }
}

TYPED_TEST(RenderPathOf, ABlockOfNoFramesTouchesNothing) {
    Channels<TypeParam> in = {tone<TypeParam>(8, 1000, 0.7)}, out = {std::vector<TypeParam>(8, TypeParam(9))};
    RenderPath path;
    path.prepare(rateHz, 1, 1, unity);
    path.process<TypeParam>(signals::pointers(in).data(), signals::pointers(out).data(), 0, unity);
    path.process<TypeParam>(nullptr, nullptr, 0, unity);
    EXPECT_EQ(out[0], std::vector<TypeParam>(8, TypeParam(9)));
}

TYPED_TEST(RenderPathOf, MonoReachesBothOutputs) {
    const Channels<TypeParam> in = {tone<TypeParam>(300, 1000, 0.7)};
    RenderPath path;
    path.prepare(rateHz, 1, 2, unity);
    const Channels<TypeParam> out = run(path, in, 2, 128, unity);
    EXPECT_EQ(out[0], in[0]);
    EXPECT_EQ(out[1], in[0]);
}

TYPED_TEST(RenderPathOf, InputsAndOutputsMayBeTheSameMemoryInAnyOrder) {
    const Channels<TypeParam> original = {tone<TypeParam>(300, 1000, 0.7), tone<TypeParam>(300, 333, 0.3)};
    Channels<TypeParam> inPlace = original, crossed = original;
    RenderPath path;
    path.prepare(rateHz, 2, 2, unity);
    path.process<TypeParam>(signals::pointers(inPlace).data(), signals::pointers(inPlace).data(), 300, unity);
    EXPECT_EQ(inPlace, original);

    const TypeParam* in[] = {crossed[0].data(), crossed[1].data()};
    TypeParam* out[] = {crossed[1].data(), crossed[0].data()};
    path.process<TypeParam>(in, out, 300, unity);
    EXPECT_EQ(crossed[0], original[1]);
    EXPECT_EQ(crossed[1], original[0]);
}

TYPED_TEST(RenderPathOf, MonoReachesBothOutputsInPlace) {
    const std::vector<TypeParam> original = tone<TypeParam>(300, 1000, 0.7);
    std::vector<TypeParam> shared = original, second(300);
    const TypeParam* in[] = {shared.data()};
    TypeParam* out[] = {shared.data(), second.data()};
    RenderPath path;
    path.prepare(rateHz, 1, 2, unity);
    path.process<TypeParam>(in, out, 300, unity);
    EXPECT_EQ(shared, original);
    EXPECT_EQ(second, original);
}

TYPED_TEST(RenderPathOf, MissingInputsAreSilenceAndMissingOutputsAreLeftOut) {
    std::vector<TypeParam> left(100, TypeParam(9)), right(100, TypeParam(9));
    RenderPath path;
    path.prepare(rateHz, 2, 2, unity);
    const std::vector<TypeParam> input = tone<TypeParam>(100, 1000, 0.7);
    const TypeParam* in[] = {input.data(), nullptr};
    TypeParam* out[] = {nullptr, right.data()};
    path.process<TypeParam>(in, out, 100, unity);
    EXPECT_EQ(right, std::vector<TypeParam>(100, TypeParam(0)));
    TypeParam* both[] = {left.data(), right.data()};
    path.process<TypeParam>(nullptr, both, 100, unity);
    EXPECT_EQ(left, std::vector<TypeParam>(100, TypeParam(0)));
}

TYPED_TEST(RenderPathOf, SilenceStaysSilence) {
    const Channels<TypeParam> in(2, std::vector<TypeParam>(1000));
    RenderPath path;
    path.prepare(rateHz, 2, 2, unity);
    EXPECT_EQ(run(path, in, 2, 100, {4, Switch::on}), in);
    EXPECT_EQ(path.blockPeaks()[0], 0.0F);
}

TYPED_TEST(RenderPathOf, SwitchedOffItPassesEveryBitPattern) {
    using Limits = std::numeric_limits<TypeParam>;
    Channels<TypeParam> in = {tone<TypeParam>(400, 1000, 0.7)};
    const TypeParam odd[] = {Limits::quiet_NaN(),  Limits::infinity(), -Limits::infinity(),
                             Limits::denorm_min(), -TypeParam(0),      Limits::max()};
    std::copy(std::begin(odd), std::end(odd), in[0].begin() + 50);
    const RenderSettings off{0.3, Switch::off};
    RenderPath path;
    path.prepare(rateHz, 1, 1, off);
    const Channels<TypeParam> out = run(path, in, 1, 90, off);
    EXPECT_EQ(std::memcmp(out[0].data(), in[0].data(), 400 * sizeof(TypeParam)), 0);
}

TYPED_TEST(RenderPathOf, AGainChangeHasNoJumpBeyondTheTonesOwn) {
    const Channels<TypeParam> in = {tone<TypeParam>(9600, 1000, 0.5)};
    RenderPath path;
    path.prepare(rateHz, 1, 1, {0, Switch::on});
    const Channels<TypeParam> out = run(path, in, 1, 480, {4, Switch::on});
    const double own = signals::largestStep(tone<TypeParam>(9600, 1000, 0.5 * 4));
    EXPECT_LE(signals::largestStep(out[0]), own * 1.001);
    EXPECT_EQ(out[0][9599], in[0][9599] * 4) << "the ramp must have ended";

    // The negative control: without the ramp the same change is a jump far beyond the tone's own.
    std::vector<TypeParam> jumping = in[0];
    for (std::size_t i = 4812; i < 9600; ++i)
        jumping[i] *= 4;
    const double quietOwn = signals::largestStep(in[0]);
    EXPECT_GT(signals::largestStep(std::vector<TypeParam>(jumping.begin() + 4800, jumping.begin() + 4814)),
              quietOwn * 5);
}

TYPED_TEST(RenderPathOf, TheMasterSwitchDoesNotClick) {
    const Channels<TypeParam> in = {tone<TypeParam>(24000, 500, 0.5)};
    constexpr double gain = 4;
    const double loudestStep = signals::largestStep(in[0]) * gain;
    RenderPath path;
    path.prepare(rateHz, 1, 1, {gain, Switch::on});
    std::size_t block = 0;
    const Channels<TypeParam> out =
        signals::render<TypeParam>(in, 1, 100, [&](TypeParam* const* i, TypeParam* const* o, std::uint32_t n) {
            // Thrown every 50 ms, and now and then in the middle of a fade.
            const bool on = (block / 24) % 2 == 0 && block % 48 != 3;
            path.process<TypeParam>(i, o, n, {gain, on ? Switch::on : Switch::off});
            ++block;
        });
    EXPECT_LE(signals::largestStep(out[0]), loudestStep * 1.01);
}

TYPED_TEST(RenderPathOf, AfterTheFadeTheSwitchedOffPathIsExact) {
    const Channels<TypeParam> in = {tone<TypeParam>(9600, 500, 0.5)};
    RenderPath path;
    path.prepare(rateHz, 1, 1, {3, Switch::on});
    const Channels<TypeParam> out = run(path, in, 1, 64, {3, Switch::off});
    EXPECT_NE(out[0][10], in[0][10]);
    EXPECT_TRUE(std::equal(in[0].begin() + 1024, in[0].end(), out[0].begin() + 1024));
}

TYPED_TEST(RenderPathOf, SwitchingOnAgainStartsAtTheGainThatWasSetMeanwhile) {
    const Channels<TypeParam> in = {std::vector<TypeParam>(4800, TypeParam(1))};
    RenderPath path;
    path.prepare(rateHz, 1, 1, {1, Switch::off});
    run(path, in, 1, 64, {2, Switch::off});
    const Channels<TypeParam> out = run(path, in, 1, 64, {2, Switch::on});
    for (std::size_t i = 1; i < 4800; ++i)
        EXPECT_GE(out[0][i], out[0][i - 1]) << i;
    EXPECT_EQ(out[0][4799], TypeParam(2));
}

TYPED_TEST(RenderPathOf, PeaksAreThoseOfTheLastBlock) {
    Channels<TypeParam> in(2, std::vector<TypeParam>(1000));
    in[0][777] = TypeParam(-0.5);
    in[1][3] = TypeParam(0.25);
    const RenderSettings loud{2, Switch::on};
    RenderPath path;
    path.prepare(rateHz, 2, 2, loud);
    run(path, in, 2, 1000, loud);
    EXPECT_EQ(path.blockPeaks()[0], 1.0F);
    EXPECT_EQ(path.blockPeaks()[1], 0.5F);
    run(path, in, 2, 500, loud);
    EXPECT_EQ(path.blockPeaks()[0], 1.0F);
    EXPECT_EQ(path.blockPeaks()[1], 0.0F);
    path.prepare(rateHz, 2, 2, loud);
    EXPECT_EQ(path.blockPeaks()[0], 0.0F);
}

TYPED_TEST(RenderPathOf, ANaNSampleDoesNotStickInThePeaksOrTheSignal) {
    Channels<TypeParam> in = {tone<TypeParam>(1000, 1000, 0.5)};
    in[0][100] = std::numeric_limits<TypeParam>::quiet_NaN();
    RenderPath path;
    path.prepare(rateHz, 1, 1, {0.5, Switch::on});
    const Channels<TypeParam> out = run(path, in, 1, 100, {2, Switch::on});
    EXPECT_EQ(out[0][100], TypeParam(0));
    EXPECT_TRUE(std::isfinite(out[0][101]));
    run(path, in, 1, 1000, {2, Switch::on});
    EXPECT_GT(path.blockPeaks()[0], 0.1F);
    EXPECT_LT(path.blockPeaks()[0], 2.0F);
}

TEST(MeterMode, ShowsTheInputTheOutputOrWhatTheUnitAdds) {
    const struct { float mode, peak; } rows[] = {{0, 0.5F}, {1, 1.0F}, {2, 0.5F}};
    for (const auto& row : rows) {
        RenderSettings settings;
        settings.gain = 2;
        settings.meter = static_cast<MeterMode>(static_cast<int>(row.mode));
        RenderPath path;
        path.prepare(48000, 1, 1, settings);
        std::vector<float> signal(100);
        signal[70] = -0.5F;
        float* const all[] = {signal.data()};
        path.process(all, all, 100, settings);
        EXPECT_FLOAT_EQ(path.blockPeaks()[0], row.peak) << row.mode;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
