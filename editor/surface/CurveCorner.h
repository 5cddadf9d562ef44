// A corner of the response curve that can be taken hold of: a frequency that moves along the curve.
//
// A value control like the sliders, with their gestures, steps and keys; only where a value stands is the curve's
// matter, and asked of the site. Main thread only.
#pragma once

#include "controls/QVMFloatControl.h"
#include "controls/QVMTransientBufferDisplay.h"
#include "editor/surface/CurveScale.h"

#include <memory>
#include <string>

namespace QVM_NAMESPACE {

class CurveCorner;
class ShapeLayer;

// The curve that corners stand on.
class CurveCornerSite {
public:
    virtual ~CurveCornerSite() = default;
    virtual const CurveScale& scale() const = 0;
    // Of an event, in points of the curve's view.
    virtual double pointerX(const Event& event) = 0;
    // The value or the typed text is another one.
    virtual void cornerDidChange(CurveCorner& corner) = 0;
    // The user turns to the corner, or does something with it.
    virtual void cornerWasUsed(CurveCorner& corner) = 0;
    // The keyboard is elsewhere now, or the press over.
    virtual void cornerWasLeft(CurveCorner& corner) = 0;
};

class CurveCorner final : public QVMFloatControl, public QVMTransientBufferDisplay {
public:
    // Of the view, points; what is seen is smaller, and in its middle.
    static constexpr double hitSize = 24, discRadius = 4;

    CurveCorner(const Rect& frame, const QVMParameter& parameter);

    // Borrowed, and there before anything is done with the corner.
    void setSite(CurveCornerSite& site) { site_ = &site; }
    // A tilt's is a disc, a filter's a ring; `ground` is what the curve stands on.
    enum class Shape : bool { disc, ring };
    // Of all that is drawn of it at rest, points.
    static double shownRadius(Shape shape);
    void setLook(Shape shape, Color ground);
    // Of a filter that is off: fainter.
    void setOff(bool off);
    bool isOff() const { return off_; }

    bool isPressed() const { return pressed_; }
    // Whether the pointer is over it, which the site knows: it moves away from under a pointer that rests.
    bool isHovered() const { return hovered_; }
    void setHovered(bool hovered);
    // What is being typed, while something is.
    const std::string& typedText() const { return typed_; }

    void setFloatValue(float value) override;
    void setHighlit(bool highlit) override;
    void resetToInitialValue() override;
    bool incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity) override;
    void handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities& granularities) override;
    void handleMouseDraggedWithEventGranularities(const QVMEvent& event,
                                                  const QVMGranularities& granularities) override;
    void pressDidEnd(const QVMEvent& event) override;

    // QVMTransientBufferDisplay: the site shows what is typed.
    void displayTransientBufferValue(const AttributedString& text) override;
    void discardTransientBufferValue() override;
    bool displayingTransientBufferValue() const override { return typing_; }
    void setDisplayingTransientBufferValue(bool displaying) override;
    double transientStringPreferredFontSize() const override;

private:
    void moveTo(double hertz, std::int32_t granularity);
    double fineShare() const;
    void showState();
    void showLook();

    CurveCornerSite* site_ = nullptr;
    std::shared_ptr<ShapeLayer> halo_, marker_;
    double clickOffset_ = 0;             // points from the value to where it was taken hold of
    double pointerWas_ = 0, fineAt_ = 0; // points: of a fine drag, the pointer and what it has come to
    Shape shape_ = Shape::disc;
    Color ground_;
    bool off_ = false;
    bool pressed_ = false, hovered_ = false, typing_ = false;
    std::string typed_;
};

} // namespace QVM_NAMESPACE
