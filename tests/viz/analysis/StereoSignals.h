// Stereo test signals of which one knows what the displays must show, and displays fed with them.
#pragma once

#include "rings/QVMAudioBuffer.h"
#include "viz/sketches/PBGLCanvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>

namespace QVM_NAMESPACE {

enum class Signal { silence, sine, mono, left, right, wide, opposite };

struct NamedSignal {
    const char* name;
    Signal signal;
};
// The sine and `mono` (noise) are the same on both sides, `wide` is independent noise, `opposite` noise and its
// negative.
inline constexpr std::array<NamedSignal, 6> kSignals = {{{"sine", Signal::sine},
                                                         {"mono", Signal::mono},
                                                         {"left", Signal::left},
                                                         {"right", Signal::right},
                                                         {"wide", Signal::wide},
                                                         {"opposite", Signal::opposite}}};

class SignalSource {
public:
    SignalSource(Signal signal, double sampleRate) : signal_(signal), rate_(sampleRate) {}

    // The next frames, at most those of the buffer; valid until the next call.
    QVMAudioBuffer<float>& next(unsigned frames) {
        if (block_.capacity < frames) block_.alloc(frames);
        for (unsigned i = 0; i < frames; ++i) {
            const auto [left, right] = sample();
            block_.channels[0][i] = left;
            block_.channels[1][i] = right;
        }
        return block_;
    }

private:
    float noise() { return 0.25f * std::clamp(normal_(random_), -3.0f, 3.0f); }
    std::array<float, 2> sample() {
        if (signal_ == Signal::silence) return {0, 0};
        if (signal_ == Signal::sine) {
            phase_ = std::fmod(phase_ + 440 / rate_, 1.0);
            const auto value = static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * phase_));
            return {value, value};
        }
        const float value = noise();
        if (signal_ == Signal::mono) return {value, value};
        if (signal_ == Signal::left) return {value, 0};
        if (signal_ == Signal::right) return {0, value};
        if (signal_ == Signal::opposite) return {value, -value};
        return {value, noise()};
    }

    Signal signal_;
    double rate_, phase_ = 0;
    std::mt19937 random_{1};
    std::normal_distribution<float> normal_;
    QVMAudioBuffer<float> block_{2};
};

inline constexpr unsigned kBlock = 512;
inline constexpr float kFrame = 1.0f / 60; // seconds

inline PBGLCanvas displayCanvas(float width = 240, float height = 240, float scale = 1) {
    PBGLCanvas canvas;
    canvas.sketch.color = {0.3f, 0.7f, 0.95f};
    canvas.width = width;
    canvas.height = height;
    canvas.scale = scale;
    return canvas;
}

// Runs a display as a player and a screen would: blocks as they fall due, then a frame. `process(buffer, frames)` takes
// a block, `prepare(dt)` a frame.
template <class Process, class Prepare>
void play(SignalSource& source, double sampleRate, int frames, Process&& process, Prepare&& prepare) {
    double due = 0;
    for (int i = 0; i < frames; ++i) {
        for (due += sampleRate * double{kFrame}; due >= kBlock; due -= kBlock)
            process(source.next(kBlock), kBlock);
        prepare(kFrame);
    }
}

} // namespace QVM_NAMESPACE
