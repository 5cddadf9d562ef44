#include "rings/QVMCircularBuffer.h"

#include <algorithm>
#include <limits>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* kSource = "rings/QVMCircularBuffer.cpp";

// Saturates, so that a size no ring can have fails where rings are made.
template <class T>
std::int32_t byteCount(std::uint64_t frames) {
    constexpr std::uint64_t most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min<std::uint64_t>(frames * sizeof(T), most));
}

} // namespace

template <class T>
QVMCircularBuffer<T>::QVMCircularBuffer(unsigned channelCount, unsigned capacityFrames, bool slidingWindow)
    : numChannels(channelCount), maxFrames(capacityFrames), tapOffsets(channelCount), taps(channelCount),
      rings(channelCount), slide(slidingWindow) {}

template <class T>
QVMCircularBuffer<T>::~QVMCircularBuffer() {
    for (const auto& ring : rings)
        if (ring) TPCircularBufferCleanup(ring.get());
}

template <class T>
bool QVMCircularBuffer<T>::init(MemoryMapper& mapper) {
    isReady_ = false;
    for (auto& ring : rings) {
        if (ring) TPCircularBufferCleanup(ring.get());
        ring = std::make_unique<TPCircularBuffer>();
        if (!TPCircularBufferInit(ring.get(), byteCount<T>(maxFrames), mapper)) return false;
    }
    isReady_ = true;
    clear();
    return true;
}

template <class T>
void QVMCircularBuffer<T>::clear() {
    if (!isReady_) return;
    const std::int32_t window = byteCount<T>(maxFrames);
    for (std::size_t c = 0; c < numChannels; ++c) {
        TPCircularBuffer* const ring = rings[c].get();
        TPCircularBufferClear(ring);
        std::int32_t free = 0, readable = 0;
        void* const head = TPCircularBufferHead(ring, &free);
        if (slide && free >= window) {
            std::fill_n(static_cast<T*>(head), maxFrames, T{});
            TPCircularBufferProduce(ring, window);
        }
        taps[c] = static_cast<T*>(TPCircularBufferTail(ring, &readable));
    }
    availFrames = slide ? maxFrames : 0;
}

template <class T>
void QVMCircularBuffer<T>::tap(std::size_t channel, unsigned frames) {
    std::int32_t readable = 0;
    taps[channel] = static_cast<T*>(TPCircularBufferTail(rings[channel].get(), &readable));
    availFrames = static_cast<std::uint32_t>(static_cast<std::size_t>(readable) / sizeof(T));
    tapOffsets[channel] = static_cast<std::int32_t>(availFrames) - static_cast<std::int32_t>(frames);
}

// `write(channel, destination)` puts `frames` samples at the destination.
template <class T>
template <class Write>
void QVMCircularBuffer<T>::append(unsigned frames, bool consume, Write&& write) {
    const std::int32_t bytes = byteCount<T>(frames);
    for (std::size_t c = 0; c < numChannels; ++c) {
        TPCircularBuffer* const ring = rings[c].get();
        if (consume) TPCircularBufferConsume(ring, bytes);
        std::int32_t free = 0;
        void* const head = TPCircularBufferHead(ring, &free);
        if (head && free >= bytes) {
            write(c, static_cast<T*>(head));
            TPCircularBufferProduce(ring, bytes);
        }
        tap(c, frames);
    }
}

template <class T>
void QVMCircularBuffer<T>::fillAndTap(const QVMAudioBuffer<T>* src, unsigned frames, bool consume) {
    const bool drops = consume || slide;
    if (!drops && std::uint64_t{frames} + availFrames > maxFrames)
        failAssertion(kSource, __LINE__, "fillAndTap", "nSampleFrames + mAvailFrames <= mMaxFrames");
    const bool isMono = src->numChannels == 1;
    if (!isReady_ || (src->numChannels != numChannels && !isMono)) return;
    append(frames, drops, [&](std::size_t channel, T* destination) {
        std::copy_n(src->channels[isMono ? 0 : channel], frames, destination);
    });
}

template <class T>
void QVMCircularBuffer<T>::fillWithZerosAndTap(unsigned frames, bool consume) {
    if (!isReady_) return;
    append(frames, consume || slide, [&](std::size_t, T* destination) { std::fill_n(destination, frames, T{}); });
}

template struct QVMCircularBuffer<float>;
template struct QVMCircularBuffer<double>;

} // namespace QVM_NAMESPACE
