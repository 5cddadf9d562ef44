// The live pictures: the response curve, the meter in the track of its slider, and the numeric meter; where they stand,
// and what is said about them.
//
// Made half a second after the editor; before that there are none, and nothing here does anything. Main thread only.
#pragma once

#include "editor/session/EditorValues.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/EditorSpectrum.h"
#include "platform/runloop/NotificationCenter.h"

#include <functional>
#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class ClipLight;
class CurveNumbers;
class NumericMeterReading;
class PBGLSketchAbstract;
class ParameterControls;
class QVMMeterButton;
class QVMParameterSketch;
class QVMParameterSketchDelegate;
class QVMPowerBox;
struct PBSketch;

class EditorSketches {
public:
    // How the sketches' drawing object is set up.
    struct Settings {
        double sampleRate = 44100; // hertz
        std::uint32_t maxFrames = 512;
        float scale = 1; // device pixels a point
        std::uint32_t chanIn = 0, chanOut = 0;
    };

    // All borrowed.
    EditorSketches(const QVMConfig& config, EditorValues& values, ParameterControls& controls);
    ~EditorSketches();

    // The button of the numeric meter, where the description has one; a press on it is `tapped`. To be made before the
    // sketches.
    void addNumericMeter(QVMPowerBox& box, std::function<void()> tapped);
    // Makes the curve in the box, and each further sketch in the track of its parameter's slider. They show what the
    // controls show, and fade in. What the unit holds goes to the values once the delegate says that it is the unit's.
    void add(QVMPowerBox& box, const QVMEditorLayout& layout, QVMParameterSketchDelegate& delegate,
             const Settings& settings);
    // The response curve, which hands its frames to the meter too. Null before there are sketches.
    QVMParameterSketch* main() const { return sketch_; }
    // What the curve tells where it is large. Null before there are sketches.
    CurveNumbers* numbers() const { return numbers_; }
    // A frame of the curve was prepared.
    void curveDidChange();

    // Behind the curve; what is asked of it before there is one counts from then on.
    EditorSpectrum& spectrum() { return spectrum_; }

    void assumeLayout(const QVMEditorLayout& layout);
    void scaleDidChange();
    // -1 for none.
    void setFocusedPid(std::int32_t pid);

    // Shows or hides the curve and the meter, as a click on the curve does; then visibilityDidChange() follows.
    void toggleVisibility();
    bool areHidden() const;
    void visibilityDidChange(QVMPowerBox& box);
    // Shows the curve as a ghost, while the audio passes unchanged; also before there are sketches.
    void setGhosted(bool ghosted);
    // A meter's mode, which has no control, is told with the name of the slider that the meter stands in.
    void describeMeters();

private:
    void addAuxiliarySketch(const PBSketch& description, const Settings& settings);
    void showGhost();
    void takeMeterInk();
    void showMemoizedValues(PBGLSketchAbstract& vizRef) const;
    void describeCurve();

    const QVMConfig& config_;
    EditorValues& values_;
    ParameterControls& controls_;
    QVMParameterSketch* sketch_ = nullptr; // owned by the power box
    CurveNumbers* numbers_ = nullptr;      // owned by the sketch
    EditorSpectrum spectrum_;
    std::vector<ClipLight*> clipLights_; // owned by the sliders with the meters
    bool isGhosted_ = false;
    bool isCurveAlone_ = false; // in the layout without controls
    ObservationToken themeObservation_;
    std::unique_ptr<NumericMeterReading> numericMeterReading_; // null without a meter
};

} // namespace QVM_NAMESPACE
