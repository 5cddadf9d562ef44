#include "link/LevelWords.h"

namespace QVM_NAMESPACE {

LevelWords::LevelWords(std::size_t channels, float silence) : silence_(silence), channels_(channels) {
    for (Channel& channel : channels_)
        channel.latest = silence;
}

void LevelWords::post(std::size_t channel, float level) {
    channels_[channel].latest = level;
    channels_[channel].highest.raiseTo(level);
}

void LevelWords::reset() {
    for (Channel& channel : channels_) {
        channel.latest = silence_;
        channel.highest = noLevel;
    }
    isReset_ = true;
}

} // namespace QVM_NAMESPACE
