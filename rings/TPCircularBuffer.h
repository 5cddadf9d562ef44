// A ring of bytes whose memory is mapped twice in a row, so that whatever can be read or written lies in one piece.
//
// One writer and one reader, each on a thread of its own. `head` is the writer's alone, `tail` the reader's alone; both
// look at `fillCount`, which changes only by an atomic addition with a full barrier, after the data were written
// (produce) or the tail was moved on (consume).
#pragma once

#include "rings/FatalAssertion.h"
#include "rings/MemoryMapper.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace QVM_NAMESPACE {

struct TPCircularBuffer {
    std::byte* buffer = nullptr;            // the first of two adjacent mappings of the same memory
    std::int32_t length = 0;                // bytes, a whole number of pages
    std::int32_t tail = 0;                  // offset in bytes of the next read
    std::int32_t head = 0;                  // offset in bytes of the next write
    std::atomic<std::int32_t> fillCount{0}; // bytes that can be read
};
static_assert(sizeof(void*) != 8 || sizeof(TPCircularBuffer) == 24);

inline constexpr const char* kTPCircularBufferSource = "rings/TPCircularBuffer.h";

// Makes an empty ring of at least `length` bytes. False, with a line on the error stream, when three attempts to map
// the memory failed; the record is then still empty. Not for the render thread.
bool TPCircularBufferInit(TPCircularBuffer* buffer, int length, MemoryMapper& mapper = systemMemoryMapper());

// Gives the memory back and zeroes the record. Nobody may be reading or writing.
void TPCircularBufferCleanup(TPCircularBuffer* buffer);

// Where to read, and how many bytes; null when there are none. Reader's thread.
inline void* TPCircularBufferTail(TPCircularBuffer* buffer, std::int32_t* availableBytes) {
    *availableBytes = buffer->fillCount.load();
    return *availableBytes == 0 ? nullptr : buffer->buffer + buffer->tail;
}

// Frees `amount` bytes at the tail, which must have been readable: anything else is fatal. Reader's thread.
inline void TPCircularBufferConsume(TPCircularBuffer* buffer, std::int32_t amount) {
    if (amount == 0) return;
    buffer->tail = static_cast<std::int32_t>((std::int64_t{buffer->tail} + amount) % buffer->length);
    if (buffer->fillCount.fetch_sub(amount) - std::int64_t{amount} < 0)
        failAssertion(kTPCircularBufferSource, __LINE__, "TPCircularBufferConsume", "buffer->fillCount >= 0");
}

// Where to write, and how many bytes; null when the ring is full. Writer's thread.
inline void* TPCircularBufferHead(TPCircularBuffer* buffer, std::int32_t* availableBytes) {
    *availableBytes = buffer->length - buffer->fillCount.load();
    return *availableBytes == 0 ? nullptr : buffer->buffer + buffer->head;
}

// Makes `amount` bytes at the head readable, which must have been free: anything else is fatal. Writer's thread.
inline void TPCircularBufferProduce(TPCircularBuffer* buffer, std::int32_t amount) {
    if (amount == 0) return;
    buffer->head = static_cast<std::int32_t>((std::int64_t{buffer->head} + amount) % buffer->length);
    if (buffer->fillCount.fetch_add(amount) + std::int64_t{amount} > buffer->length)
        failAssertion(kTPCircularBufferSource, __LINE__, "TPCircularBufferProduce",
                      "buffer->fillCount <= buffer->length");
}

// Consumes everything that can be read. Reader's thread.
inline void TPCircularBufferClear(TPCircularBuffer* buffer) {
    std::int32_t readable = 0;
    if (TPCircularBufferTail(buffer, &readable)) TPCircularBufferConsume(buffer, readable);
}

} // namespace QVM_NAMESPACE
