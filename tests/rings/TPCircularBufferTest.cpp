#include "rings/TPCircularBuffer.h"

#include "rings/ScriptedMapper.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

const std::int32_t page = static_cast<std::int32_t>(::sysconf(_SC_PAGESIZE));

struct TPCircularBufferTest : testing::Test {
    TPCircularBuffer ring;
    ScriptedMapper mapper;
    ~TPCircularBufferTest() override { TPCircularBufferCleanup(&ring); }

    std::int32_t readable() {
        std::int32_t bytes = -1;
        TPCircularBufferTail(&ring, &bytes);
        return bytes;
    }
    std::int32_t free() {
        std::int32_t bytes = -1;
        TPCircularBufferHead(&ring, &bytes);
        return bytes;
    }
    bool initSaying(std::string* said) {
        testing::internal::CaptureStderr();
        const bool done = TPCircularBufferInit(&ring, 1, mapper);
        *said = testing::internal::GetCapturedStderr();
        return done;
    }
    void expectNothingHeld() {
        EXPECT_EQ(mapper.mappedBytes(), 0u);
        EXPECT_EQ(mapper.openHandles(), 0u);
        EXPECT_EQ(ring.buffer, nullptr);
        EXPECT_EQ(ring.length, 0);
    }
};
using TPCircularBufferDeathTest = TPCircularBufferTest;

TEST_F(TPCircularBufferTest, OneByteYieldsARingOfOnePage) {
    ASSERT_TRUE(TPCircularBufferInit(&ring, 1));
    EXPECT_EQ(ring.length, page);
    EXPECT_EQ(free(), page);
    EXPECT_EQ(readable(), 0);
}

TEST_F(TPCircularBufferTest, LengthIsRoundedUpToWholePages) {
    ASSERT_TRUE(TPCircularBufferInit(&ring, page));
    EXPECT_EQ(ring.length, page);
    TPCircularBufferCleanup(&ring);
    ASSERT_TRUE(TPCircularBufferInit(&ring, page + 1));
    EXPECT_EQ(ring.length, 2 * page);
}

TEST_F(TPCircularBufferTest, TheSecondHalfIsTheSameMemory) {
    ASSERT_TRUE(TPCircularBufferInit(&ring, page));
    ring.buffer[0] = std::byte{1};
    EXPECT_EQ(ring.buffer[page], std::byte{1});
    ring.buffer[2 * page - 1] = std::byte{2};
    EXPECT_EQ(ring.buffer[page - 1], std::byte{2});
}

TEST_F(TPCircularBufferTest, WhatWrapsAroundIsReadInOnePiece) {
    ASSERT_TRUE(TPCircularBufferInit(&ring, page));
    TPCircularBufferProduce(&ring, page - 3);
    TPCircularBufferConsume(&ring, page - 3);
    std::int32_t bytes = 0;
    std::memcpy(TPCircularBufferHead(&ring, &bytes), "wrapped", 8);
    EXPECT_EQ(bytes, page);
    TPCircularBufferProduce(&ring, 8);
    EXPECT_EQ(ring.head, 5);
    EXPECT_STREQ(static_cast<const char*>(TPCircularBufferTail(&ring, &bytes)), "wrapped");
    EXPECT_EQ(bytes, 8);
}

TEST_F(TPCircularBufferTest, EmptyRingHasNoTailAndFullRingNoHead) {
    ASSERT_TRUE(TPCircularBufferInit(&ring, page));
    std::int32_t bytes = 0;
    EXPECT_EQ(TPCircularBufferTail(&ring, &bytes), nullptr);
    TPCircularBufferProduce(&ring, page);
    EXPECT_EQ(TPCircularBufferHead(&ring, &bytes), nullptr);
    EXPECT_EQ(bytes, 0);
    EXPECT_EQ(TPCircularBufferTail(&ring, &bytes), ring.buffer);
    EXPECT_EQ(bytes, page);
}

TEST_F(TPCircularBufferTest, ClearConsumesEverythingReadable) {
    ASSERT_TRUE(TPCircularBufferInit(&ring, page));
    TPCircularBufferProduce(&ring, 100);
    TPCircularBufferClear(&ring);
    EXPECT_EQ(readable(), 0);
    EXPECT_EQ(ring.tail, 100);
    TPCircularBufferClear(&ring);
    EXPECT_EQ(ring.tail, 100);
}

TEST_F(TPCircularBufferTest, CleanupZeroesTheRecordAndMayBeRepeated) {
    ASSERT_TRUE(TPCircularBufferInit(&ring, page));
    TPCircularBufferProduce(&ring, 8);
    TPCircularBufferCleanup(&ring);
    TPCircularBufferCleanup(&ring);
    EXPECT_EQ(ring.buffer, nullptr);
    EXPECT_EQ(ring.length, 0);
    EXPECT_EQ(ring.head, 0);
    EXPECT_EQ(ring.tail, 0);
    EXPECT_EQ(ring.fillCount.load(), 0);
}

TEST_F(TPCircularBufferDeathTest, ConsumingMoreThanIsReadableIsFatal) {
    ASSERT_TRUE(TPCircularBufferInit(&ring, page));
    TPCircularBufferProduce(&ring, 8);
    EXPECT_DEATH(TPCircularBufferConsume(&ring, 9),
                 "rings/TPCircularBuffer.h:[0-9]+: TPCircularBufferConsume: buffer->fillCount >= 0\n");
}

TEST_F(TPCircularBufferDeathTest, ProducingMoreThanIsFreeIsFatal) {
    ASSERT_TRUE(TPCircularBufferInit(&ring, page));
    TPCircularBufferProduce(&ring, page);
    EXPECT_DEATH(TPCircularBufferProduce(&ring, 1),
                 "rings/TPCircularBuffer.h:[0-9]+: TPCircularBufferProduce: buffer->fillCount <= buffer->length\n");
}

TEST_F(TPCircularBufferTest, TwoFailuresAreOvercomeInSilence) {
    std::string said;
    mapper.failingCreations = 1;
    mapper.failingMaps = 1;
    EXPECT_TRUE(initSaying(&said));
    TPCircularBufferCleanup(&ring);
    mapper.failingUnmaps = 1;
    mapper.failingRemaps = 1;
    EXPECT_TRUE(initSaying(&said));
    TPCircularBufferCleanup(&ring);
    mapper.strayRemaps = 2;
    EXPECT_TRUE(initSaying(&said));
    EXPECT_EQ(said, "");
    EXPECT_EQ(mapper.openHandles(), 0u);
    ring.buffer[0] = std::byte{7};
    EXPECT_EQ(ring.buffer[page], std::byte{7});
}

TEST_F(TPCircularBufferTest, ThirdFailedAllocationIsReported) {
    std::string said;
    mapper.failingCreations = 3;
    EXPECT_FALSE(initSaying(&said));
    EXPECT_EQ(said, "rings/TPCircularBuffer.cpp:60: Buffer allocation: Cannot allocate memory\n");
    EXPECT_EQ(mapper.creations, 3);
    mapper.failingMaps = 3;
    EXPECT_FALSE(initSaying(&said));
    EXPECT_EQ(said, "rings/TPCircularBuffer.cpp:60: Buffer allocation: Cannot allocate memory\n");
    expectNothingHeld();
}

TEST_F(TPCircularBufferTest, ThirdFailedReleaseOfTheSecondHalfIsReported) {
    std::string said;
    class EverySecondUnmapFails final : public MemoryMapper {
    public:
        explicit EverySecondUnmapFails(ScriptedMapper& inner) : inner_(inner) {}
        int createPages(std::size_t bytes) override { return inner_.createPages(bytes); }
        void closePages(int pages) override { inner_.closePages(pages); }
        void* map(void* at, std::size_t bytes, int pages) override { return inner_.map(at, bytes, pages); }
        bool unmap(void* at, std::size_t bytes) override {
            inner_.failingUnmaps = inner_.unmaps % 2 == 0 ? 1 : 0;
            return inner_.unmap(at, bytes);
        }

    private:
        ScriptedMapper& inner_;
    } failing(mapper);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(TPCircularBufferInit(&ring, 1, failing));
    said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(said, "rings/TPCircularBuffer.cpp:73: Buffer deallocation: Invalid argument\n");
    EXPECT_EQ(mapper.creations, 3);
    expectNothingHeld();
}

TEST_F(TPCircularBufferTest, ThirdFailedRemapIsReported) {
    std::string said;
    mapper.failingRemaps = 3;
    EXPECT_FALSE(initSaying(&said));
    EXPECT_EQ(said, "rings/TPCircularBuffer.cpp:97: Remap buffer memory: File exists\n");
    EXPECT_EQ(mapper.creations, 3);
    expectNothingHeld();
}

TEST_F(TPCircularBufferTest, ThirdMappingElsewhereIsReported) {
    std::string said;
    mapper.strayRemaps = 3;
    EXPECT_FALSE(initSaying(&said));
    EXPECT_EQ(said, "Couldn't map buffer memory to end of buffer\n");
    EXPECT_EQ(mapper.creations, 3);
    expectNothingHeld();
}

TEST_F(TPCircularBufferTest, ImpossibleLengthsAreRefused) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(TPCircularBufferInit(&ring, 0));
    EXPECT_FALSE(TPCircularBufferInit(&ring, -1));
    EXPECT_FALSE(TPCircularBufferInit(&ring, std::numeric_limits<int>::max()));
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 3);
    EXPECT_EQ(ring.buffer, nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
