// How the live pictures and the audio unit come together: the pictures are set up for what the unit processes, the unit
// is given the object that they share with it, and what they hear of it counts from then on. Main thread only.
#pragma once

#include "description/ParameterTypes.h"
#include "viz/sketches/QVMParameterSketchDelegate.h"

namespace QVM_NAMESPACE {

class QVMGenericUI;

class SketchHandover final : public QVMParameterSketchDelegate {
public:
    // The editor is borrowed; nothing is asked of it here. The channels are the unit's.
    SketchHandover(QVMGenericUI& ui, QVMChannelPair channels) : ui_(ui), channels_(channels) {}

    // Makes the pictures. Once, and not in an editor that has no place for them yet.
    void addSketches();

    // QVMParameterSketchDelegate: until the unit has the object it is handed over, and nothing is received.
    StatesAre sketchHasUpdatedParameterStates(QVMParameterSketch& sketch, const QVMParameterState* states) override;
    void sketchDidChangeVisibility(QVMParameterSketch& sketch) override;

private:
    QVMGenericUI& ui_;
    const QVMChannelPair channels_;
};

} // namespace QVM_NAMESPACE
