#include "unit/UnitState.h"

#include "support/StateBytes.h"
#include "unit/QVM0015_AudioUnit.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <random>
#include <set>
#include <string>

namespace QVM_NAMESPACE {
namespace {

using namespace statebytes;

UnitState exampleState() {
    UnitState state;
    for (std::size_t pid = 0; pid < state.parameters.size(); ++pid)
        state.parameters[pid] = 0.5F * float(pid) - 3;
    state.settings = {"Warmer \xE2\x99\xAA", 1, "0;1.5;20", 2};
    return state;
}

TEST(UnitState, WhatIsDecodedIsWhatWasEncoded) {
    UnitState back;
    ASSERT_EQ(decodeUnitState(encodeUnitState(exampleState()), back), UnitStateResult::ok);
    EXPECT_EQ(back, exampleState());
}

TEST(UnitState, EmptyTextsAndTheLongestTextsSurvive) {
    UnitState state = exampleState(), back;
    state.settings.presetName.clear();
    state.settings.abSettings.assign(SavedSettings::maxTextBytes, 'x');
    ASSERT_EQ(decodeUnitState(encodeUnitState(state), back), UnitStateResult::ok);
    EXPECT_EQ(back, state);
    state.settings.presetName.assign(SavedSettings::maxTextBytes, 'y');
    ASSERT_EQ(decodeUnitState(encodeUnitState(state), back), UnitStateResult::ok);
    EXPECT_EQ(back, state);
}

TEST(UnitState, TheBytesAreFixed) {
    const Bytes bytes = encodeUnitState(UnitState{});
    ASSERT_EQ(bytes.size(), 132U);
    EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 16),
              (Bytes{'S', 'W', '2', 'X', 1, 0, 0, 0, 132, 0, 0, 0, 24, 0, 0, 0}));
    EXPECT_EQ(encodeUnitState(UnitState{}), bytes);
}

TEST(UnitState, EveryTruncationIsFoundAndChangesNothing) {
    const Bytes whole = encodeUnitState(exampleState());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        UnitState state;
        EXPECT_EQ(decodeUnitState(std::span(whole).first(length), state), UnitStateResult::truncated) << length;
        EXPECT_EQ(state, UnitState{});
    }
}

TEST(UnitState, EveryFlippedBitIsFound) {
    const Bytes whole = encodeUnitState(exampleState());
    for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
        Bytes damaged = whole;
        damaged[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
        UnitState state;
        EXPECT_NE(decodeUnitState(damaged, state), UnitStateResult::ok) << bit;
        EXPECT_EQ(state, UnitState{});
    }
}

TEST(UnitState, BytesBehindTheEndAreRefused) {
    Bytes bytes = encodeUnitState(exampleState());
    bytes.push_back(0);
    UnitState state;
    EXPECT_EQ(decodeUnitState(bytes, state), UnitStateResult::tooLong);
}

TEST(UnitState, HugeLengthsAreRefusedWithoutBeingAllocated) {
    const Bytes whole = encodeUnitState(exampleState());
    UnitState state;
    EXPECT_EQ(decodeUnitState(patched(whole, lengthWord, 0xFFFFFFFF), state), UnitStateResult::tooLong);
    EXPECT_EQ(decodeUnitState(patched(whole, nameLengthWord, 0xFFFFFFFF), state), UnitStateResult::badText);
    EXPECT_EQ(decodeUnitState(patched(whole, nameLengthWord, SavedSettings::maxTextBytes), state),
              UnitStateResult::badText);
    EXPECT_EQ(decodeUnitState(Bytes(100'000'000, 'S'), state), UnitStateResult::notOurs);
    EXPECT_EQ(state, UnitState{});
}

TEST(UnitState, AnUnknownVersionIsRefused) {
    UnitState state;
    for (const std::uint32_t version : {0U, 2U, 0xFFFFFFFFU}) {
        EXPECT_EQ(decodeUnitState(patched(encodeUnitState(exampleState()), versionWord, version), state),
                  UnitStateResult::unknownVersion);
    }
    EXPECT_EQ(state, UnitState{});
}

TEST(UnitState, FewerValuesThanItSaysAreRefused) {
    UnitState state;
    for (const std::uint32_t count : {60U, 0x3FFFFFFFU, 0xFFFFFFFFU})
        EXPECT_EQ(decodeUnitState(patched(encodeUnitState(exampleState()), countWord, count), state),
                  UnitStateResult::missingValues);
    EXPECT_EQ(state, UnitState{});
}

TEST(UnitState, NaNAndInfinityAreRefused) {
    using Limits = std::numeric_limits<float>;
    for (const float bad : {Limits::quiet_NaN(), Limits::signaling_NaN(), Limits::infinity(), -Limits::infinity()}) {
        const Bytes bytes =
            patched(encodeUnitState(exampleState()), firstValueWord + 7, std::bit_cast<std::uint32_t>(bad));
        UnitState state;
        EXPECT_EQ(decodeUnitState(bytes, state), UnitStateResult::badValue);
        EXPECT_EQ(state, UnitState{});
    }
}

TEST(UnitState, RandomBytesChangeNothing) {
    std::mt19937 random(20240611);
    for (int round = 0; round < 20000; ++round) {
        Bytes bytes(random() % 400);
        for (auto& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        // Most of them get past the first checks.
        const Bytes head = encodeUnitState(UnitState{});
        const std::size_t kept = std::min<std::size_t>({bytes.size(), head.size(), random() % 20});
        std::copy_n(head.begin(), kept, bytes.begin());
        UnitState state;
        EXPECT_NE(decodeUnitState(bytes, state), UnitStateResult::ok);
        EXPECT_EQ(state, UnitState{});
    }
}

TEST(UnitState, RandomWordsUnderAGoodChecksumAreReadSafely) {
    std::mt19937 random(7);
    const Bytes whole = encodeUnitState(exampleState());
    for (int round = 0; round < 20000; ++round) {
        Bytes bytes = whole;
        for (auto n = 1 + random() % 3; n > 0; --n) {
            bytes =
                patched(bytes, random() % (whole.size() / 4 - 1), round % 2 ? std::uint32_t(random()) : random() % 64);
        }
        UnitState state;
        if (decodeUnitState(bytes, state) != UnitStateResult::ok) {
            EXPECT_EQ(state, UnitState{});
        } else {
            EXPECT_TRUE(wordAt(bytes, countWord) != UnitParameters::count || encodeUnitState(state) == bytes)
                << "what is accepted is read to the last bit";
        }
    }
}

TEST(UnitState, EveryResultHasATextOfItsOwn) {
    std::set<std::string> texts;
    for (int result = 0; result <= static_cast<int>(UnitStateResult::badText); ++result) {
        texts.insert(toText(static_cast<UnitStateResult>(result)));
    }
    EXPECT_EQ(texts.size(), 9U);
    EXPECT_EQ(texts.count("unknown result"), 0U);
}

class UnitSavesAndRestores : public testing::Test {
protected:
    QVM0015_AudioUnit unit;
};

TEST_F(UnitSavesAndRestores, EverythingThatIsSavedComesBackInAnotherUnit) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        AudioUnitSetParameter(&unit, pid, kAudioUnitScope_Global, 0, 10.5F + float(pid), 0);
    }
    const std::string name = "Sub Love", settings = "1;2;3";
    const std::string* nameReference = &name;
    const QVMABRecord record{1, 0, &settings};
    const std::uint32_t uiState = 1;
    AudioUnitSetProperty(&unit, 64004, 0, 0, &nameReference, 8);
    AudioUnitSetProperty(&unit, 64008, 0, 0, &record, 16);
    AudioUnitSetProperty(&unit, 64010, 0, 0, &uiState, 4);

    const Bytes saved = unit.saveState();
    QVM0015_AudioUnit other;
    ASSERT_NE(other.saveState(), saved);
    ASSERT_EQ(other.restoreState(saved), UnitStateResult::ok);
    EXPECT_EQ(other.saveState(), saved);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        float here = 0, there = 1;
        AudioUnitGetParameter(&unit, pid, 0, 0, &here);
        AudioUnitGetParameter(&other, pid, 0, 0, &there);
        EXPECT_EQ(here, there) << pid;
    }
}

TEST_F(UnitSavesAndRestores, SavingTwiceGivesTheSameBytes) {
    EXPECT_EQ(unit.saveState(), unit.saveState());
}

TEST_F(UnitSavesAndRestores, AValueOutOfRangeRefusesTheWholeState) {
    const Bytes before = unit.saveState();
    Bytes bytes = patched(before, firstValueWord + 1, std::bit_cast<std::uint32_t>(3.0F));
    bytes = patched(bytes, firstValueWord + 7, std::bit_cast<std::uint32_t>(1e30F));
    EXPECT_EQ(unit.restoreState(bytes), UnitStateResult::badValue);
    EXPECT_EQ(unit.saveState(), before);
}

TEST_F(UnitSavesAndRestores, GarbageChangesNothing) {
    AudioUnitSetParameter(&unit, 1, kAudioUnitScope_Global, 0, 6, 0);
    const Bytes before = unit.saveState();
    EXPECT_EQ(unit.restoreState({}), UnitStateResult::truncated);
    EXPECT_EQ(unit.restoreState(Bytes(5000, 0xFF)), UnitStateResult::notOurs);
    EXPECT_EQ(unit.saveState(), before);
}

} // namespace
} // namespace QVM_NAMESPACE
