// Which word of which parameter's state the picture of the response depends on: what is set, or what glides there.
#include "ResponseSketchFixture.h"

#include <algorithm>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

// Everything that the settings decide about the picture.
struct Look {
    std::vector<float> response, audition;
    float reference = 0;
    QVMFloat32Range axis;
    bool auditions = false;
    bool operator==(const Look&) const = default;
};

class WhatTheCurveReads : public ResponseSketchFixture {
protected:
    WhatTheCurveReads() {
        settings[pidTiltGain] = 9;
        settings[pidTiltRangeLow] = 100;
        settings[pidTiltRangeHigh] = 3000;
        settings[pidFilterRangeLow] = 200;
        settings[pidFilterRangeHigh] = 5000;
        settings[pidFilterSlopeLow] = settings[pidFilterSlopeHigh] = 24;
        settings[pidFilterResonanceLow] = settings[pidFilterResonanceHigh] = 6;
        settings[pidFilterListenLow] = settings[pidFilterListenHigh] = 0;
    }
    Look look() {
        calculate(*sketch);
        const bool auditions = !display().curve(1).hidden;
        Look result{{sketch->response().begin(), sketch->response().end()},
                    {},
                    display().referenceLevel,
                    display().dbRange,
                    auditions};
        if (auditions) result.audition.assign(sketch->listenCurve().begin(), sketch->listenCurve().end());
        return result;
    }
    // Whether the picture is another one after one word of a parameter's state was changed.
    bool dependsOnValue(ParameterID pid, float value) {
        setSettings(*sketch, settings);
        const Look before = look();
        sketch->parameterStates()[pid].value = value;
        return look() != before;
    }
    bool dependsOnDisplay(ParameterID pid, float value) {
        setSettings(*sketch, settings);
        const Look before = look();
        sketch->parameterStates()[pid].displayValue = value;
        return look() != before;
    }
};

TEST_F(WhatTheCurveReads, TiltSlopesAndResonancesGlide) {
    const struct {
        ParameterID pid;
        float other;
    } rows[] = {{pidTiltGain, -4},           {pidTiltGain, 18},           {pidTiltRangeLow, 50},
                {pidTiltRangeHigh, 9000},    {pidTiltLoudnessMode, 1},    {pidTiltLoudnessMode, 3},
                {pidFilterSlopeLow, 48},     {pidFilterSlopeHigh, 48},    {pidFilterResonanceLow, 0},
                {pidFilterResonanceHigh, 0}, {pidFilterResonanceLow, 12}, {pidFilterResonanceHigh, 12}};
    for (const bool auditions : {false, true}) {
        settings[pidFilterListenLow] = settings[pidFilterListenHigh] = auditions ? 1 : 0;
        for (const auto& row : rows) {
            EXPECT_TRUE(dependsOnDisplay(row.pid, row.other)) << row.pid << ", " << row.other;
            EXPECT_FALSE(dependsOnValue(row.pid, row.other)) << row.pid << ", " << row.other;
        }
    }
}

TEST_F(WhatTheCurveReads, CornersGlideAndFiltersGoOnAndOffAtOnce) {
    const struct {
        ParameterID pid;
        float off, other;
    } rows[] = {{pidFilterRangeLow, 4, 300}, {pidFilterRangeHigh, 24000, 3000}};
    for (const auto& row : rows) {
        EXPECT_TRUE(dependsOnDisplay(row.pid, row.other)) << row.pid;
        EXPECT_FALSE(dependsOnValue(row.pid, row.other)) << row.pid;
        EXPECT_TRUE(dependsOnValue(row.pid, row.off)) << row.pid;
        // Where its corner has got to the end already it is still on, with all that belongs to it.
        setSettings(*sketch, settings);
        sketch->parameterStates()[row.pid].displayValue = row.off;
        const Look atTheEnd = look();
        sketch->parameterStates()[row.pid].value = row.off;
        EXPECT_NE(look(), atTheEnd) << row.pid;
    }
}

TEST_F(WhatTheCurveReads, AuditioningGoesOnAndOffAtOnce) {
    for (const ParameterID pid : {pidFilterListenLow, pidFilterListenHigh}) {
        EXPECT_TRUE(dependsOnValue(pid, 1)) << pid;
        EXPECT_FALSE(dependsOnDisplay(pid, 1)) << pid;
    }
}

TEST_F(WhatTheCurveReads, NoOtherParameter) {
    const std::vector<ParameterID> read = {pidTiltGain,         pidTiltRangeLow,    pidTiltRangeHigh,
                                           pidTiltLoudnessMode, pidFilterRangeLow,  pidFilterRangeHigh,
                                           pidFilterListenLow,  pidFilterSlopeLow,  pidFilterResonanceLow,
                                           pidFilterListenHigh, pidFilterSlopeHigh, pidFilterResonanceHigh};
    for (std::uint32_t i = 0; i < QVMParameterCount; ++i) {
        const auto pid = static_cast<ParameterID>(i);
        if (std::find(read.begin(), read.end(), pid) != read.end()) continue;
        for (const float other : {GetParameter(pid)->minValue, GetParameter(pid)->maxValue}) {
            EXPECT_FALSE(dependsOnValue(pid, other)) << pid;
            EXPECT_FALSE(dependsOnDisplay(pid, other)) << pid;
        }
    }
}

TEST_F(WhatTheCurveReads, WhatItDrawsInAGlideIsTheResponseOfTheDisplayedValues) {
    settings[pidFilterListenLow] = 1;
    setSettings(*sketch, settings);
    for (const ParameterID pid : {pidTiltGain, pidTiltRangeLow, pidTiltRangeHigh, pidTiltLoudnessMode,
                                  pidFilterSlopeLow, pidFilterSlopeHigh, pidFilterResonanceLow, pidFilterResonanceHigh})
        sketch->parameterStates()[pid].value = GetParameter(pid)->maxValue;
    sketch->parameterStates()[pidFilterRangeLow].value = 5;
    sketch->parameterStates()[pidFilterRangeHigh].value = 23000;
    sketch->parameterStates()[pidFilterListenLow].displayValue = 0.3f;
    sketch->parameterStates()[pidFilterListenHigh].displayValue = 1;
    const Look drawn = look();
    const reference::Response expected = reference::evaluate(settings, 108);
    EXPECT_NEAR(drawn.reference, expected.reference, 1e-3);
    EXPECT_FLOAT_EQ(drawn.axis.max, static_cast<float>(expected.axis));
    for (std::size_t i = 0; i < 108; ++i) {
        EXPECT_NEAR(drawn.response[i], expected.total[i], 1e-3) << i;
        if (expected.audition[i] < -200) continue; // where one minus the filter is nothing in double precision
        EXPECT_NEAR(drawn.audition[i], expected.audition[i], 1e-3) << i;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
