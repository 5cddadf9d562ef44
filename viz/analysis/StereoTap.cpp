#include "viz/analysis/StereoTap.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kLongestFrame = 1.0 / 30; // seconds

} // namespace

unsigned framesOfAFrame(double sampleRate, unsigned maxFrames) {
    const double block = std::max(1u, maxFrames);
    return static_cast<unsigned>(std::max(1.0, std::ceil(sampleRate * kLongestFrame / block)) * block);
}

bool StereoTap::init(unsigned capacity) {
    const std::scoped_lock hold(lock_);
    capacity_ = capacity;
    readPosition_ = 0;
    ring_ = std::make_unique<QVMCircularBuffer<float>>(2, capacity, true);
    if (!ring_->init()) ring_.reset();
    return ring_ != nullptr;
}

bool StereoTap::append(const QVMAudioBuffer<float>& buffer, unsigned nFrames) {
    if (buffer.numChannels != 1 && buffer.numChannels != 2) return false;
    const std::unique_lock attempt(lock_, std::try_to_lock);
    if (!attempt.owns_lock() || !ring_) return false;
    const unsigned frames = std::min(nFrames, capacity_);
    QVMAudioBuffer<float>& source = buffer.numChannels == 1 ? single_ : newest_;
    for (std::size_t c = 0; c < buffer.numChannels; ++c)
        source.channels[c] = buffer.channels[c] + (nFrames - frames);
    ring_->fillAndTap(&source, frames, true);
    readPosition_ -= std::min(frames, readPosition_);
    return true;
}

void StereoTap::copy(unsigned offset, unsigned frames, float* left, float* right) const {
    std::copy_n(ring_->taps[0] + offset, frames, left);
    std::copy_n(ring_->taps[1] + offset, frames, right);
}

bool StereoTap::takeNext(unsigned frames, float* left, float* right) {
    const std::scoped_lock hold(lock_);
    if (!ring_ || frames > capacity_ || readPosition_ > capacity_ - frames) return false;
    copy(readPosition_, frames, left, right);
    readPosition_ += frames;
    return true;
}

void StereoTap::copyFrom(unsigned offset, unsigned frames, float* left, float* right) {
    const std::scoped_lock hold(lock_);
    if (!ring_ || offset >= capacity_) return;
    copy(offset, std::min(frames, capacity_ - offset), left, right);
}

std::optional<unsigned> StereoTap::advance(unsigned frames, unsigned length) {
    const std::scoped_lock hold(lock_);
    if (!ring_ || length > capacity_) return std::nullopt;
    const unsigned last = capacity_ - length;
    if (readPosition_ >= last || frames == 0) return std::nullopt;
    readPosition_ += std::min(frames, last - readPosition_);
    return readPosition_;
}

unsigned StereoTap::readPosition() {
    const std::scoped_lock hold(lock_);
    return readPosition_;
}

} // namespace QVM_NAMESPACE
