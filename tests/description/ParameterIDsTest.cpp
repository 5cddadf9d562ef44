#include "description/ParameterIDs.h"

#include "description/Description.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

TEST(ParameterIDs, AreTheNumbersOfTheParametersThatTheyAreNamedAfter) {
    static constexpr struct {
        ParameterID pid;
        const char* codesafeName;
    } rows[] = {
        {pidMasterOnOff, "MasterOnOff"},
        {pidTiltGain, "TiltGain"},
        {pidTiltRangeLow, "TiltRangeLow"},
        {pidTiltRangeHigh, "TiltRangeHigh"},
        {pidTiltRangeLink, "TiltRangeLink"},
        {pidTiltRangeLinkRatio, "TiltRangeLinkRatio"},
        {pidTiltLoudnessMode, "TiltLoudnessMode"},
        {pidOutputGain, "OutputGain"},
        {pidMeterMode, "MeterMode"},
        {pidFilterRangeLow, "FilterRangeLow"},
        {pidFilterRangeHigh, "FilterRangeHigh"},
        {pidFilterRangeLink, "FilterRangeLink"},
        {pidFilterRangeLinkRatio, "FilterRangeLinkRatio"},
        {pidFilterListenLow, "FilterListenLow"},
        {pidFilterSlopeLow, "FilterSlopeLow"},
        {pidFilterResonanceLow, "FilterResonanceLow"},
        {pidFilterSlopeLink, "FilterSlopeLink"},
        {pidFilterSlopeLinkRatio, "FilterSlopeLinkRatio"},
        {pidFilterResonanceLink, "FilterResonanceLink"},
        {pidFilterResonanceLinkRatio, "FilterResonanceLinkRatio"},
        {pidFilterListenHigh, "FilterListenHigh"},
        {pidFilterSlopeHigh, "FilterSlopeHigh"},
        {pidFilterResonanceHigh, "FilterResonanceHigh"},
        {pidHQMode, "HQMode"},
    };
    EXPECT_EQ(std::size(rows), std::size_t{QVMParameterCount});
    for (const auto& row : rows)
        EXPECT_EQ(GetParameter(row.pid)->codesafeName, row.codesafeName);
}

} // namespace
} // namespace QVM_NAMESPACE
