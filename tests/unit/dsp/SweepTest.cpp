// Parameters that move and switches that are thrown, heard through a sine.
#include "unit/Signals.h"
#include "unit/dsp/Response.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

namespace QVM_NAMESPACE {
namespace {

constexpr double rateHz = 48000;
constexpr std::uint32_t millisecond = 48; // frames

// Renders a sine while `automate` is called before every millisecond.
std::vector<double> automated(QVM0015_AudioUnit& unit, double hertz, std::size_t milliseconds,
                              const std::function<void(std::size_t)>& automate) {
    std::vector<double> signal = signals::tone<double>(milliseconds * millisecond, hertz, 0.5, rateHz);
    for (std::size_t i = 0; i < milliseconds; ++i) {
        automate(i);
        double* const here[] = {signal.data() + i * millisecond};
        unit.process(here, here, millisecond);
    }
    return signal;
}

// The energy further than `apart` from the tone, against all of it: dB. Seen through the four-term window of Blackman
// and Harris, whose own remains are below -92 dB.
double spurious(const std::vector<double>& signal, double hertz, double apart) {
    std::size_t frames = 1;
    while (2 * frames <= signal.size())
        frames *= 2;
    Spectrum bins(frames);
    for (std::size_t i = 0; i < frames; ++i) {
        const double a = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(frames);
        const double window = 0.35875 - 0.48829 * std::cos(a) + 0.14128 * std::cos(2 * a) - 0.01168 * std::cos(3 * a);
        bins[i] = signal[i] * window;
    }
    transform(bins);
    double all = 0, away = 0;
    for (std::size_t i = 1; i < frames / 2; ++i) {
        const double f = static_cast<double>(i) * rateHz / static_cast<double>(frames), energy = std::norm(bins[i]);
        all += energy;
        if (std::abs(f - hertz) > apart) away += energy;
    }
    return 10 * std::log10(away / all + 1e-30);
}

struct Sweep {
    const char* name;
    std::uint32_t pid;
    float from, to; // shown
    std::vector<std::pair<std::uint32_t, float>> also;
};

void PrintTo(const Sweep& sweep, std::ostream* out) {
    *out << sweep.name;
}

class SmoothParameter : public testing::TestWithParam<Sweep> {};

TEST_P(SmoothParameter, LeavesNoZipperNoise) {
    const Sweep& sweep = GetParam();
    ShownValues values = initialValues();
    for (const auto& [pid, value] : sweep.also)
        values[pid] = value;
    values[sweep.pid] = sweep.from;
    QVM0015_AudioUnit unit;
    setAll(unit, values);
    unit.prepare(rateHz, 512, 1, 1);
    constexpr std::size_t length = 2731; // ms: 131072 frames and a little
    const QVMParameter& parameter = *GetParameter(sweep.pid);
    const float from = parameter.reverseCastValue(sweep.from), to = parameter.reverseCastValue(sweep.to);
    const std::vector<double> out = automated(unit, 1000, length, [&](std::size_t i) {
        const float share = static_cast<float>(i) / length;
        unit.setParameter(sweep.pid, kAudioUnitScope_Global, 0, from + (to - from) * share, 0);
    });
    const double level = spurious(out, 1000, 300);
    std::printf("%s: spurious energy %.1f dB\n", sweep.name, level);
    EXPECT_LT(level, -80);

    // The negative control: the same change of level in steps is heard.
    std::vector<double> stepped = signals::tone<double>(length * millisecond, 1000, 0.5, rateHz);
    for (std::size_t i = 0; i < stepped.size(); ++i)
        stepped[i] *= 1 + 0.01 * static_cast<double>((i / millisecond) % 2);
    EXPECT_GT(spurious(stepped, 1000, 300), -80);
}

INSTANTIATE_TEST_SUITE_P(
    Each, SmoothParameter,
    testing::Values(
        Sweep{"tilt gain", pidTiltGain, -18, 18, {}},
        Sweep{"tilt range low", pidTiltRangeLow, 20, 5000, {{pidTiltGain, 12}}},
        Sweep{"tilt range high", pidTiltRangeHigh, 300, 20000, {{pidTiltGain, -12}}},
        Sweep{"output gain", pidOutputGain, -30, 12, {}}, Sweep{"filter range low", pidFilterRangeLow, 20, 4000, {}},
        Sweep{"filter range high", pidFilterRangeHigh, 20000, 200, {}},
        Sweep{"filter slope low", pidFilterSlopeLow, 6, 48, {{pidFilterRangeLow, 500}}},
        Sweep{"filter resonance low", pidFilterResonanceLow, 0, 18, {{pidFilterRangeLow, 900}}},
        Sweep{"filter slope high", pidFilterSlopeHigh, 48, 6, {{pidFilterRangeHigh, 2000}}},
        Sweep{"filter resonance high", pidFilterResonanceHigh, 18, 0, {{pidFilterRangeHigh, 1100}}},
        Sweep{"listening to both",
              pidFilterRangeLow,
              100,
              1500,
              {{pidFilterRangeHigh, 4000}, {pidFilterListenLow, 1}, {pidFilterListenHigh, 1}}},
        Sweep{"listening to both, crossing",
              pidFilterRangeHigh,
              8000,
              150,
              {{pidFilterRangeLow, 1000}, {pidFilterListenLow, 1}, {pidFilterListenHigh, 1}}},
        Sweep{
            "listening to both, slope",
            pidFilterSlopeLow,
            6,
            48,
            {{pidFilterRangeLow, 700}, {pidFilterRangeHigh, 1500}, {pidFilterListenLow, 1}, {pidFilterListenHigh, 1}}},
        Sweep{"listening to low", pidFilterRangeLow, 100, 1500, {{pidFilterListenLow, 1}}},
        Sweep{"listening to high", pidFilterRangeHigh, 8000, 700, {{pidFilterListenHigh, 1}}},
        Sweep{"listening to high, slope",
              pidFilterSlopeHigh,
              48,
              6,
              {{pidFilterRangeHigh, 1500}, {pidFilterListenHigh, 1}}}));

// The largest step of a settled unit's output.
double settledStep(const ShownValues& values, double hertz) {
    QVM0015_AudioUnit unit;
    setAll(unit, values);
    unit.prepare(rateHz, 512, 1, 1);
    std::vector<double> out = automated(unit, hertz, 1000, [](std::size_t) {});
    out.erase(out.begin(), out.end() - 4800);
    return signals::largestStep(out);
}

struct Change {
    const char* name;
    ShownValues before, after;
};

Change changed(const char* name, std::initializer_list<std::pair<std::uint32_t, float>> before,
               std::initializer_list<std::pair<std::uint32_t, float>> after) {
    Change change{name, initialValues(), {}};
    for (const auto& [pid, value] : before)
        change.before[pid] = value;
    change.after = change.before;
    for (const auto& [pid, value] : after)
        change.after[pid] = value;
    return change;
}

std::vector<Change> changes() {
    std::vector<Change> all = {
        changed("low filter", {}, {{pidFilterRangeLow, 300.0F}}),
        changed("low filter, steep", {{pidFilterSlopeLow, 48.0F}, {pidFilterResonanceLow, 12.0F}},
                {{pidFilterRangeLow, 700.0F}}),
        changed("high filter", {}, {{pidFilterRangeHigh, 3000.0F}}),
        changed("high filter, steep", {{pidFilterSlopeHigh, 48.0F}, {pidFilterResonanceHigh, 12.0F}},
                {{pidFilterRangeHigh, 1300.0F}}),
        changed("listen low", {{pidFilterRangeLow, 500.0F}}, {{pidFilterListenLow, 1.0F}}),
        changed("listen high", {{pidFilterRangeHigh, 2000.0F}}, {{pidFilterListenHigh, 1.0F}}),
        changed("listen both", {{pidFilterRangeLow, 500.0F}, {pidFilterRangeHigh, 2000.0F}},
                {{pidFilterListenLow, 1.0F}, {pidFilterListenHigh, 1.0F}}),
        changed("loudness mode", {{pidTiltGain, 12.0F}}, {{pidTiltLoudnessMode, 2.0F}}),
        changed("quality", {{pidTiltGain, 9.0F}, {pidFilterRangeHigh, 15000.0F}, {pidFilterSlopeHigh, 48.0F}},
                {{pidHQMode, 1.0F}}),
        changed("power", {{pidTiltGain, 18.0F}, {pidTiltLoudnessMode, 2.0F}}, {{pidMasterOnOff, 0.0F}}),
    };
    for (std::uint32_t preset = 1; preset < 23; ++preset)
        all.push_back({"preset", presetValues(preset - 1), presetValues(preset)});
    return all;
}

TEST(Switches, NoneMakesAJumpBeyondTheTonesOwn) {
    for (const Change& change : changes()) {
        for (const double hertz : {100.0, 1000.0, 5000.0}) {
            const double own = std::max(settledStep(change.before, hertz), settledStep(change.after, hertz));
            QVM0015_AudioUnit unit;
            setAll(unit, change.before);
            unit.prepare(rateHz, 512, 1, 1);
            std::vector<double> out = automated(unit, hertz, 1000, [&](std::size_t i) {
                // Thrown every 100 ms, once also in the middle of a fade.
                if (i >= 500 && (i % 100 == 0 || i == 709)) {
                    setAll(unit, (i / 100) % 2 && i != 709 ? change.after : change.before);
                }
            });
            out.erase(out.begin(), out.begin() + std::ptrdiff_t{400} * millisecond);
            EXPECT_LE(signals::largestStep(out), own * 1.03 + 1e-6) << change.name << " at " << hertz << " Hz";
        }
    }
}

} // namespace
} // namespace QVM_NAMESPACE
