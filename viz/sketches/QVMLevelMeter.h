// A peak meter of several channels on the scale of the slider that it stands in.
//
// The audio side writes levels into words that the meter may share with it, and each frame takes the highest one since
// the last. Everything else, from the ballistics to the bars, is the main thread's. Levels are in dB, times of `dt` in
// seconds, time constants in milliseconds.
#pragma once

#include "link/LevelWords.h"
#include "platform/surface/Color.h"
#include "rings/QVMAudioBuffer.h"
#include "viz/sketches/PBGLSketchAbstract.h"

#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class QVMLevelMeter {
public:
    struct Offset {
        float x = 0; // points
        float y = 0;
    };

    struct Channel {
        explicit Channel(SharedWord<float>& word) : level(word) {}

        bool clampFill = true;
        bool slewEnabled = true;  // otherwise the display follows the level at once
        bool atRest = false;      // faded out completely: it and all channels behind it are not drawn
        Offset offset;            // of the bar from the parameter's track
        SharedWord<float>& level; // the latest peak, a word of LevelWords; written by the audio side
        float unfedSeconds = 0;   // since a frame has taken one
        float display = 0;        // the level after the ballistics
        float clip = 0;           // how much the clip indicator is lit, 0 to 1
        float fill = 0;           // how much of the bar is filled, 0 to 1
        float opacityTarget = 1;
        float opacity = 1;
        Color colourEmpty = {0, 0, 0, 0.5f};
        Color colourFull = {0, 0, 0, 0.5f};
        Color colourClip = {1, 0, 0, 0.5f};
        float attackMs = 10;
        float releaseMs = 250;
        int style = 0; // a bar; there is no other
    };

    // Posted with the drawing object as its sender: with each frame in which a channel reached full scale, and with one
    // that began anew (reset()).
    static constexpr const char* clippedNotification = "QVMLevelMeterClippedNotification";
    static constexpr const char* resetNotification = "QVMLevelMeterResetNotification";

    using ScaleMapping = float (*)(unsigned pid, float value);

    // Every channel stands at the minimum of the canvas's parameter. The levels are in words of the meter's own.
    QVMLevelMeter(PBGLCanvas canvas, int numChannels);
    // Shows the levels in `words`, which outlive the meter: a bar for each of their channels.
    QVMLevelMeter(PBGLCanvas canvas, LevelWords& words);

    // Takes another canvas, for example at another scale; the levels stay. Main thread, also while audio is processed.
    void setCanvas(const PBGLCanvas& canvas);

    int numChannels() const { return static_cast<int>(channels_.size()); }
    Channel& channel(int index) { return channels_[static_cast<std::size_t>(index)]; }
    const Channel& channel(int index) const { return channels_[static_cast<std::size_t>(index)]; }
    float marker() const { return marker_; } // where the parameter's own value is on the scale, 0 to 1
    // Asks the words: LevelWords::reset(). With the next frame the bars begin at the bottom and no clip indicator is
    // lit. Any thread.
    void reset() { words_.reset(); }

    // Main thread from here on. One step of a channel's ballistics and of its clip indicator, towards the highest level
    // since the last one. A step of no time takes no level.
    void slew(float dt, int channel);
    // One frame: ballistics, the fill from the displayed level through a scale, and the fading. The result tells
    // whether the bars look different now.
    Redraw prepareForDrawing(float dt, ScaleMapping toScale, unsigned pid);
    void glDraw(PBGLCanvas canvas, DrawingSurface& surface) const;
    // What the last frame found.
    bool isClipping() const { return isClipping_; }
    bool wasReset() const { return wasReset_; }

    // What a channel's bar covers (points, y upwards) and its colour, as they are drawn: with the canvas's ink, or in
    // the channel's own colours.
    PBRect barRect(const PBGLCanvas& canvas, int channel) const;
    Color barColour(int channel, const std::optional<MeterInk>& ink = std::nullopt) const;

    // Named by the contract and not used in this product, which posts its peaks into words that it shares with the
    // meter. Audio for the meter itself: the largest absolute sample (NaN counts for nothing) becomes the channel's
    // level, within `range`. One thread a channel; never waits, so the render thread may call it. The buffer and the
    // array hold `nFrames` frames, and a level stands for `seconds` (LevelWords::setStandingSeconds()).
    void processAudio(const QVMAudioBuffer<float>* buffer, unsigned nFrames, QVMFloat32Range range, int channel);
    void processAudio(const QVMAudioBuffer<double>* buffer, unsigned nFrames, QVMFloat32Range range, int channel);
    void processAudio(const float* samples, unsigned nFrames, QVMFloat32Range range, int channel);
    void processAudio(const double* samples, unsigned nFrames, QVMFloat32Range range, int channel);
    void setLevelSeconds(float seconds) { words_.setStandingSeconds(seconds); }
    // And frames with another fill: from the displayed level as it is or through a mapping, neither of which fades, or
    // through a scale beside a marker for the parameter's own value.
    Redraw prepareForDrawing(float dt);
    Redraw prepareForDrawingWithMapping(float dt, float (*map)(float));
    Redraw prepareForDrawingWithParameterValue(float dt, float parameterValue, ScaleMapping toScale, unsigned pid);

private:
    // A bar as the eye can tell it from another: ends in fractions of a device pixel, components in steps.
    struct Look {
        int length = 0;
        int red = 0, green = 0, blue = 0, alpha = 0;
        bool operator==(const Look&) const = default;
    };
    QVMLevelMeter(PBGLCanvas canvas, std::unique_ptr<LevelWords> words);
    void addChannels();
    void post(float decibels, int channel) { words_.post(static_cast<std::size_t>(channel), decibels); }
    float levelOfFrame(float dt, int channel);
    template <class Fill>
    void advance(float dt, Fill fillFor);
    void fade(float dt);
    Redraw compareLooks();
    Look lookOf(int channel) const;

    PBGLCanvas canvas_;
    const std::unique_ptr<LevelWords> ownWords_; // null when they are somebody else's
    LevelWords& words_;
    std::vector<Channel> channels_;
    std::vector<Look> looks_; // of the frame before
    float marker_ = 0;
    bool isClipping_ = false, wasReset_ = false;
};

} // namespace QVM_NAMESPACE
