#include "rings/QVMAudioBuffer.h"

#include <algorithm>

namespace QVM_NAMESPACE {

template <class T>
void QVMAudioBuffer<T>::alloc(unsigned frames) {
    capacity = frames;
    block = std::make_unique<T[]>(std::size_t{numChannels} * frames);
    for (std::size_t c = 0; c < numChannels; ++c)
        channels[c] = block.get() + c * frames;
}

template <class T>
void QVMAudioBuffer<T>::fill(const QVMAudioBuffer* src, unsigned frames) {
    if (capacity > 0) frames = std::min(frames, capacity);
    if (src->capacity > 0) frames = std::min(frames, src->capacity);
    const bool isMono = src->numChannels == 1;
    const std::size_t count = isMono ? numChannels : std::min(numChannels, src->numChannels);
    for (std::size_t c = 0; c < count; ++c)
        std::copy_n(src->channels[isMono ? 0 : c], frames, channels[c]);
}

template struct QVMAudioBuffer<float>;
template struct QVMAudioBuffer<double>;

} // namespace QVM_NAMESPACE
