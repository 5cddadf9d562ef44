// Whatever bytes a host gives back: the unit restores all of them, or nothing.
#include "description/Description.h"
#include "support/StateBytes.h"
#include "unit/QVM0015_AudioUnit.h"

#include <gtest/gtest.h>

#include <cmath>

namespace QVM_NAMESPACE {
namespace {

using namespace statebytes;

class DamagedState : public testing::Test {
protected:
    DamagedState() {
        state_.parameters = UnitParameters::initialValues();
        state_.parameters[pidTiltGain] = 4.5F;
        state_.settings = {"Warmer \xE2\x99\xAA", 1, "1;6;30;20000;0", 2};
        EXPECT_EQ(unit_.restoreState(encodeUnitState(state_)), UnitStateResult::ok);
    }

    std::vector<float> values(std::size_t count) const {
        std::vector<float> some(state_.parameters.begin(), state_.parameters.end());
        some.resize(count, 3);
        return some;
    }

    // What the unit has to save after it has taken these bytes.
    static Bytes savedAfter(const Bytes& taken) {
        if (wordAt(taken, countWord) == UnitParameters::count) return taken;
        UnitState state;
        EXPECT_EQ(decodeUnitState(taken, state), UnitStateResult::ok);
        for (std::size_t pid = 0; pid < std::min<std::size_t>(wordAt(taken, countWord), UnitParameters::count); ++pid)
            EXPECT_EQ(std::bit_cast<std::uint32_t>(state.parameters[pid]), wordAt(taken, firstValueWord + pid));
        return encodeUnitState(state);
    }

    void expectEveryValueInRange() {
        for (std::uint32_t pid = 0; pid < UnitParameters::count; ++pid) {
            float value = NAN;
            ASSERT_EQ(unit_.getParameter(pid, kAudioUnitScope_Global, 0, &value), noErr);
            ASSERT_TRUE(GetParameter(pid)->heldRange().contains(value)) << pid << ": " << value;
        }
    }

    UnitState state_;
    QVM0015_AudioUnit unit_;
};

TEST_F(DamagedState, EveryTruncationChangesNothing) {
    const Bytes before = unit_.saveState();
    for (const std::size_t count : {std::size_t{20}, UnitParameters::count, std::size_t{30}}) {
        const Bytes whole = withValues(state_, values(count));
        for (std::size_t length = 0; length < whole.size(); ++length) {
            Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            ASSERT_NE(unit_.restoreState(cut), UnitStateResult::ok) << length;
            if (length >= (lengthWord + 1) * 4) setWord(cut, lengthWord, static_cast<std::uint32_t>(length));
            seal(cut);
            ASSERT_NE(unit_.restoreState(cut), UnitStateResult::ok) << length << ", with length and checksum mended";
            ASSERT_EQ(unit_.saveState(), before) << length;
        }
    }
}

TEST_F(DamagedState, AMutationChangesNothingOrIsRestoredWhole) {
    Mutations mutations({unit_.saveState(), withValues(state_, values(20)), withValues(state_, values(30))}, 20261122);
    int taken = 0, refused = 0;
    for (int round = 0; round < 100'000; ++round) {
        const Bytes before = unit_.saveState(), bytes = mutations.next();
        if (unit_.restoreState(bytes) == UnitStateResult::ok) {
            ++taken;
            ASSERT_EQ(unit_.saveState(), savedAfter(bytes)) << round;
            ASSERT_NO_FATAL_FAILURE(expectEveryValueInRange()) << round;
        } else {
            ++refused;
            ASSERT_EQ(unit_.saveState(), before) << round;
        }
    }
    EXPECT_GT(taken, 5'000) << "the mutations reach what is behind the checksum";
    EXPECT_GT(refused, 5'000);
}

} // namespace
} // namespace QVM_NAMESPACE
