// The main continuous control: a track with a handle that carries the value, upright or (for a horizontal parameter)
// lying.
//
// A drag is absolute; with the fine modifier it is relative and slowed. A click on the track moves the handle there, a
// click on a mark sets the mark's value. Values pushed in from outside do not move a handle that is being dragged.
// Members of a low/high pair have no track of their own: their handles hang above or below the pair's. Main thread
// only.
#pragma once

#include "controls/QVMFloatControl.h"
#include "controls/SliderLayers.h"
#include "platform/runloop/DelayedCall.h"

namespace QVM_NAMESPACE {

enum class SendAction : bool { no, yes };
enum class ValueOrigin : bool { model, interaction };

class QVMVerticalSlider : public QVMFloatControl, public QVMTransientBufferDisplay {
public:
    QVMVerticalSlider(const Rect& frame, const QVMParameter& parameter);

    // Geometry: points along the slider's axis, of the handle's centre.
    bool horizontal() const { return layers_.axis().horizontal; }
    double lowest() const { return layers_.axis().lowest; }
    double highest() const { return layers_.axis().highest; }
    double range() const { return layers_.axis().range(); }
    void calculateSliderPixelExtents() { layers_.calculateExtents(); }
    double relevantFromPoint(Point point) const { return layers_.axis().coordinateOf(point); }
    // Rounded to whole points; the lowest position for a value that has none.
    double positionValueFromFloatValue(float value) const;
    float floatValueFromPositionValueGranularity(double position, std::int32_t granularity) const;
    // Where the handle belongs, and where its layer is.
    double idealHandleValue() const { return positionValueFromFloatValue(floatValue()); }
    double handleValue() const { return layers_.handlePosition(); }

    // Moving. Positions are clamped to the track; the handle snaps to the place of the value that results.
    void normalizeAndMoveToPositionAnimateSendActionGranularity(double position, Animate animate, SendAction send,
                                                                std::int32_t granularity);
    void updatePositionFloatValueAnimateSendAction(double position, float value, Animate animate, SendAction send);
    void moveToExactFloatValue(float value);
    // How much slower than the pointer a drag is at a value; 1 unless fine.
    double diffMultForGranularityFloatValue(std::int32_t granularity, float value) const;

    void setFloatValue(float value) override { setFloatValueFromInteraction(value, ValueOrigin::model); }
    // A value of the user's own waits while the handle is held or gliding; a newer value of any origin replaces it.
    void setFloatValueFromInteraction(float value, ValueOrigin origin);
    void resetToInitialValue() override;
    bool dragging() const { return dragging_; }
    bool writeLocked() const { return writeLocked_; }
    // Whether the handle has been placed at all; the first time it does not glide.
    bool setOnce() const { return setOnce_; }
    const std::vector<QVMCueRect>& cueRects() const { return layers_.cueRects(); }

    // Text. Makes the handle as wide as its widest value needs, but not narrower than usual.
    void sizeReadoutToFitWidestValue() { layers_.sizeHandleToFitWidestValue(); }
    AttributedString potentiallyShrunkenVersionOfString(const AttributedString& text) const;
    static AttributedString formattedReadoutStringForValueSuffixFontSize(const std::string& value,
                                                                         const std::optional<std::string>& suffix,
                                                                         double fontSize);
    void displayTransientBufferValue(const AttributedString& text) override;
    void discardTransientBufferValue() override;
    bool displayingTransientBufferValue() const override { return displayingTransientBufferValue_; }
    void setDisplayingTransientBufferValue(bool displaying) override;
    double transientStringPreferredFontSize() const override;

    // What is seen: where it stands, and its parts by name.
    const SliderLayers& layers() const { return layers_; }
    const std::shared_ptr<Layer>& background() const { return layers_.background(); }
    const std::shared_ptr<Layer>& readoutBulb() const { return layers_.bulb().bulb(); }
    const std::shared_ptr<ShapeLayer>& readoutBg() const { return layers_.bulb().background(); }
    const std::shared_ptr<ShapeLayer>& readoutBorder() const { return layers_.bulb().border(); }
    const std::shared_ptr<TextLayer>& readout() const { return layers_.bulb().text(); }
    // Adds a view that covers the slider and is seen in the track only, below the scale and the handle. It takes no
    // clicks.
    template <class T>
    T& addInTrack(std::unique_ptr<T> view) {
        T& added = *view;
        layers_.addInTrack(std::move(view));
        return added;
    }

    void handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities&) override;
    void handleMouseDraggedWithEventGranularities(const QVMEvent& event,
                                                  const QVMGranularities& granularities) override;
    void pressDidEnd(const QVMEvent& event) override;
    void handleMetaActionWithEvent(std::int32_t code, const QVMEvent* event) override;
    void themeUpdated() override;
    void setDimmed(bool dimmed) override;
    void frameDidChange() override { layOut(); }
    void viewDidMoveToWindow() override { layOut(); }
    void viewDidChangeBackingProperties() override { layOut(); }
    void mouseEntered(const Event& event) override { mouseMoved(event); }
    void mouseMoved(const Event& event) override;
    void mouseExited(const Event& event) override;

    // Named by the contract and not used in this product: the point on the track at a position.
    Point pointFromRelevant(double position) const { return layers_.axis().pointAt(position); }

protected:
    // Places and colours everything; the handle is moved at once.
    virtual void layOut();
    void setDragging(bool dragging) { dragging_ = dragging; }

private:
    float valueReachedAt(double position, std::int32_t granularity) const;
    bool handleCueClick(Point point);
    void dragFine(double position, bool reanchor);
    void setDisplayText(float value);
    void retrySettingLatentValue() { setFloatValueFromInteraction(latentValue_, ValueOrigin::interaction); }
    void showBulbState();

    double clickOffset_ = 0;                            // from the handle's centre to where it was grabbed
    double percentageWas_ = 0, naivePercentageWas_ = 0; // fine drag: under the pointer, and reached, unclamped
    double simDiff_ = 0;                                // from the pointer of a replayed gesture to this handle
    bool dragging_ = false, writeLocked_ = false, setOnce_ = false;
    float latentValue_ = 0; // waits for the handle to be free
    bool displayingTransientBufferValue_ = false;
    bool isHandleHovered_ = false, isHandlePressed_ = false;
    SliderLayers layers_;
    DelayedCall retry_;
};

} // namespace QVM_NAMESPACE
