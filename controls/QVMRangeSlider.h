// The common track of a low/high pair, with the band between the two values.
//
// It shows both values and edits neither: its gestures go to the delegate, which performs them on both ends. Of the two
// that stand in the same place, the one that is not interactive draws; the other only answers the pointer. Main thread
// only.
#pragma once

#include "controls/QVMVerticalSlider.h"

namespace QVM_NAMESPACE {

class QVMRangeSlider final : public QVMVerticalSlider {
public:
    QVMRangeSlider(const Rect& frame, const QVMParameter& parameter);

    // The two values as they were given last, shown domain.
    double low() const { return low_; }
    double high() const { return high_; }
    // Whether it answers the pointer rather than draws. At first it draws.
    bool interactive() const { return interactive_; }
    void setInteractive(bool interactive);

    // Shows two values, gliding there in `seconds` (0: at once).
    void updateForLowHighAnimation(double low, double high, double seconds);
    const std::shared_ptr<Layer>& band() const { return band_; }
    // The frequencies that are written in the track, lowest first.
    const std::vector<std::shared_ptr<TextLayer>>& numbers() const { return numbers_; }

    bool doLimit() const override { return false; }
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): it has no handle to move
    void setFloatValue(float value) override { QVMFloatControl::setFloatValue(value); }
    // The focus border goes around the band.
    void setHighlit(bool highlit) override;
    // Asks for a reset of both ends, each a whole gesture.
    void resetToInitialValue() override;
    void handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities&) override;
    void handleMouseDraggedWithEventGranularities(const QVMEvent& event, const QVMGranularities&) override;
    void pressDidEnd(const QVMEvent& event) override;
    void mouseMoved(const Event&) override { showHover(true); }
    void mouseExited(const Event&) override { showHover(false); }

    // Named by the contract and not used in this product: whose the two values are, and a flag that is only kept.
    std::uint32_t lowPid() const { return lowPid_; }
    void setLowPid(std::uint32_t pid) { lowPid_ = pid; }
    std::uint32_t highPid() const { return highPid_; }
    void setHighPid(std::uint32_t pid) { highPid_ = pid; }
    bool pairing() const { return pairing_; }
    void setPairing(bool pairing) { pairing_ = pairing; }

protected:
    void layOut() override;

private:
    void performMetaAction(std::int32_t code, const QVMEvent* event);
    void updatePositionForLowHighAnimation(double seconds);
    void layOutFrequencies();
    void layOutNumbers();
    Path ticks() const;
    void showHover(bool hovered);

    double low_ = 0, high_ = 0;
    std::uint32_t lowPid_ = 0, highPid_ = 0;
    bool pairing_ = false, interactive_ = false;
    bool holdsEnds_ = false; // a press has been performed on both ends, and must end there
    std::shared_ptr<Layer> band_, hoverLight_, numberLayer_;
    std::shared_ptr<ShapeLayer> ticks_;
    std::vector<std::shared_ptr<TextLayer>> numbers_;
};

} // namespace QVM_NAMESPACE
