// Which numbers stand beside the response curve, and where: frequencies along its lower edge, decibels on the lines of
// its grid. They never touch each other, nor the edge of the box, nor what is to be kept free. Main thread only.
#pragma once

#include "editor/surface/CurveScale.h"
#include "platform/layer/Font.h"

#include <span>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

struct CurveMark {
    std::string text;
    Rect box;      // of the text, points of the curve's view
    double at = 0; // what it marks: x of a frequency, y of a level
    bool operator==(const CurveMark&) const = default;
};

Font curveMarkFont();
// The height that a mark's text takes, and how near another one may come; points.
inline constexpr double curveMarkHeight = 8, curveMarkGap = 5;

// The decades, and two more in each where all of those have room.
std::vector<CurveMark> frequencyMarks(const CurveScale& scale);
// Of the levels (dB on the curve's own axis) where lines are drawn, told over the reference one. Where lines are too
// near to each other it is every second of them, or third, counted from the reference. What stands where a level would
// be told moves it to its right.
std::vector<CurveMark> levelMarks(const CurveScale& scale, std::span<const float> levels, float reference,
                                  std::span<const Rect> keptFree);

} // namespace QVM_NAMESPACE
