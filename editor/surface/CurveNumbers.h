// What the response curve tells in numbers, where it has the room: marks beside it, a reading near the pointer, and its
// corners, to be taken hold of.
//
// It lies over the curve and lets presses through to it that are not on a corner. A corner is a further control of a
// parameter that has one: it reports and sends as that does, and shows what that shows. Nothing of it is there while
// the curve is small or hidden. Main thread only.
#pragma once

#include "controls/ValueFollower.h"
#include "editor/session/EditorValues.h"
#include "editor/surface/CurveCorner.h"
#include "editor/surface/CurveMarks.h"
#include "editor/surface/CurveReadout.h"
#include "editor/surface/ThemedView.h"

#include <functional>
#include <optional>
#include <vector>

namespace QVM_NAMESPACE {

class ParameterControls;
class QVM0015GLSketch;
class QVMParameterControl;
class QVMParameterSketch;

class CurveNumbers final : public ThemedView, private CurveCornerSite, private ValueFollower {
public:
    // Points: what has less room stays as it is.
    static constexpr double leastWidth = 160;

    // To be added to the sketch, whose marks it puts below the curve. All are borrowed. `ground` is asked for what the
    // curve stands on, an opaque colour.
    CurveNumbers(QVMParameterSketch& sketch, const EditorValues& values, ParameterControls& controls,
                 std::function<Color()> ground);
    ~CurveNumbers() override;

    // The sketch has another box or pixels, or was hidden or shown.
    void fit();
    // The curve may look different; costs nothing when it does not.
    void curveDidChange();

    const CurveMarks& marks() const { return marks_; }
    const CurveReadout& readout() const { return readout_; }
    // Null where the parameter has no control.
    QVMParameterControl* corner(std::uint32_t pid) const;

    void themeUpdated() override;
    View* hitTest(Point pointInSuperview) override;
    void mouseMoved(const Event& event) override;
    void mouseDragged(const Event& event) override;
    void mouseUp(const Event& event) override;
    void mouseExited(const Event& event) override;

private:
    struct Corner {
        QVMParameterControl* control; // a subview
        QVMParameterControl* listed;  // the parameter's own; null once it is gone
        CurveCorner* handle;
        CurveCorner::Shape shape;
        Point center; // points
    };

    // CurveCornerSite
    const CurveScale& scale() const override { return scale_; }
    double pointerX(const Event& event) override;
    void cornerDidChange(CurveCorner& corner) override;
    void cornerWasUsed(CurveCorner& corner) override;
    void cornerWasLeft(CurveCorner& corner) override;
    // ValueFollower
    void followMember(const QVMParameterControl& member) override;
    void forgetMember(const QVMParameterControl& member) override;

    void addCorner(QVMParameterControl& listed, CurveCorner::Shape shape, ParameterControls& controls);
    const QVM0015GLSketch& curve() const;
    double yAt(double hertz) const;
    void update();
    void placeCorners();
    void placeMarks();
    static Rect shownBoxOf(const Corner& corner);
    void showHover();
    const Corner* cornerNear(Point point) const;
    void showReading();
    void letMarksGiveWay();
    CurveReadout::Content readingOf(const Corner& corner) const;
    CurveReadout::Content readingAt(double hertz) const;

    const QVMParameterSketch& sketch_;
    const EditorValues& values_;
    std::function<Color()> ground_;
    CurveMarks marks_;
    CurveReadout readout_;
    CurveScale scale_;
    std::vector<Corner> corners_;
    QVMParameterControl* power_ = nullptr; // of the master switch; null once it is gone
    std::optional<Point> pointer_;         // while it is over the curve, points
    const CurveCorner* used_ = nullptr;    // what the user turned to last, unless it is the pointer
    std::uint64_t shownVersion_ = 0;       // of the curve's picture
};

} // namespace QVM_NAMESPACE
