#include "editor/surface/CurveNumbers.h"

#include "controls/ControlClasses.h"
#include "editor/surface/CornerPlaces.h"
#include "editor/surface/CurveReading.h"
#include "editor/surface/CurveTexts.h"
#include "editor/surface/FrameButton.h"
#include "editor/surface/NearestNote.h"
#include "editor/surface/ParameterControls.h"
#include "platform/view/Window.h"
#include "response/ResponseModel.h"
#include "viz/sketches/QVM0015GLSketch.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr struct {
    ParameterID pid;
    CurveCorner::Shape shape;
} kCorners[] = {{pidTiltRangeLow, CurveCorner::Shape::disc},
                {pidTiltRangeHigh, CurveCorner::Shape::disc},
                {pidFilterRangeLow, CurveCorner::Shape::ring},
                {pidFilterRangeHigh, CurveCorner::Shape::ring}};

constexpr float kMarkAlpha = 0.7f;
constexpr double kPowerOffAlpha = 0.5;
constexpr double kMarkGap = 2; // points between a corner and a mark

// A filter whose corner is at its end of the band is off.
bool isOff(CurveCorner::Shape shape, double hertz) {
    return shape == CurveCorner::Shape::ring && (hertz <= model::lowestHertz || hertz >= model::highestHertz);
}

} // namespace

CurveNumbers::CurveNumbers(QVMParameterSketch& sketch, const EditorValues& values, ParameterControls& controls,
                           std::function<Color()> ground)
    : ThemedView(sketch.bounds()), sketch_(sketch), values_(values), ground_(std::move(ground)) {
    layer()->setName("curveNumbers");
    sketch.layer()->tree().insert(marks_.layer(), 0);
    layer()->tree().add(readout_.layer());
    for (const auto& [pid, shape] : kCorners)
        if (QVMParameterControl* listed = controls.withPid(pid)) addCorner(*listed, shape, controls);
    power_ = controls.withPid(pidMasterOnOff);
    if (!power_) return;
    power_->addFollower(*this);
    CurveNumbers::followMember(*power_);
}

CurveNumbers::~CurveNumbers() {
    if (power_) power_->removeFollower(*this);
    for (const Corner& corner : corners_)
        if (corner.listed) corner.listed->removeFollower(*this);
}

void CurveNumbers::addCorner(QVMParameterControl& listed, CurveCorner::Shape shape, ParameterControls& controls) {
    auto made = std::make_unique<QVMParameterControl>(Rect{0, 0, CurveCorner::hitSize, CurveCorner::hitSize},
                                                      listed.parameter(), listed.floatValue(),
                                                      &makeFloatControl<CurveCorner>, Rect{});
    made->layer()->setName("corner:" + listed.parameter()->codesafeName);
    auto& handle = static_cast<CurveCorner&>(*made->primaryControl());
    handle.setSite(*this);
    listed.addFollower(*this);
    controls.addStandIn(*made);
    QVMParameterControl& control = addSubview(std::move(made));
    corners_.push_back({&control, &listed, &handle, shape, {}});
}

QVMParameterControl* CurveNumbers::corner(std::uint32_t pid) const {
    const auto found = std::find_if(corners_.begin(), corners_.end(),
                                    [pid](const Corner& each) { return each.control->parameter()->pid == pid; });
    return found == corners_.end() ? nullptr : found->control;
}

const QVM0015GLSketch& CurveNumbers::curve() const {
    return static_cast<const QVM0015GLSketch&>(*sketch_.getVizRef());
}

void CurveNumbers::fit() {
    setFrame(sketch_.bounds());
    const bool isShown = sketch_.vizVisible() && bounds().width >= leastWidth;
    setHidden(!isShown);
    marks_.layer()->setHidden(!isShown);
    if (!isShown) {
        pointer_.reset();
        used_ = nullptr;
    }
    update();
}

void CurveNumbers::curveDidChange() {
    if (!isHidden() && sketch_.glSketch()->look().version() != shownVersion_) update();
}

void CurveNumbers::update() {
    shownVersion_ = sketch_.glSketch()->look().version();
    if (isHidden()) return showReading();
    scale_ = CurveScale(curve().responseDisplay());
    if (scale_.isEmpty()) return;
    readout_.layOutIn(bounds().size(), FrameButton::placeIn(bounds(), FrameButton::inset));
    placeCorners();
    showReading();
}

void CurveNumbers::themeUpdated() {
    const Color ground = ground_(), ink = QVMUITheme::theme().palette.onAccent;
    marks_.setColor(contrasted(composite(ink.withAlpha(kMarkAlpha), ground), ground));
    readout_.setColors(ground);
    for (const Corner& corner : corners_)
        corner.handle->setLook(corner.shape, ground);
}

double CurveNumbers::yAt(double hertz) const {
    return scale_.size.height * (1 - readCurve(curve(), hertz).height);
}

void CurveNumbers::placeCorners() {
    if (isHidden() || scale_.isEmpty()) return;
    std::vector<CornerSpot> spots;
    for (const Corner& corner : corners_)
        spots.push_back({double{corner.handle->floatValue()}, corner.shape});
    const std::vector<Point> places =
        cornerPlaces(spots, {scale_, [this](double hertz) { return yAt(hertz); },
                             FrameButton::placeIn(bounds(), FrameButton::inset), layer()->look().contentsScale()});
    for (std::size_t i = 0; i < corners_.size(); ++i) {
        constexpr double size = CurveCorner::hitSize;
        const Point center = corners_[i].center = places[i];
        corners_[i].control->setFrame({center.x - size / 2, center.y - size / 2, size, size});
        corners_[i].handle->setOff(isOff(spots[i].shape, spots[i].hertz));
    }
    placeMarks();
    showHover();
}

void CurveNumbers::placeMarks() {
    std::vector<Rect> kept = {FrameButton::placeIn(bounds(), FrameButton::inset)};
    for (const Corner& corner : corners_)
        kept.push_back(shownBoxOf(corner).insetBy(-kMarkGap, -kMarkGap));
    marks_.follow(curve().responseDisplay(), kept);
}

Rect CurveNumbers::shownBoxOf(const Corner& corner) {
    const double radius = CurveCorner::shownRadius(corner.shape);
    return {corner.center.x - radius, corner.center.y - radius, 2 * radius, 2 * radius};
}

void CurveNumbers::showHover() {
    const Corner* const hovered = pointer_ ? cornerNear(*pointer_) : nullptr;
    for (const Corner& corner : corners_)
        corner.handle->setHovered(&corner == hovered);
}

// The nearest one, where two could be meant.
const CurveNumbers::Corner* CurveNumbers::cornerNear(Point point) const {
    const Corner* nearest = nullptr;
    double distance = 0;
    for (const Corner& corner : corners_) {
        const double here = std::hypot(point.x - corner.center.x, point.y - corner.center.y);
        if (!corner.control->frame().contains(point) || (nearest && here >= distance)) continue;
        nearest = &corner;
        distance = here;
    }
    return nearest;
}

View* CurveNumbers::hitTest(Point pointInSuperview) {
    if (!ThemedView::hitTest(pointInSuperview)) return nullptr;
    const Point point = coordinates().fromSuperview(pointInSuperview);
    const Corner* const corner = cornerNear(point);
    return corner ? corner->control->hitTest(point) : this;
}

void CurveNumbers::mouseMoved(const Event& event) {
    pointer_ = coordinates().fromWindow(event.locationInWindow);
    const Corner* const corner = cornerNear(*pointer_);
    used_ = corner ? corner->handle : nullptr;
    showHover();
    showReading();
}

void CurveNumbers::mouseDragged(const Event& event) {
    mouseMoved(event);
}

// Around it a click hides the curve; a drag that is let go of was meant for a corner, and a press that led to the other
// form for that.
void CurveNumbers::mouseUp(const Event& event) {
    if (!isHidden() && (!window() || window()->press().isClick())) ThemedView::mouseUp(event);
}

void CurveNumbers::mouseExited(const Event&) {
    pointer_.reset();
    used_ = nullptr;
    for (const Corner& corner : corners_)
        if (corner.handle->highlit()) used_ = corner.handle;
    showHover();
    showReading();
}

double CurveNumbers::pointerX(const Event& event) {
    pointer_ = coordinates().fromWindow(event.locationInWindow);
    return pointer_->x;
}

void CurveNumbers::cornerDidChange(CurveCorner&) {
    if (isHidden()) return;
    placeCorners();
    showReading();
}

void CurveNumbers::cornerWasUsed(CurveCorner& corner) {
    used_ = &corner;
    if (!isHidden()) showReading();
}

// What came from the unit during a press was not shown.
void CurveNumbers::cornerWasLeft(CurveCorner& corner) {
    if (corner.highlit()) return corner.setFloatValue(values_.memoized(corner.parameter().pid));
    if (used_ == &corner && !corner.isPressed() && !corner.isHovered()) used_ = nullptr;
    showReading();
}

// With the power off corners are as faint as the controls, and move as those do.
void CurveNumbers::followMember(const QVMParameterControl& member) {
    for (const Corner& corner : corners_) {
        if (power_ == &member) corner.control->setAlpha(member.floatValue() != 0 ? 1 : kPowerOffAlpha);
        if (corner.listed == &member && !corner.handle->isPressed()) corner.control->setFloatValue(member.floatValue());
    }
}

void CurveNumbers::forgetMember(const QVMParameterControl& member) {
    if (power_ == &member) power_ = nullptr;
    for (Corner& corner : corners_)
        if (corner.listed == &member) corner.listed = nullptr;
}

void CurveNumbers::showReading() {
    const auto used =
        std::find_if(corners_.begin(), corners_.end(), [this](const Corner& corner) { return corner.handle == used_; });
    const bool isUsed = used != corners_.end();
    if (isHidden() || scale_.isEmpty() || (!isUsed && !pointer_))
        readout_.hide();
    else
        readout_.show(isUsed ? readingOf(*used) : readingAt(scale_.hertzAt(pointer_->x)));
    letMarksGiveWay();
}

void CurveNumbers::letMarksGiveWay() {
    const std::array shown = readout_.frames();
    std::vector<Rect> over(shown.begin(), shown.end());
    for (const Corner& corner : corners_)
        over.push_back(shownBoxOf(corner));
    marks_.giveWayTo(std::move(over));
}

CurveReadout::Content CurveNumbers::readingOf(const Corner& corner) const {
    const CurveCorner& handle = *corner.handle;
    const QVMParameter& parameter = handle.parameter();
    const double hertz = double{handle.floatValue()};
    CurveReadout::Content content = readingAt(hertz);
    content.at.x = corner.center.x;
    if (handle.displayingTransientBufferValue() || isOff(corner.shape, hertz)) {
        const bool isTyped = handle.displayingTransientBufferValue();
        content.frequency = isTyped ? handle.typedText() + "|" : parameter.stringForValue(handle.floatValue());
        content.level = content.note = {};
        return content;
    }
    content.cents = centsText(nearestNote(hertz).cents);
    return content;
}

// A point of the screen is most of a semitone, so where the pointer is there are no cents to tell.
CurveReadout::Content CurveNumbers::readingAt(double hertz) const {
    const CurveReading reading = readCurve(curve(), hertz);
    const double y = std::clamp(scale_.size.height * (1 - reading.height), 0.0, scale_.size.height);
    return {
        {scale_.xOf(hertz), y}, frequencyText(hertz), levelText(double{reading.gainDb}), nearestNote(hertz).name, {}};
}

} // namespace QVM_NAMESPACE
