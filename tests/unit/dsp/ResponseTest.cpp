// What the musician sees is what the audio does: the unit's measured response against the display's curve.
#include "unit/dsp/Response.h"

#include "unit/Signals.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace QVM_NAMESPACE {
namespace {

constexpr double lowestHertz = 20, faintest = -60; // dB
constexpr double closely = 0.25;                   // dB: whole orders, no resonance
constexpr double fractionally = 0.5;               // dB: fractional orders and combined resonance
constexpr unsigned batches = 3;                    // of random settings for a rate and quality
constexpr int randomSettings = 100, randomPairs = 150, fewPairs = 40;

struct Case {
    double rateHz;
    bool isHigh;
    unsigned batch = 0;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.rateHz << (c.isHigh ? " Hz, high quality" : " Hz, normal") << ", " << c.batch;
}

// "48000Hz_normal_0": cases can be chosen by their rate.
std::string nameOf(const testing::TestParamInfo<Case>& info) {
    const Case& c = info.param;
    return std::to_string(static_cast<int>(c.rateHz)) + (c.isHigh ? "Hz_high_" : "Hz_normal_") +
           std::to_string(c.batch);
}

std::string describe(const ShownValues& v) {
    std::array<char, 200> text;
    std::snprintf(text.data(), text.size(),
                  "tilt %.1f dB %.0f-%.0f Hz mode %.0f, low %.1f Hz %.1f dB/oct +%.1f, high %.0f Hz %.1f dB/oct +%.1f",
                  double(v[1]), double(v[2]), double(v[3]), double(v[6]), double(v[9]), double(v[14]), double(v[15]),
                  double(v[10]), double(v[21]), double(v[22]));
    return text.data();
}

struct Worst {
    double error = 0, hertz = 0;
    std::string what;

    void take(double e, double f, const ShownValues& v) {
        if (!(std::abs(e) > error)) return;
        error = std::abs(e);
        hertz = f;
        what = describe(v);
    }
    void print(const char* name, const Case& c) const {
        std::printf("%s at %.0f Hz, %s: %.3f dB at %.0f Hz (%s)\n", name, c.rateHz,
                    c.isHigh ? "high quality" : "normal", error, hertz, what.c_str());
    }
};

bool isWhole(const ShownValues& v) {
    const auto whole = [](float slope) { return std::fmod(slope, 6.0F) == 0; };
    const bool low = v[9] <= 4.0F || (whole(v[14]) && v[15] == 0);
    const bool high = v[10] >= 24000.0F || (whole(v[21]) && v[22] == 0);
    return low && high;
}

class ResponseAt : public testing::TestWithParam<Case> {
protected:
    double topHertz() const { return GetParam().isHigh ? 20000 : 16000; }

    // The largest difference from the display's curve where that is not too faint.
    void measure(ShownValues values, Worst& worst) const {
        values[pidHQMode] = GetParam().isHigh ? 1 : 0;
        const Curve curve = curveOf(values);
        const Response response(values, GetParam().rateHz);
        const double allowed = isWhole(values) ? closely : fractionally;
        Worst own;
        for (std::size_t i = 0; i < curve.hertz.size(); ++i) {
            const double hertz = curve.hertz[i];
            if (hertz < lowestHertz || hertz > topHertz() || curve.level[i] < faintest) continue;
            own.take(response.level(hertz) - curve.level[i], hertz, values);
        }
        EXPECT_LE(own.error, allowed) << own.hertz << " Hz, " << own.what;
        if (own.error > worst.error) worst = own;
    }
};

TEST_P(ResponseAt, EveryPresetIsHeldToTheCurve) {
    Worst worst;
    for (std::uint32_t preset = 0; preset < 23; ++preset)
        measure(presetValues(preset), worst);
    worst.print("presets", GetParam());
}

class RandomResponseAt : public ResponseAt {};

// Every loudness mode, whole and fractional slopes, with resonance and without.
TEST_P(RandomResponseAt, SettingsAreHeldToTheCurve) {
    std::mt19937 random(static_cast<unsigned>(GetParam().rateHz) + GetParam().isHigh + 7000 * GetParam().batch);
    Worst worst;
    for (int i = 0; i < randomSettings; ++i)
        measure(randomValues(random), worst);
    worst.print("random settings", GetParam());
}

INSTANTIATE_TEST_SUITE_P(EveryRate, ResponseAt,
                         testing::Values(Case{44100, false}, Case{48000, false}, Case{96000, false},
                                         Case{192000, false}, Case{44100, true}, Case{48000, true}, Case{96000, true},
                                         Case{192000, true}),
                         nameOf);

std::vector<Case> manyCases() {
    std::vector<Case> all;
    for (const double rateHz : {44100.0, 48000.0, 96000.0, 192000.0})
        for (const bool isHigh : {false, true})
            for (unsigned batch = 0; batch < batches; ++batch)
                all.push_back({rateHz, isHigh, batch});
    return all;
}

INSTANTIATE_TEST_SUITE_P(EveryRate, RandomResponseAt, testing::ValuesIn(manyCases()), nameOf);

// The level of a sine, once the unit has settled.
double sineLevel(const ShownValues& values, double hertz, double rateHz) {
    QVM0015_AudioUnit unit;
    setAll(unit, values);
    EXPECT_EQ(unit.prepare(rateHz, 512, 1, 1), noErr);
    const auto frames = static_cast<std::size_t>(rateHz);
    std::vector<double> signal = signals::tone<double>(2 * frames, hertz, 0.5, rateHz);
    double* const all[] = {signal.data()};
    unit.process(all, all, static_cast<std::uint32_t>(signal.size()));
    std::complex<double> sum = 0;
    for (std::size_t i = frames; i < 2 * frames; ++i)
        sum += signal[i] * std::polar(1.0, -2 * std::numbers::pi * hertz / rateHz * static_cast<double>(i));
    return 20 * std::log10(std::abs(sum) / static_cast<double>(frames) / 0.25);
}

TEST(Response, SteppedSinesAgreeWithTheCurve) {
    for (const std::uint32_t preset : {1U, 9U, 16U, 19U, 22U}) {
        const ShownValues values = presetValues(preset);
        const Curve curve = curveOf(values);
        for (std::size_t i = 60; i < curve.hertz.size(); i += 30) {
            if (curve.hertz[i] > 16000 || curve.level[i] < faintest) continue;
            const double whole = std::round(curve.hertz[i]); // hertz, so that the second holds whole periods
            const double slope = (curve.level[i + 1] - curve.level[i]) / (curve.hertz[i + 1] - curve.hertz[i]);
            const double expected = curve.level[i] + slope * (whole - curve.hertz[i]);
            EXPECT_NEAR(sineLevel(values, whole, 44100), expected, closely) << preset << ", " << whole << " Hz";
        }
    }
}

// What docs/draw_responses draws.
TEST(Response, Table) {
    for (const auto& [name, preset] : {std::pair{"Brighter", 1U},
                                       {"White Noise -> Pink", 9U},
                                       {"Guitar Cab", 18U},
                                       {"Bass Cab (Ported)", 19U},
                                       {"Cellphone", 22U}}) {
        const ShownValues values = presetValues(preset);
        const Curve curve = curveOf(values);
        const Response response(values, 44100);
        for (std::size_t i = 0; i < curve.hertz.size(); ++i) {
            if (curve.hertz[i] < lowestHertz || curve.hertz[i] > 16000) continue;
            const double level = response.level(curve.hertz[i]);
            std::printf("response,%s,%.2f,%.4f,%.4f\n", name, curve.hertz[i], curve.level[i], level);
            if (curve.level[i] < faintest) continue;
            EXPECT_NEAR(level, curve.level[i], closely);
        }
    }
}

// The negative control: plain and high quality do differ where only one of them is held to the curve.
TEST(Response, OnlyHighQualityHoldsTheTopOctaveAtTheLowestRate) {
    ShownValues values = initialValues();
    values[pidFilterRangeHigh] = 20000;
    values[pidFilterSlopeHigh] = 48;
    const Curve curve = curveOf(values, 2000);
    double normal = 0, high = 0;
    for (const bool isHigh : {false, true}) {
        values[pidHQMode] = isHigh ? 1 : 0;
        const Response response(values, 44100);
        for (std::size_t i = 0; i < curve.hertz.size(); ++i) {
            if (curve.hertz[i] < 16000 || curve.hertz[i] > 20000) continue;
            double& worst = isHigh ? high : normal;
            worst = std::max(worst, std::abs(response.level(curve.hertz[i]) - curve.level[i]));
        }
    }
    std::printf("16 to 20 kHz at 44.1 kHz: normal %.2f dB, high quality %.3f dB\n", normal, high);
    EXPECT_LE(high, closely);
    EXPECT_GT(normal, high);
}

class ListenAt : public testing::TestWithParam<Case> {};

TEST_P(ListenAt, OneFilterSoundsLikeTheSecondCurve) {
    std::mt19937 random(7);
    Worst worst;
    for (int i = 0; i < 40; ++i) {
        ShownValues values = randomValues(random);
        values[pidHQMode] = GetParam().isHigh ? 1 : 0;
        values[i % 2 ? 13 : 20] = 1;
        const bool isOn = i % 2 ? values[pidFilterRangeLow] > 4.0F : values[pidFilterRangeHigh] < 24000.0F;
        const Curve curve = curveOf(values);
        const Response response(values, GetParam().rateHz);
        for (std::size_t k = 0; k < curve.hertz.size(); ++k) {
            if (curve.hertz[k] < lowestHertz || curve.hertz[k] > (GetParam().isHigh ? 20000 : 16000)) continue;
            const double level = response.level(curve.hertz[k]);
            if (!isOn) {
                EXPECT_LT(level, -200) << "what is off removes nothing";
            } else if (curve.listen[k] >= faintest) {
                worst.take(level - curve.listen[k], curve.hertz[k], values);
            }
        }
    }
    worst.print("listening", GetParam());
    EXPECT_LE(worst.error, fractionally) << worst.hertz << " Hz, " << worst.what;
}

// At any distance of the two corners, also where the filters overlap or cross.
TEST_P(ListenAt, BothFiltersSoundLikeTheSecondCurve) {
    std::mt19937 random(11);
    Worst worst;
    const int pairs = GetParam().rateHz > 50000 ? fewPairs : randomPairs;
    for (int i = 0; i < pairs; ++i) {
        ShownValues values = randomValues(random);
        const auto hertz = [&](double low, double high) {
            return static_cast<float>(low * std::pow(high / low, static_cast<double>(random() % 1000) / 1000));
        };
        values[pidFilterRangeLow] = hertz(4.2, 12000);
        values[pidFilterRangeHigh] =
            i % 2 ? hertz(12, 23900) : std::clamp(values[pidFilterRangeLow] * hertz(0.5, 16), 12.0F, 23900.0F);
        values[pidFilterListenLow] = values[pidFilterListenHigh] = 1;
        values[pidHQMode] = GetParam().isHigh ? 1 : 0;
        const Curve curve = curveOf(values);
        const Response response(values, GetParam().rateHz);
        Worst own;
        for (std::size_t k = 0; k < curve.hertz.size(); ++k) {
            if (curve.hertz[k] < lowestHertz || curve.hertz[k] > (GetParam().isHigh ? 20000 : 16000)) continue;
            if (curve.listen[k] < faintest) continue;
            own.take(response.level(curve.hertz[k]) - curve.listen[k], curve.hertz[k], values);
        }
        EXPECT_LE(own.error, fractionally) << i << ": " << own.hertz << " Hz, " << own.what;
        if (own.error > worst.error) worst = own;
    }
    worst.print("listening to both", GetParam());
}

INSTANTIATE_TEST_SUITE_P(EveryRate, ListenAt,
                         testing::Values(Case{44100, false}, Case{48000, false}, Case{96000, false}, Case{44100, true},
                                         Case{192000, true}),
                         nameOf);

} // namespace
} // namespace QVM_NAMESPACE
