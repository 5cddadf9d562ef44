// What must make no difference to the sound: a unit that does nothing, block sizes, the other channel.
#include "description/tables/ParameterTable.h"
#include "unit/dsp/BusyUnit.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

TEST(Equaliser, AtInitialValuesItPassesEveryBit) {
    for (const float quality : {0.0F, 1.0F}) {
        QVM0015_AudioUnit unit;
        unit.setParameter(pidHQMode, kAudioUnitScope_Global, 0, quality, 0);
        unit.prepare(rateHz, 512, 1, 1);
        const std::vector<float> in = signals::tone<float>(20000, 997, 0.7);
        std::vector<float> out = in;
        render(unit, out);
        EXPECT_EQ(out, in);
    }
}

TEST(Equaliser, SwitchedOffItPassesEveryBitWhateverElseIsSet) {
    ShownValues values = busyValues();
    values[pidMasterOnOff] = 0;
    QVM0015_AudioUnit unit;
    makeMono(unit, values);
    const std::vector<double> in = signals::tone<double>(20000, 997, 0.7);
    std::vector<double> out = in;
    render(unit, out);
    EXPECT_EQ(out, in);
}

TEST(Equaliser, OnceEverythingIsBackAtItsInitialValueTheBitsPassAgain) {
    QVM0015_AudioUnit unit;
    makeMono(unit, busyValues());
    std::vector<float> out = signals::tone<float>(20000, 997, 0.7);
    render(unit, out);
    setAll(unit, initialValues());
    const std::vector<float> in = signals::tone<float>(48000, 997, 0.7);
    out = in;
    render(unit, out);
    EXPECT_TRUE(std::equal(in.end() - 9600, in.end(), out.end() - 9600));
}

TEST(Equaliser, WhatHasNoEffectIsStoredAndChangesNothingInTheSound) {
    QVM0015_AudioUnit plain, linked;
    setAll(plain, busyValues());
    setAll(linked, busyValues());
    for (const tables::ParameterRow& row : tables::kParameters) {
        if (row.hasEffect) continue;
        EXPECT_EQ(linked.setParameter(row.pid, kAudioUnitScope_Global, 0, row.maxValue, 0), noErr);
        float stored = 0;
        linked.getParameter(row.pid, kAudioUnitScope_Global, 0, &stored);
        EXPECT_EQ(stored, row.maxValue);
    }
    plain.prepare(rateHz, 512, 1, 1);
    linked.prepare(rateHz, 512, 1, 1);
    std::vector<float> a = signals::tone<float>(9600, 500, 0.5), b = a;
    for (QVM0015_AudioUnit* unit : {&plain, &linked})
        unit->setParameter(pidFilterRangeHigh, kAudioUnitScope_Global, 0, 12000, 0);
    render(plain, a);
    render(linked, b);
    EXPECT_EQ(a, b);
    float low = 0, was = 0;
    linked.getParameter(pidFilterRangeLow, kAudioUnitScope_Global, 0, &low);
    plain.getParameter(pidFilterRangeLow, kAudioUnitScope_Global, 0, &was);
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

} // namespace
} // namespace QVM_NAMESPACE
