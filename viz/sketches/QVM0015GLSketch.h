// This product's drawing object: the response curve of the tilt equaliser and the output's level meter.
//
// The curve is a model of the effect at 48 kHz, whatever the host's rate is, computed from the display values of the
// parameter states. It reads whether a filter is on from the raw values, so that a filter comes and goes at once while
// its corner glides. Main thread only.
#pragma once

#include "description/ParameterIDs.h"
#include "response/QVMTiltEQ.h"
#include "viz/sketches/PBGLSketchAbstract.h"
#include "viz/sketches/QVMFreqResp.h"
#include "viz/sketches/QVMLevelMeter.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace QVM_NAMESPACE {

class QVM0015GLSketch final : public PBGLSketchAbstract {
public:
    void init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) override;
    Redraw prepareForDrawing(PBGLCanvas canvas, float duration) override;
    void glDraw(PBGLCanvas canvas, DrawingSurface& surface) override;

    // The whole response in dB at `freqs` (hertz, as many as the grid has) into `out`, and what is auditioned into
    // listenCurve(). Sets the display's reference level. The resonances are those of the grid's frequencies. `out` may
    // be response(), which is work space otherwise.
    void calcRespWithFreqs(const float* freqs, bool listenLow, bool listenHigh, float* out);
    // The bump of a resonance in dB at every grid point: `freq` in hertz, `reso` in dB, `order` of the filter it sits
    // on.
    void calcReso(float* out, float freq, float reso, float order);

    // What calcRespWithFreqs() is asked for each frame, from the parameter states.
    bool listensLow() const { return raw(pidFilterListenLow) == 1.0f; }
    bool listensHigh() const { return raw(pidFilterListenHigh) == 1.0f; }
    // Half the height of the vertical axis in dB: the tilt and a margin, and never less than 7.5.
    float axisDecibels() const;

    const QVMFreqResp& responseDisplay() const { return responseDisplay_; }
    int numPoints() const { return numPoints_; }
    std::span<const float> response() const { return response_; }
    std::span<const float> listenCurve() const { return listenCurve_; } // dB, once it was computed while one listens
    std::span<const float> loudnessWeights() const { return loudnessWeights_; }
    float loudnessWeightsRms() const { return loudnessWeightsRms_; }

    // Shows the levels of the shared state. Null until a meter's layer uses the object; from then on it stays.
    QVMLevelMeter* levelMeter() const { return levelMeter_.get(); }

private:
    struct Filter {
        float corner = 0;    // hertz
        float order = 0;     // slope in dB/octave over 6, not rounded
        float resonance = 0; // dB
        float direction = 0; // +1: attenuates above its corner, -1: below
    };
    using MaybeFilter = std::optional<Filter>;

    float raw(ParameterID pid) const { return parameterStates()[pid].value; }
    float display(ParameterID pid) const { return parameterStates()[pid].displayValue; }
    MaybeFilter lowFilter() const; // none while it is off
    MaybeFilter highFilter() const;
    QVMTiltEQ_LoudnessMode loudnessMode() const;

    void initResponseCurve(const PBGLCanvas& canvas);
    void initLevelMeter(const PBGLCanvas& canvas);
    Redraw prepareResponseCurve(float duration);
    Redraw prepareLevelMeter(float duration);
    void calcFilters(const MaybeFilter& low, const MaybeFilter& high);
    void calcListenCurve(const MaybeFilter& low, const MaybeFilter& high);
    void calcRemoved(const MaybeFilter& filter, float* out);
    void addResonance(const MaybeFilter& filter, float* out);

    QVMFreqResp responseDisplay_;
    std::unique_ptr<QVMLevelMeter> levelMeter_;

    // One value a grid point each.
    int numPoints_ = 0;
    std::vector<float> response_;        // the total, dB
    std::vector<float> hpMag_;           // the frequencies' logarithms, then work space of the loudness match
    std::vector<float> filterMag_;       // both filters, as twice the attenuation in nepers; then work space
    std::vector<float> listenCurve_;     // what is auditioned, dB
    std::vector<float> sinSq_;           // sin^2(pi f / 48000)
    std::vector<float> sinQuad_;         // its square
    std::vector<float> resoCurve_;       // one resonance, dB
    std::vector<float> loudnessWeights_; // amplitudes
    float loudnessWeightsRms_ = 0;
};

} // namespace QVM_NAMESPACE
