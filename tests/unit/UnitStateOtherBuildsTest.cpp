// States of builds with other parameters than this one's.
#include "support/StateBytes.h"
#include "unit/QVM0015_AudioUnit.h"

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

namespace QVM_NAMESPACE {
namespace {

using namespace statebytes;

// As the first build wrote it, with 24 parameters. These bytes are in people's sessions: they never change.
constexpr std::string_view firstBuildsState =
    "5357325801000000ca000000180000000000803f0000c0c000207a4400b0b346000000000000000000000040000060c00000803f"
    "0000804080409c4600000000000000000000803f0000c0410000c040000000000000484200000000000000000000000000004841"
    "0000003f0000803f00000000020000000a0000005761726d657220e299aa3c000000313b363b33303b32303030303b303b303b30"
    "3b303b303b343b32343030303b303b303b303b31323b303b303b303b303b303b303b31323b303b303b344722107d";
constexpr std::array<float, 24> firstBuildsValues = {1, -6, 1000.5F, 23000, 0, 0,  2, -3.5F, 1, 4,     20000.25F, 0,
                                                     0, 1,  24,      6,     0, 50, 0, 0,     0, 12.5F, 0.5F,      1};

Bytes bytesOfHex(std::string_view hex) {
    const auto digit = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
    Bytes bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2)
        bytes.push_back(static_cast<std::uint8_t>(digit(hex[i]) * 16 + digit(hex[i + 1])));
    return bytes;
}

// A state of a build whose parameters have `values`.
UnitState decoded(std::span<const float> values, const UnitState& rest = {}) {
    UnitState state;
    EXPECT_EQ(decodeUnitState(withValues(rest, values), state), UnitStateResult::ok);
    return state;
}

TEST(UnitState, TheFirstBuildsStateIsReadByEveryBuild) {
    QVM0015_AudioUnit unit;
    ASSERT_EQ(unit.restoreState(bytesOfHex(firstBuildsState)), UnitStateResult::ok);
    UnitState state;
    ASSERT_EQ(decodeUnitState(unit.saveState(), state), UnitStateResult::ok);
    const UnitParameters::Values initial = UnitParameters::initialValues();
    for (std::size_t pid = 0; pid < state.parameters.size(); ++pid)
        EXPECT_EQ(state.parameters[pid], pid < firstBuildsValues.size() ? firstBuildsValues[pid] : initial[pid]) << pid;
    EXPECT_EQ(state.settings.presetName, "Warmer \xE2\x99\xAA");
    EXPECT_EQ(state.settings.abState, 0U);
    EXPECT_EQ(state.settings.uiState, 2U);
    if (UnitParameters::count == firstBuildsValues.size()) {
        EXPECT_EQ(unit.saveState(), bytesOfHex(firstBuildsState));
        EXPECT_EQ(state.settings.abSettings, "1;6;30;20000;0;0;0;0;0;4;24000;0;0;0;12;0;0;0;0;0;0;12;0;0;4");
    }
}

TEST(UnitState, ParametersThatAnEarlierBuildDidNotHaveAreAtTheirInitialValues) {
    const UnitParameters::Values initial = UnitParameters::initialValues();
    const std::vector<float> all(UnitParameters::count, 1.5F);
    for (std::size_t had = 0; had < UnitParameters::count; ++had) {
        const UnitState state = decoded(std::span(all).first(had));
        for (std::size_t pid = 0; pid < state.parameters.size(); ++pid)
            EXPECT_EQ(state.parameters[pid], pid < had ? 1.5F : initial[pid]) << had << " " << pid;
    }
}

TEST(UnitState, OfALaterBuildWhatThisOneKnowsIsRead) {
    for (const std::size_t more : {1U, 7U, 1000U}) {
        std::vector<float> values(UnitParameters::count, 2.5F);
        values.resize(UnitParameters::count + more, 1e9F);
        UnitState rest;
        rest.settings = {"Sub Love", 1, "?", 2};
        const UnitState state = decoded(values, rest);
        for (const float value : state.parameters)
            EXPECT_EQ(value, 2.5F);
        EXPECT_EQ(state.settings, rest.settings);
    }
}

TEST(UnitState, ALaterBuildsValuesMustBeNumbersToo) {
    std::vector<float> values(UnitParameters::count + 1, 1.0F);
    values.back() = std::numeric_limits<float>::quiet_NaN();
    UnitState state;
    EXPECT_EQ(decodeUnitState(withValues({}, values), state), UnitStateResult::badValue);
    EXPECT_EQ(state, UnitState{});
}

TEST(UnitState, TheOtherSideOfAnEarlierBuildKeepsItsPresetApartFromItsValues) {
    UnitState rest;
    rest.settings.abSettings = "1;6;30;20000;5";
    const std::string& side = decoded(std::vector<float>{1, 6, 30, 20000}, rest).settings.abSettings;
    EXPECT_EQ(std::count(side.begin(), side.end(), ';'), std::ptrdiff_t{UnitParameters::count});
    EXPECT_EQ(side.substr(0, 18), "1;6;30;20000;0;0;0");
    EXPECT_EQ(side.substr(side.size() - 2), ";5");
}

TEST(UnitState, AnOtherSideThatWouldGrowTooLongRefusesTheState) {
    UnitState rest;
    rest.settings.abSettings.assign(SavedSettings::maxTextBytes, '1');
    rest.settings.abSettings.back() = ';';
    UnitState state;
    EXPECT_EQ(decodeUnitState(withValues(rest, std::vector<float>{1}), state), UnitStateResult::badText);
    EXPECT_EQ(state, UnitState{});
}

TEST(UnitState, AStateOfAnEarlierBuildIsRestoredByTheUnit) {
    QVM0015_AudioUnit unit;
    const UnitParameters::Values initial = UnitParameters::initialValues();
    std::vector<float> values(initial.begin(), initial.begin() + 10);
    values[pidTiltGain] = -7;
    ASSERT_EQ(unit.restoreState(withValues({}, values)), UnitStateResult::ok);
    UnitState state;
    ASSERT_EQ(decodeUnitState(unit.saveState(), state), UnitStateResult::ok);
    EXPECT_EQ(state.parameters[pidTiltGain], -7);
    EXPECT_EQ(state.parameters[pidFilterSlopeLow], 12);
}

} // namespace
} // namespace QVM_NAMESPACE
