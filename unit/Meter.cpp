#include "unit/Meter.h"

namespace QVM_NAMESPACE {

void Meter::add(std::size_t channel, float peak) {
    float seen = peaks_[channel].load(std::memory_order_relaxed);
    // Only a reader's exchange can make this repeat, and it only ever lowers the word.
    while (peak > seen && !peaks_[channel].compare_exchange_strong(seen, peak, std::memory_order_relaxed)) {}
}

float Meter::takePeak(std::size_t channel) {
    return channel < maxChannels ? peaks_[channel].exchange(0, std::memory_order_relaxed) : 0;
}

void Meter::reset() {
    for (auto& peak : peaks_)
        peak.store(0, std::memory_order_relaxed);
}

} // namespace QVM_NAMESPACE
