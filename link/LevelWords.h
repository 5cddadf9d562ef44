// The levels of a meter on their way from the audio to the frames that show them.
//
// There may be many blocks in a display frame, or none. So each channel has two words: the level of the latest block,
// and the highest one since a frame took it. No peak is lost between two frames, and a frame knows when nothing came.
// Levels are in decibels. Nothing waits and nothing is allocated after construction.
#pragma once

#include "link/SharedWord.h"

#include <cstddef>
#include <limits>
#include <vector>

namespace QVM_NAMESPACE {

class LevelWords {
public:
    static constexpr float noLevel = -std::numeric_limits<float>::infinity(); // none came

    // Every channel stands at `silence`, and none has a level to be taken.
    LevelWords(std::size_t channels, float silence);
    LevelWords(const LevelWords&) = delete;
    LevelWords& operator=(const LevelWords&) = delete;

    std::size_t channels() const { return channels_.size(); }
    float silence() const { return silence_; }

    // The audio's side, one thread a channel: a block's level.
    void post(std::size_t channel, float level);
    // The audio's side, any time: how long a level stands when no other one follows. Then what fed the meter has
    // stopped, which is silence. For ever unless told.
    void setStandingSeconds(float seconds) { standingSeconds_ = seconds; }
    // Any thread: forgets all levels, also those that no frame has taken, and has the next frame begin at silence.
    void reset();

    // The latest level. Any thread.
    SharedWord<float>& latest(std::size_t channel) { return channels_[channel].latest; }
    // The highest level that no frame has taken yet, or noLevel. Any thread.
    float highest(std::size_t channel) const { return channels_[channel].highest; }

    // Main thread, for a frame. The highest level since the last call, which takes it; noLevel when none came.
    float takeHighest(std::size_t channel) { return channels_[channel].highest.exchange(noLevel); }
    float standingSeconds() const { return standingSeconds_; }
    // Whether there was a reset since the last call.
    bool takeReset() { return isReset_.exchange(false); }

private:
    struct Channel {
        SharedWord<float> latest;
        SharedWord<float> highest = noLevel;
    };

    const float silence_;
    std::vector<Channel> channels_;
    SharedWord<float> standingSeconds_ = std::numeric_limits<float>::infinity();
    SharedWord<bool> isReset_ = false;
};

} // namespace QVM_NAMESPACE
