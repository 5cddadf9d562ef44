#include "plugin/standalone/ClipLoop.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr int channels = 2;
constexpr std::size_t stretchFrames = 256, blockFrames = 512;

// The converter takes silence to stand before what it hears first. It hears so much of the clip's end that none is
// left.
constexpr double leadSeconds = 0.1;

} // namespace

void ClipLoop::Freeing::operator()(SRC_STATE* converter) const {
    src_delete(converter);
}

ClipLoop::ClipLoop(AudioClip clip)
    : clip_(std::move(clip)), stretch_(stretchFrames * channels), block_(blockFrames * channels) {
    const auto next = [](void* loop, float** samples) { return static_cast<ClipLoop*>(loop)->nextStretch(samples); };
    int error = 0;
    converter_.reset(src_callback_new(next, SRC_SINC_MEDIUM_QUALITY, channels, &error, this));
    if (!converter_) throw std::bad_alloc();
}

void ClipLoop::start(double sampleRateHz) {
    ratio_ = sampleRateHz / clip_.sampleRateHz;
    at_ = 0;
    if (ratio_ == 1) return;
    src_reset(converter_.get());
    const auto lead = static_cast<std::size_t>(std::lround(clip_.sampleRateHz * leadSeconds));
    const std::size_t length = std::max<std::size_t>(clip_.frames(), 1);
    at_ = (length - lead % length) % length;
    for (auto left = static_cast<int>(std::lround(sampleRateHz * leadSeconds)); left > 0;) {
        const int frames = std::min(left, static_cast<int>(blockFrames));
        readInterleaved(block_.data(), frames);
        left -= frames;
    }
}

long ClipLoop::nextStretch(float** samples) {
    for (std::size_t i = 0; i < stretchFrames; ++i) {
        stretch_[i * channels] = clip_.channels.front()[at_];
        stretch_[i * channels + 1] = clip_.channels.back()[at_];
        if (++at_ == clip_.frames()) at_ = 0;
    }
    *samples = stretch_.data();
    return static_cast<long>(stretchFrames);
}

void ClipLoop::readInterleaved(float* out, int frames) {
    const long read = src_callback_read(converter_.get(), ratio_, frames, out);
    std::fill(out + std::max(read, 0L) * channels, out + static_cast<std::ptrdiff_t>(frames) * channels, 0.0f);
}

void ClipLoop::read(float* left, float* right, int frames) {
    for (int done = 0; done < frames;) {
        const int count = std::min(frames - done, static_cast<int>(blockFrames));
        if (ratio_ != 1) readInterleaved(block_.data(), count);
        for (int i = 0; i < count; ++i, ++done) {
            left[done] = ratio_ == 1 ? clip_.channels.front()[at_] : block_[static_cast<std::size_t>(i) * channels];
            right[done] = ratio_ == 1 ? clip_.channels.back()[at_] : block_[static_cast<std::size_t>(i) * channels + 1];
            if (ratio_ == 1 && ++at_ == clip_.frames()) at_ = 0;
        }
    }
}

} // namespace QVM_NAMESPACE
