// Blocks of audio through the ring and out again, against the two copies that cannot be saved and a well-known ring.
#include "rings/QVMCircularBuffer.h"

#include <benchmark/benchmark.h>
#include <jack/ringbuffer.h>

#include <cstring>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

constexpr int kRingBytes = 1 << 15;

void countBytes(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_TwoCopies(benchmark::State& state) {
    const auto bytes = static_cast<std::size_t>(state.range(0));
    std::vector<char> in(bytes, 1), between(kRingBytes), out(bytes);
    std::size_t at = 0;
    for (auto _ : state) {
        std::memcpy(&between[at], in.data(), bytes);
        benchmark::ClobberMemory();
        std::memcpy(out.data(), &between[at], bytes);
        benchmark::DoNotOptimize(out.data());
        at = at + 2 * bytes <= kRingBytes ? at + bytes : 0;
    }
    countBytes(state);
}

void BM_DoubleMappedRing(benchmark::State& state) {
    const auto bytes = static_cast<std::int32_t>(state.range(0));
    std::vector<char> in(bytes, 1), out(bytes);
    TPCircularBuffer ring;
    if (!TPCircularBufferInit(&ring, kRingBytes)) return state.SkipWithError("no ring");
    for (auto _ : state) {
        std::int32_t room = 0;
        std::memcpy(TPCircularBufferHead(&ring, &room), in.data(), bytes);
        TPCircularBufferProduce(&ring, bytes);
        benchmark::ClobberMemory();
        std::memcpy(out.data(), TPCircularBufferTail(&ring, &room), bytes);
        TPCircularBufferConsume(&ring, bytes);
        benchmark::DoNotOptimize(out.data());
    }
    TPCircularBufferCleanup(&ring);
    countBytes(state);
}

void BM_JackRing(benchmark::State& state) {
    const auto bytes = static_cast<std::size_t>(state.range(0));
    std::vector<char> in(bytes, 1), out(bytes);
    jack_ringbuffer_t* const ring = jack_ringbuffer_create(kRingBytes);
    for (auto _ : state) {
        jack_ringbuffer_write(ring, in.data(), bytes);
        benchmark::ClobberMemory();
        jack_ringbuffer_read(ring, out.data(), bytes);
        benchmark::DoNotOptimize(out.data());
    }
    jack_ringbuffer_free(ring);
    countBytes(state);
}

// One block of stereo into a sliding window of a thirtieth of a second: what an audio display costs the audio side.
void BM_SlidingWindow(benchmark::State& state) {
    const auto frames = static_cast<unsigned>(state.range(0)) / 8; // two floats each
    QVMCircularBuffer<float> window(2, 2048, true);
    QVMAudioBuffer<float> block(2);
    block.alloc(frames);
    if (!window.init()) return state.SkipWithError("no ring");
    for (auto _ : state) {
        window.fillAndTap(&block, frames, true);
        benchmark::DoNotOptimize(window.taps.data());
    }
    countBytes(state);
}

// Bytes a block: 16 to 2048 frames of one float channel, and one that shares no factor with the ring.
#define SIZES Arg(64)->Arg(1000)->Arg(2048)->Arg(8192)
BENCHMARK(BM_TwoCopies)->SIZES;
BENCHMARK(BM_DoubleMappedRing)->SIZES;
BENCHMARK(BM_JackRing)->SIZES;
BENCHMARK(BM_SlidingWindow)->SIZES;

} // namespace
} // namespace QVM_NAMESPACE
