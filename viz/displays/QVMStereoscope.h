// Where the energy of each frequency sits in the stereo field.
//
// A half disc that stands on the canvas's bottom edge: the distance from its centre is frequency (low inside, even on a
// logarithmic scale), the direction is position (hard left and hard right lie flat, the middle stands upright). Each
// band is an arc. Its place is where its energy sits, its length how far that is spread, its brightness the level. A
// sound that both sides have in phase has the sketch's colour; the more the phases differ, the more the hue turns away
// from it and the stronger it gets, up to the opposite hue for sides that cancel each other out in mono.
#pragma once

#include "platform/surface/StrokeGeometry.h"
#include "viz/analysis/QVMDFT2.h"
#include "viz/analysis/StereoSpectrum.h"
#include "viz/analysis/StereoTap.h"
#include "viz/sketches/PBGLSketchAbstract.h"

#include <memory>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class QVMStereoscope {
public:
    // `sampleRate` is in hertz. Main thread, before audio is processed.
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames);

    // Audio side: takes a block of one or two channels; others are left out. Never waits or allocates: while the
    // drawing side reads, the block is dropped.
    void processAudio(const QVMAudioBuffer<float>* buffer, unsigned nFrames);

    // Main thread from here on. Analyses the window that starts at a frame of the tap, into the arrays below.
    void processAudioData(int offset);
    // The rings at 100 Hz, 1 kHz and 10 kHz, and the directions.
    void drawBackground(DrawingSurface& surface) const;
    // Moves on by `dt` seconds and analyses, if there is audio to move on in.
    Redraw prepareForDrawing(float dt);
    void glDraw(DrawingSurface& surface);
    // A ring around the half disc's centre, the radius in points.
    void glCircle(DrawingSurface& surface, float radius, int segments) const;

    unsigned fftSize() const { return fftSize_; }
    unsigned numBins() const { return numBins_; }
    // A Hann window whose squares have a mean of 1. With it, a sine at full scale in one bin reads -1.76 dB.
    std::span<const float> window() const { return window_; }
    std::span<const float> pan() const { return pan_; }         // of each bin, -1 left to 1 right
    std::span<const float> width() const { return width_; }     // 0 mono to 1 opposite phases
    std::span<const float> levelDb() const { return levelDb_; } // -128 to 0
    const StereoSpectrum& spectrum() const { return spectrum_; }
    StereoTap& tap() { return tap_; }

    // Where a frequency's ring is, in points from the centre; and a point of a ring (position -1 to 1) on the canvas.
    float radiusOf(float hertz) const;
    Vertex pointAt(float radius, float position) const;

private:
    struct Spectrum {
        std::vector<float> re, im;
    };
    void transform(std::vector<float>& samples, Spectrum& out);
    void magnitudeOf(const Spectrum& spectrum, std::vector<float>& out) const;
    void addBand(std::size_t index, const StereoSpectrum::Band& band);

    PBGLCanvas canvas_;
    double sampleRate_ = 0; // hertz
    unsigned fftSize_ = 0, numBins_ = 0;
    StereoTap tap_;
    std::unique_ptr<QVMDFT2<float>> dft_;
    std::vector<float> window_;
    std::vector<float> pan_, width_, levelDb_; // one a bin
    StereoSpectrum spectrum_;
    // Work space.
    std::vector<float> left_, right_;                  // samples
    Spectrum leftBins_, rightBins_, sumBins_;          // transforms
    std::vector<float> atLeft_, atRight_, mid_, side_; // magnitudes; then amplitudes in atLeft_
    std::vector<Vertex> corners_;
    std::vector<Color> colours_;
};

} // namespace QVM_NAMESPACE
