#include "controls/QVMFocusBorder.h"

#include "controls/PhaseShiftingAnimation.h"
#include "theme/Colors.h"

#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* kMarchingKey = "PhaseShift";
constexpr double kDashOn = 3, kDashOff = 2; // points, before stretching
constexpr double kPeriod = kDashOn + kDashOff;
constexpr int kPeriodsAMarch = 2;
constexpr double kBorderWidth = 2;
constexpr float kStrokeAlpha = 0.7f;

// Starts at (radius, 0) and runs through the four corners.
Path outline(Size size, double radius) {
    using std::numbers::pi;
    const double w = size.width, h = size.height;
    Path path;
    path.moveTo({radius, 0});
    path.addArc({w - radius, radius}, radius, -pi / 2, 0);
    path.addArc({w - radius, h - radius}, radius, 0, pi / 2);
    path.addArc({radius, h - radius}, radius, pi / 2, pi);
    path.addArc({radius, radius}, radius, pi, pi * 3 / 2);
    return path.close();
}

} // namespace

QVMFocusBorder::QVMFocusBorder(YAxis axis) : ShapeLayer(axis) {
    setName("focusBorder");
    setFillColor(QVMCGClearColor());
    setLineWidth(kBorderWidth);
    setLineDashPhase(0);
    setLineDashPattern({kDashOn, kDashOff});
    setLineStyle(LineCap::butt, LineJoin::round);
    ShapeLayer::setOpacity(0);
}

void QVMFocusBorder::updateWithFrameRounding(const Rect& frame, double rounding) {
    const double lengthWas = outlineLength();
    setPath(outline(frame.size(), rounding));
    rounding_ = rounding;
    setFrame(frame);
    if (opacity() > 0 && outlineLength() != lengthWas) animate(true);
}

void QVMFocusBorder::setStrokeNSColor(Color color) {
    strokeNSColor_ = color;
    setStrokeColor(color.withAlpha(kStrokeAlpha));
}

void QVMFocusBorder::setOpacity(double opacity) {
    ShapeLayer::setOpacity(opacity);
    animate(opacity > 0);
}

double QVMFocusBorder::outlineLength() const {
    const double perimeter = 2 * (frame().width + frame().height);
    return perimeter - 8 * rounding_ + 2 * std::numbers::pi * rounding_;
}

void QVMFocusBorder::animate(bool on) {
    const double length = outlineLength();
    const double periods = std::round(length / kPeriod);
    // An outline shorter than half a period has no dashes to fit.
    const double stretch = periods >= 1 ? length / (periods * kPeriod) : 1;
    setLineDashPattern({kDashOn * stretch, kDashOff * stretch});

    if (!on) return animations().remove(kMarchingKey);
    animations().add(PhaseShiftingAnimationToValue(kPeriodsAMarch * kPeriod * stretch), kMarchingKey);
}

} // namespace QVM_NAMESPACE
