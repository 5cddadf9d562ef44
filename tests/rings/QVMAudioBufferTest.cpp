#include "rings/QVMAudioBuffer.h"

#include <gtest/gtest.h>

#include <array>

namespace QVM_NAMESPACE {
namespace {

template <class T>
struct QVMAudioBufferTest : testing::Test {
    static QVMAudioBuffer<T> stamped(unsigned channels, unsigned frames) {
        QVMAudioBuffer<T> buffer(channels);
        buffer.alloc(frames);
        for (unsigned c = 0; c < channels; ++c)
            for (unsigned f = 0; f < frames; ++f)
                buffer.channels[c][f] = static_cast<T>(100 * (c + 1) + f);
        return buffer;
    }
};
using Samples = testing::Types<float, double>;
TYPED_TEST_SUITE(QVMAudioBufferTest, Samples);

TYPED_TEST(QVMAudioBufferTest, AllocGivesOneZeroedBlockChannelAfterChannel) {
    QVMAudioBuffer<TypeParam> buffer(3);
    buffer.alloc(5);
    EXPECT_EQ(buffer.capacity, 5u);
    for (unsigned c = 0; c < 3; ++c)
        EXPECT_EQ(buffer.channels[c], buffer.block.get() + 5 * c);
    for (unsigned i = 0; i < 15; ++i)
        EXPECT_EQ(buffer.block[i], TypeParam{0});
}

TYPED_TEST(QVMAudioBufferTest, FillCopiesTheGivenFramesOfEveryChannel) {
    auto to = this->stamped(2, 4);
    QVMAudioBuffer<TypeParam> from(2);
    from.alloc(6);
    to.fill(&from, 3);
    for (unsigned c = 0; c < 2; ++c) {
        EXPECT_EQ(to.channels[c][2], TypeParam{0});
        EXPECT_EQ(to.channels[c][3], static_cast<TypeParam>(100 * (c + 1) + 3)) << "a frame too many";
    }
}

TYPED_TEST(QVMAudioBufferTest, FillFromSomebodyElsesArrays) {
    std::array<TypeParam, 2> left{1, 2}, right{3, 4};
    QVMAudioBuffer<TypeParam> from(2), to(2);
    from.channels = {left.data(), right.data()};
    to.alloc(2);
    to.fill(&from, 2);
    EXPECT_EQ(to.channels[0][1], TypeParam{2});
    EXPECT_EQ(to.channels[1][0], TypeParam{3});
}

TYPED_TEST(QVMAudioBufferTest, OneChannelIsCopiedIntoEveryChannel) {
    const auto mono = this->stamped(1, 2);
    QVMAudioBuffer<TypeParam> to(3);
    to.alloc(2);
    to.fill(&mono, 2);
    for (unsigned c = 0; c < 3; ++c)
        EXPECT_EQ(to.channels[c][1], TypeParam{101});
}

TYPED_TEST(QVMAudioBufferTest, OtherwiseTheChannelsThatBothHaveAreCopied) {
    const auto two = this->stamped(2, 2), three = this->stamped(3, 2);
    QVMAudioBuffer<TypeParam> wide(3), narrow(2);
    wide.alloc(2);
    narrow.alloc(2);
    wide.fill(&two, 2);
    narrow.fill(&three, 2);
    EXPECT_EQ(wide.channels[1][1], TypeParam{201});
    EXPECT_EQ(wide.channels[2][1], TypeParam{0});
    EXPECT_EQ(narrow.channels[1][1], TypeParam{201});
}

TYPED_TEST(QVMAudioBufferTest, MoreFramesThanThereIsRoomForAreLeftOut) {
    const auto from = this->stamped(2, 4);
    QVMAudioBuffer<TypeParam> to(2);
    to.alloc(2);
    to.fill(&from, 4);
    EXPECT_EQ(to.channels[0][1], TypeParam{101});
    EXPECT_EQ(to.channels[1][0], TypeParam{200});
}

} // namespace
} // namespace QVM_NAMESPACE
