#include "editor/surface/CurveMarkPlan.h"

#include "editor/surface/CurveTexts.h"
#include "platform/layer/TextMetrics.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace QVM_NAMESPACE {

namespace {

constexpr double kFontSize = 9;
constexpr double kEdge = 2;       // points, between a mark and the box
constexpr double kAboveFloor = 4; // points, between the frequencies and the lower edge, where their ticks are
constexpr double kLeft = 14;      // points, of the decibels: right of a handle that stands at the edge
constexpr double kAboveLine = 2;  // points, between a level's line and its text
constexpr double kGridStep = 6;   // dB
constexpr std::array kDecades = {10.0, 100.0, 1000.0, 10000.0};
constexpr std::array kBetween = {20.0, 50.0, 200.0, 500.0, 2000.0, 5000.0, 20000.0};

double roomFor(const std::string& text) {
    return std::ceil(widthOf(text, curveMarkFont()));
}

// Whether a mark would touch another, or come too near for both to be read.
bool isNear(const Rect& one, const Rect& other, double gap) {
    return one.insetBy(-gap, -1).intersects(other);
}

bool hasRoom(const Rect& box, std::span<const CurveMark> marks) {
    return std::none_of(marks.begin(), marks.end(),
                        [&](const CurveMark& mark) { return isNear(mark.box, box, curveMarkGap); });
}

// Adds those that lie inside, if all of them have room beside each other and those that are there.
void addGroup(const CurveScale& scale, std::span<const double> frequencies, std::vector<CurveMark>& marks) {
    std::vector<CurveMark> all = marks;
    for (const double hertz : frequencies) {
        const std::string text = shortFrequencyText(hertz);
        const double width = roomFor(text), x = scale.xOf(hertz);
        const Rect box = {std::round(x - width / 2), scale.size.height - kAboveFloor - curveMarkHeight, width,
                          curveMarkHeight};
        if (box.x < kEdge || box.maxX() > scale.size.width - kEdge) continue;
        if (!hasRoom(box, all)) return;
        all.push_back({text, box, x});
    }
    marks = std::move(all);
}

} // namespace

Font curveMarkFont() {
    return QVMUITheme::appropriateFontForValueSizeIconSize("0", kFontSize, kFontSize);
}

std::vector<CurveMark> frequencyMarks(const CurveScale& scale) {
    std::vector<CurveMark> marks;
    if (scale.isEmpty()) return marks;
    addGroup(scale, kDecades, marks);
    addGroup(scale, kBetween, marks);
    return marks;
}

std::vector<CurveMark> levelMarks(const CurveScale& scale, std::span<const float> levels, float reference,
                                  std::span<const Rect> keptFree) {
    std::vector<CurveMark> marks;
    if (scale.isEmpty()) return marks;
    const double spacing = scale.yOf(0) - scale.yOf(kGridStep);
    const int stride = std::max(1, static_cast<int>(std::ceil((curveMarkHeight + 2 * kAboveLine) / spacing)));
    std::vector<Rect> obstacles(keptFree.begin(), keptFree.end()); // from the left, as a mark moves
    std::ranges::sort(obstacles, {}, &Rect::x);
    const double highest = kEdge, lowest = scale.size.height - kAboveFloor - curveMarkHeight - kEdge;
    for (const float level : levels) {
        const auto step = static_cast<int>(std::lround((level - reference) / kGridStep));
        const double line = scale.yOf(level);
        if (step % stride != 0 || line < 0 || line > scale.size.height) continue;
        const std::string text = gridLevelText(step * static_cast<int>(kGridStep));
        const double width = roomFor(text);
        // Above its line, or below it where that has no room.
        for (const double y : {line - kAboveLine - curveMarkHeight, line + kAboveLine}) {
            Rect box = {kLeft, std::round(y), width, curveMarkHeight};
            for (const Rect& kept : obstacles)
                if (kept.intersects(box)) box.x = std::ceil(kept.maxX());
            const bool isInside = box.y >= highest && box.maxY() <= lowest && box.maxX() <= scale.size.width - kEdge;
            const bool isFree =
                std::none_of(keptFree.begin(), keptFree.end(), [&](const Rect& kept) { return kept.intersects(box); });
            if (!isInside || !isFree || !hasRoom(box, marks)) continue;
            marks.push_back({text, box, line});
            break;
        }
    }
    return marks;
}

} // namespace QVM_NAMESPACE
