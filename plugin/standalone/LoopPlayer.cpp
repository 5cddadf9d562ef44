#include "plugin/standalone/LoopPlayer.h"

namespace QVM_NAMESPACE {

namespace {
constexpr int silentDeviceFrames = 512;
constexpr int outputChannels = 2;
} // namespace

LoopPlayer::LoopPlayer(SlantwiseProcessor& processor, AudioClip clip)
    : juce::Thread("Slantwise silent device"), processor_(processor), source_(std::move(clip)) {
    const juce::String error = devices_.initialiseWithDefaultDevices(0, outputChannels);
    if (error.isEmpty() && devices_.getCurrentAudioDevice() != nullptr) {
        deviceName_ = devices_.getCurrentAudioDevice()->getName().toStdString();
        devices_.addAudioCallback(this);
    } else {
        prepare(source_.sampleRateHz, silentDeviceFrames);
        startThread();
    }
}

LoopPlayer::~LoopPlayer() {
    devices_.removeAudioCallback(this);
    stopThread(1000);
    processor_.releaseResources();
}

void LoopPlayer::prepare(double sampleRateHz, int maxFrames) {
    clip_ = resampled(source_, sampleRateHz);
    at_ = 0;
    buffer_.setSize(outputChannels, maxFrames);
    processor_.setPlayConfigDetails(outputChannels, outputChannels, sampleRateHz, maxFrames);
    processor_.prepareToPlay(sampleRateHz, maxFrames);
}

void LoopPlayer::audioDeviceAboutToStart(juce::AudioIODevice* device) {
    prepare(device->getCurrentSampleRate(), device->getCurrentBufferSizeSamples());
}

void LoopPlayer::audioDeviceIOCallbackWithContext(const float* const*, int, float* const* out, int outChannels,
                                                  int frames, const juce::AudioIODeviceCallbackContext&) {
    render(out, outChannels, frames);
}

void LoopPlayer::run() {
    const double framesPerMs = clip_.sampleRateHz / 1000;
    const double start = juce::Time::getMillisecondCounterHiRes();
    while (!threadShouldExit()) {
        render(nullptr, 0, silentDeviceFrames);
        const double due = start + static_cast<double>(framesPlayed()) / framesPerMs;
        const double ahead = due - juce::Time::getMillisecondCounterHiRes();
        if (ahead >= 1) wait(static_cast<int>(ahead));
    }
}

void LoopPlayer::render(float* const* out, int outChannels, int frames) {
    for (int done = 0; done < frames;) {
        const int chunk = std::min(frames - done, buffer_.getNumSamples());
        for (int i = 0; i < chunk; ++i) {
            for (int c = 0; c < outputChannels; ++c) {
                const auto source = std::min(static_cast<std::size_t>(c), clip_.channels.size() - 1);
                buffer_.setSample(c, i, clip_.channels[source][at_]);
            }
            at_ = at_ + 1 == clip_.frames() ? 0 : at_ + 1;
        }
        juce::AudioBuffer<float> block(buffer_.getArrayOfWritePointers(), outputChannels, chunk);
        midi_.clear();
        processor_.processBlock(block, midi_);
        for (int c = 0; c < outChannels; ++c) {
            if (out[c] != nullptr) {
                juce::FloatVectorOperations::copy(out[c] + done, block.getReadPointer(c % outputChannels), chunk);
            }
        }
        done += chunk;
    }
    played_.fetch_add(static_cast<std::uint64_t>(frames), std::memory_order_relaxed);
}

} // namespace QVM_NAMESPACE
