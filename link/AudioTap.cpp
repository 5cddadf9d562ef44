#include "link/AudioTap.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace QVM_NAMESPACE {

namespace {

static_assert(std::is_trivially_copyable_v<TapFrame> && sizeof(TapFrame) == 16, "pages hold whole frames");

constexpr auto frameBytes = static_cast<std::int32_t>(sizeof(TapFrame));

} // namespace

bool AudioTap::setWanted(bool isWanted) {
    if (isWanted && !ring_.buffer) {
        if (!TPCircularBufferInit(&ring_, static_cast<int>(capacity) * frameBytes)) return false;
        // A page gets its memory when it is first touched: here, at both its addresses, and not by the audio.
        std::memset(ring_.buffer, 0, 2 * static_cast<std::size_t>(ring_.length));
    }
    if (isWanted && !isWanted_) TPCircularBufferClear(&ring_);
    isWanted_.storeOrdered(isWanted);
    return true;
}

void AudioTap::append(std::span<const TapFrame> frames) {
    std::int32_t freeBytes = 0;
    void* const head = TPCircularBufferHead(&ring_, &freeBytes);
    if (!head) return;
    const auto latest = frames.last(std::min(frames.size(), static_cast<std::size_t>(freeBytes / frameBytes)));
    std::memcpy(head, latest.data(), latest.size_bytes());
    TPCircularBufferProduce(&ring_, static_cast<std::int32_t>(latest.size_bytes()));
}

std::span<const TapFrame> AudioTap::waiting() {
    std::int32_t bytes = 0;
    const void* const tail = TPCircularBufferTail(&ring_, &bytes);
    return {static_cast<const TapFrame*>(tail), static_cast<std::size_t>(bytes / frameBytes)};
}

void AudioTap::consume(std::size_t frames) {
    TPCircularBufferConsume(&ring_, static_cast<std::int32_t>(frames) * frameBytes);
}

} // namespace QVM_NAMESPACE
