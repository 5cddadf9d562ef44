#include "rings/TPCircularBuffer.h"

#include <cerrno>
#include <cstring>
#include <limits>
#include <unistd.h>

namespace QVM_NAMESPACE {

namespace {

constexpr int kAttempts = 3;
constexpr const char* kSource = "rings/TPCircularBuffer.cpp";

// The number that a message has in place of a line's: a fixed mark, by which the message is found whatever moves.
enum MessageMark : int { allocationMark = 60, deallocationMark = 73, remapMark = 97 };

// The steps that can fail.
struct Step {
    MessageMark mark;
    const char* operation;
};
constexpr Step kAllocation{allocationMark, "Buffer allocation"};
constexpr Step kDeallocation{deallocationMark, "Buffer deallocation"};
constexpr Step kRemap{remapMark, "Remap buffer memory"};

void report(const Step& step, int error) {
    std::fprintf(stderr, "%s:%d: %s: %s\n", kSource, step.mark, step.operation, std::strerror(error));
}

enum class Outcome { mapped, allocationFailed, deallocationFailed, remapFailed, landedElsewhere };

struct Attempt {
    Outcome outcome;
    int error; // errno of the step that failed
    std::byte* memory = nullptr;
};

// `length` bytes of pages mapped at `memory` and again right behind, or nothing mapped at all.
Attempt mapTwice(std::size_t length, int pages, MemoryMapper& mapper) {
    // Both halves at once find a hole that is large enough; the second is then free for the second mapping.
    auto* const first = static_cast<std::byte*>(mapper.map(nullptr, 2 * length, pages));
    if (!first) return {Outcome::allocationFailed, errno};
    std::byte* const second = first + length;
    if (!mapper.unmap(second, length)) {
        const int error = errno;
        mapper.unmap(first, 2 * length);
        return {Outcome::deallocationFailed, error};
    }
    void* const landed = mapper.map(second, length, pages);
    if (landed == second) return {Outcome::mapped, 0, first};
    const int error = errno;
    if (landed) mapper.unmap(landed, length);
    mapper.unmap(first, length);
    return {landed ? Outcome::landedElsewhere : Outcome::remapFailed, error};
}

Attempt attempt(std::size_t length, MemoryMapper& mapper) {
    const int pages = mapper.createPages(length);
    if (pages < 0) return {Outcome::allocationFailed, errno};
    const Attempt result = mapTwice(length, pages, mapper);
    mapper.closePages(pages);
    return result;
}

void report(const Attempt& failed) {
    switch (failed.outcome) {
    case Outcome::mapped:
        break;
    case Outcome::allocationFailed:
        report(kAllocation, failed.error);
        break;
    case Outcome::deallocationFailed:
        report(kDeallocation, failed.error);
        break;
    case Outcome::remapFailed:
        report(kRemap, failed.error);
        break;
    case Outcome::landedElsewhere:
        std::fputs("Couldn't map buffer memory to end of buffer\n", stderr);
        break;
    }
}

} // namespace

bool TPCircularBufferInit(TPCircularBuffer* buffer, int length, MemoryMapper& mapper) {
    const std::int64_t page = ::sysconf(_SC_PAGESIZE);
    const std::int64_t rounded = (std::int64_t{length} + page - 1) / page * page;
    if (length <= 0 || rounded > std::numeric_limits<std::int32_t>::max()) {
        report(kAllocation, length <= 0 ? EINVAL : ENOMEM);
        return false;
    }
    Attempt result{};
    for (int i = 0; i < kAttempts; ++i) {
        result = attempt(static_cast<std::size_t>(rounded), mapper);
        if (result.outcome == Outcome::mapped) break;
    }
    report(result);
    if (result.outcome != Outcome::mapped) return false;
    buffer->buffer = result.memory;
    buffer->length = static_cast<std::int32_t>(rounded);
    buffer->head = buffer->tail = 0;
    buffer->fillCount.store(0);
    return true;
}

void TPCircularBufferCleanup(TPCircularBuffer* buffer) {
    if (buffer->buffer) systemMemoryMapper().unmap(buffer->buffer, 2 * static_cast<std::size_t>(buffer->length));
    buffer->buffer = nullptr;
    buffer->length = buffer->head = buffer->tail = 0;
    buffer->fillCount.store(0);
}

} // namespace QVM_NAMESPACE
