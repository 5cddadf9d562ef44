// Whether the response curve has a spectrum behind it, and which. Main thread only.
#pragma once

#include "platform/runloop/NotificationCenter.h"
#include "viz/displays/SpectrumMode.h"

namespace QVM_NAMESPACE {

class QVMParameterSketch;
class SpectrumBackdrop;

class EditorSpectrum {
public:
    // The key of the preference that it is kept under; its values are the numbers of the modes.
    static constexpr const char* preferenceKey = "spectrum";

    EditorSpectrum();

    // The curve, once there is one; it outlives this or is followed by null.
    void setSketch(QVMParameterSketch* sketch);

    SpectrumMode mode() const { return mode_; }
    void setMode(SpectrumMode mode);
    // A mode that was kept, also before there is a curve; for a number that none has it is off.
    void restore(double kept);

    // What shows it; null while it is off.
    SpectrumBackdrop* shown() const;

private:
    void apply();

    SpectrumMode mode_ = SpectrumMode::off;
    QVMParameterSketch* sketch_ = nullptr;
    ObservationToken themeUpdates_;
};

} // namespace QVM_NAMESPACE
