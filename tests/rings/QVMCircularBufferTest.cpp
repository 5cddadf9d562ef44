#include "rings/QVMCircularBuffer.h"

#include "rings/ScriptedMapper.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

// 1024 floats or 512 doubles make one page, so that the ring ends where maxFrames does.
template <class T>
struct QVMCircularBufferTest : testing::Test {
    static constexpr unsigned capacity = 4096 / sizeof(T);

    // Channel c holds start, start + 1, ... with sign by channel.
    static QVMAudioBuffer<T> block(unsigned channels, unsigned frames, int start) {
        QVMAudioBuffer<T> buffer(channels);
        buffer.alloc(frames);
        for (unsigned c = 0; c < channels; ++c)
            for (unsigned f = 0; f < frames; ++f)
                buffer.channels[c][f] = static_cast<T>(start + static_cast<int>(f)) * (c % 2 ? T{-1} : T{1});
        return buffer;
    }
};
using Samples = testing::Types<float, double>;
TYPED_TEST_SUITE(QVMCircularBufferTest, Samples);

template <class T>
using QVMCircularBufferDeathTest = QVMCircularBufferTest<T>;
TYPED_TEST_SUITE(QVMCircularBufferDeathTest, Samples);

TYPED_TEST(QVMCircularBufferTest, NewBufferIsEmpty) {
    QVMCircularBuffer<TypeParam> buffer(2, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    EXPECT_EQ(buffer.availFrames, 0u);
    EXPECT_EQ(buffer.taps[0], nullptr);
    EXPECT_EQ(buffer.taps[1], nullptr);
}

TYPED_TEST(QVMCircularBufferTest, TapHoldsAllBlocksAndTheOffsetOfTheNewest) {
    QVMCircularBuffer<TypeParam> buffer(2, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    const auto first = this->block(2, 10, 1), second = this->block(2, 5, 11);
    buffer.fillAndTap(&first, 10, false);
    buffer.fillAndTap(&second, 5, false);
    EXPECT_EQ(buffer.availFrames, 15u);
    EXPECT_EQ(buffer.tapOffsets[1], 10);
    for (int f = 0; f < 15; ++f) {
        EXPECT_EQ(buffer.taps[0][f], static_cast<TypeParam>(f + 1));
        EXPECT_EQ(buffer.taps[1][f], static_cast<TypeParam>(-f - 1));
    }
}

TYPED_TEST(QVMCircularBufferTest, FillingExactlyToCapacitySucceeds) {
    QVMCircularBuffer<TypeParam> buffer(1, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    const auto most = this->block(1, this->capacity - 1, 0), last = this->block(1, 1, 4711);
    buffer.fillAndTap(&most, this->capacity - 1, false);
    buffer.fillAndTap(&last, 1, false);
    EXPECT_EQ(buffer.availFrames, this->capacity);
    EXPECT_EQ(buffer.taps[0][this->capacity - 1], TypeParam{4711});
}

TYPED_TEST(QVMCircularBufferDeathTest, OneFrameBeyondCapacityWithoutConsumeIsFatal) {
    QVMCircularBuffer<TypeParam> buffer(1, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    const auto all = this->block(1, this->capacity, 0), one = this->block(1, 1, 0);
    buffer.fillAndTap(&all, this->capacity, false);
    EXPECT_DEATH(buffer.fillAndTap(&one, 1, false), "rings/QVMCircularBuffer.cpp:[0-9]+: fillAndTap: "
                                                    "nSampleFrames \\+ mAvailFrames <= mMaxFrames\n");
}

TYPED_TEST(QVMCircularBufferTest, ConsumeDropsAsManyOldFramesAsItAdds) {
    QVMCircularBuffer<TypeParam> buffer(1, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    const auto all = this->block(1, this->capacity, 0), more = this->block(1, 3, 9000);
    buffer.fillAndTap(&all, this->capacity, false);
    buffer.fillAndTap(&more, 3, true);
    EXPECT_EQ(buffer.availFrames, this->capacity);
    EXPECT_EQ(buffer.taps[0][0], TypeParam{3});
    EXPECT_EQ(buffer.tapOffsets[0], static_cast<int>(this->capacity) - 3);
    EXPECT_EQ(buffer.taps[0][buffer.tapOffsets[0]], TypeParam{9000});
}

TYPED_TEST(QVMCircularBufferTest, BlockLargerThanTheFreeSpaceIsDroppedAndTheTapKeepsTheOldData) {
    QVMCircularBuffer<TypeParam> buffer(1, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    const auto most = this->block(1, this->capacity - 2, 1);
    buffer.fillAndTap(&most, this->capacity - 2, false);
    buffer.fillWithZerosAndTap(3, false);
    EXPECT_EQ(buffer.availFrames, this->capacity - 2);
    EXPECT_EQ(buffer.taps[0][0], TypeParam{1});
    EXPECT_EQ(buffer.taps[0][this->capacity - 3], static_cast<TypeParam>(this->capacity - 2));
}

TYPED_TEST(QVMCircularBufferTest, MonoSourceFillsEveryRingOfAStereoBuffer) {
    QVMCircularBuffer<TypeParam> buffer(2, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    const auto mono = this->block(1, 4, 5);
    buffer.fillAndTap(&mono, 4, false);
    for (int f = 0; f < 4; ++f) {
        EXPECT_EQ(buffer.taps[0][f], static_cast<TypeParam>(5 + f));
        EXPECT_EQ(buffer.taps[1][f], static_cast<TypeParam>(5 + f));
    }
}

TYPED_TEST(QVMCircularBufferTest, AnyOtherChannelCountDoesNothing) {
    QVMCircularBuffer<TypeParam> buffer(2, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    const auto three = this->block(3, 4, 5);
    buffer.fillAndTap(&three, 4, false);
    EXPECT_EQ(buffer.availFrames, 0u);
    EXPECT_EQ(buffer.taps[0], nullptr);
}

TYPED_TEST(QVMCircularBufferTest, AfterClearInSlideModeTheTapShowsSilence) {
    QVMCircularBuffer<TypeParam> buffer(2, 700, true);
    ASSERT_TRUE(buffer.init());
    const auto loud = this->block(2, 300, 1);
    buffer.fillAndTap(&loud, 300, true);
    buffer.clear();
    EXPECT_EQ(buffer.availFrames, 700u);
    for (unsigned c = 0; c < 2; ++c)
        EXPECT_EQ(std::count(buffer.taps[c], buffer.taps[c] + 700, TypeParam{0}), 700);
}

TYPED_TEST(QVMCircularBufferTest, SlidingWindowStaysFullWhateverTheBlockSize) {
    QVMCircularBuffer<TypeParam> buffer(1, 700, true);
    ASSERT_TRUE(buffer.init());
    int stamp = 1;
    for (const unsigned frames : {1u, 699u, 700u, 333u, 64u}) {
        const auto next = this->block(1, frames, stamp);
        stamp += static_cast<int>(frames);
        buffer.fillAndTap(&next, frames, false);
        ASSERT_EQ(buffer.availFrames, 700u);
        EXPECT_EQ(buffer.taps[0][699], static_cast<TypeParam>(stamp - 1));
        EXPECT_EQ(buffer.taps[0][buffer.tapOffsets[0]], next.channels[0][0]);
    }
    EXPECT_EQ(buffer.taps[0][0], static_cast<TypeParam>(stamp - 700));
}

TYPED_TEST(QVMCircularBufferTest, SilenceIsAppendedLikeAnyBlock) {
    QVMCircularBuffer<TypeParam> buffer(2, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    const auto loud = this->block(2, 2, 1);
    buffer.fillAndTap(&loud, 2, false);
    buffer.fillWithZerosAndTap(2, false);
    EXPECT_EQ(buffer.availFrames, 4u);
    EXPECT_EQ(buffer.tapOffsets[0], 2);
    EXPECT_EQ(buffer.taps[1][1], TypeParam{-2});
    EXPECT_EQ(buffer.taps[1][2], TypeParam{0});
    EXPECT_EQ(buffer.taps[1][3], TypeParam{0});
}

TYPED_TEST(QVMCircularBufferTest, BufferWithoutChannelsDoesNothing) {
    QVMCircularBuffer<TypeParam> buffer(0, this->capacity, false);
    ASSERT_TRUE(buffer.init());
    buffer.fillWithZerosAndTap(this->capacity + 1, false);
    EXPECT_EQ(buffer.availFrames, 0u);
}

TYPED_TEST(QVMCircularBufferTest, OnceOneRingFailsTheRestAreNotMade) {
    ScriptedMapper mapper;
    mapper.failingCreations = 3;
    QVMCircularBuffer<TypeParam> buffer(2, this->capacity, false);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(buffer.init(mapper));
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(mapper.creations, 3);
    EXPECT_EQ(buffer.rings[1], nullptr);
    const auto block = this->block(2, 4, 1);
    buffer.fillAndTap(&block, 4, false);
    EXPECT_EQ(buffer.availFrames, 0u);
    EXPECT_TRUE(buffer.init());
}

} // namespace
} // namespace QVM_NAMESPACE
