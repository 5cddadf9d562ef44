// One clump on screen: its heading, its labels, the lines inside it, and the controls that stand on it.
//
// The panel below belongs to the view around the clumps, so that dimming a clump fades what is on it and not the panel.
// Main thread only.
#pragma once

#include "description/QVMClump.h"
#include "editor/surface/LabelLayer.h"
#include "editor/surface/ThemedView.h"

#include <vector>

namespace QVM_NAMESPACE {

class QVMParameterControl;

class QVMClumpView final : public ThemedView {
public:
    // The record outlives the view.
    QVMClumpView(const Rect& frame, QVMClump& clump);

    QVMClump& clump() const { return clump_; }
    // The parameter controls among the subviews, in subview order.
    std::vector<QVMParameterControl*> parameterControls() const;

    bool dimmed() const { return dimmed_; }
    // Dims every control in a ripple that starts after `delay` seconds, then fades the view itself.
    void setDimmedDelayPriority(bool dimmed, double delay, std::uint32_t priority);

    // The delays, in seconds, of so many controls in subview order.
    static std::vector<double> rippleDelays(std::size_t count, double delay);

    // Where content may stand, in own coordinates: inside the clump's insets.
    Rect useableRect() const;
    // The rounded outline, in own coordinates, that is drawn for a clump which names edges.
    Rect newRoundedBorderRect() const;

    void themeUpdated() override;
    // What hits no control goes to the views below: the master clump lies over the power box.
    View* hitTest(Point pointInSuperview) override;

private:
    enum class LabelKind : std::uint8_t { heading, label };
    struct Label {
        LabelLayer label;
        LabelKind kind;
    };
    void addLabels();
    void addOutline();
    void addInteriorBorders();
    void addLabel(LabelContent content, LabelKind kind);
    void addInteriorBorder(const Rect& box);
    Color headingColor() const;

    QVMClump& clump_;
    std::vector<Label> labels_;
    std::vector<std::shared_ptr<Layer>> interiorBorders_;
    std::shared_ptr<Layer> outline_;
    bool dimmed_ = false;
};

} // namespace QVM_NAMESPACE
