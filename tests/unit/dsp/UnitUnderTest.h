// An audio unit with settings in the shown domain, and the display's curve of the same settings.
#pragma once

#include "description/Description.h"
#include "unit/QVM0015_AudioUnit.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace QVM_NAMESPACE {

using ShownValues = std::array<float, QVMParameterCount>;

inline ShownValues initialValues() {
    ShownValues values{};
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        values[pid] = GetParameter(pid)->initialValue;
    return values;
}

inline ShownValues presetValues(std::uint32_t index) {
    ShownValues values = initialValues();
    const auto preset = PresetIndexToPresetValues(index);
    std::size_t cursor = 0;
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        if (!GetParameter(pid)->presetWildcard) values[pid] = (*preset)[cursor++];
    }
    return values;
}

// Anything that a user can set, with the filters' corners evenly spread over the octaves.
inline ShownValues randomValues(std::mt19937& random) {
    const auto uniform = [&](double low, double high) {
        return low + (high - low) * (static_cast<double>(static_cast<unsigned>(random())) / 4294967296.0);
    };
    const auto hertz = [&](double low, double high) {
        return static_cast<float>(std::exp(uniform(std::log(low), std::log(high))));
    };
    const auto slope = [&] { return static_cast<float>(random() % 2 ? std::ceil(uniform(0, 8)) * 6 : uniform(6, 48)); };
    const auto resonance = [&] { return random() % 2 ? static_cast<float>(uniform(0, 18)) : 0.0F; };
    ShownValues values = initialValues();
    values[pidTiltGain] = static_cast<float>(uniform(-18, 18));
    values[pidTiltRangeLow] = hertz(10, 12000);
    values[pidTiltRangeHigh] = hertz(2 * static_cast<double>(values[pidTiltRangeLow]), 24000);
    values[pidTiltLoudnessMode] = static_cast<float>(random() % 4);
    if (random() % 3) values[pidFilterRangeLow] = hertz(4.2, 12000);
    if (random() % 3)
        values[pidFilterRangeHigh] = hertz(std::max(8.0, 2 * static_cast<double>(values[pidFilterRangeLow])), 23990);
    values[pidFilterSlopeLow] = slope();
    values[pidFilterResonanceLow] = resonance();
    values[pidFilterSlopeHigh] = slope();
    values[pidFilterResonanceHigh] = resonance();
    return values;
}

inline void setAll(QVM0015_AudioUnit& unit, const ShownValues& values) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        unit.setParameter(pid, kAudioUnitScope_Global, 0, GetParameter(pid)->reverseCastValue(values[pid]), 0);
}

// What the display shows for the settings, as the level that the effect has there: over the reference line.
struct Curve {
    std::vector<double> hertz;
    std::vector<double> level;  // dB
    std::vector<double> listen; // dB, while one listens
    double reference = 0;       // dB, where the display has 0
};

inline Curve curveOf(const ShownValues& values, int points = 300) {
    PBGLCanvas canvas;
    canvas.sketch = PB_Sketches[0];
    canvas.sid = canvas.sketch.sid;
    canvas.width = static_cast<float>(points);
    QVM0015GLSketch sketch;
    sketch.init(canvas, 0, 0);
    sketch.sizeStates(QVMParameterCount);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        sketch.standAt(pid, values[pid]);
    sketch.prepareForDrawing(canvas, 0);
    const bool listens = sketch.listensLow() || sketch.listensHigh();
    Curve curve;
    curve.reference = static_cast<double>(sketch.responseDisplay().referenceLevel);
    for (std::size_t i = 0; i < sketch.response().size(); ++i) {
        curve.hertz.push_back(static_cast<double>(sketch.responseDisplay().freqs()[i]));
        curve.level.push_back(static_cast<double>(sketch.response()[i]) - curve.reference);
        if (listens) curve.listen.push_back(static_cast<double>(sketch.listenCurve()[i]) - curve.reference);
    }
    return curve;
}

} // namespace QVM_NAMESPACE
