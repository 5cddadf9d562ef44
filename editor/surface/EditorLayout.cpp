#include "editor/surface/EditorLayout.h"

#include "description/tables/Frames.h"

#include <array>

namespace QVM_NAMESPACE {

namespace {

using namespace tables;

constexpr QVMEditorLayout normal = {
    .editor = {0, 0, kEditorSize.width, kEditorSize.height},
    .clumpsView = {0, 30, 418, 290},
    .presetBar = {0, 0, 418, 30},
    .powerBox = kPowerBox,
    .logoStamp = {7, 266, 50, 50},
    .powerControl = kPowerSwitch,
    .logoButton = {4, 8, 54, 34},
    .gearButton = {4, 76, 54, 40},
    .sketchPlace = kCurvePlace,
    .sketchPlaceRadius = 4,
    .abControl = {359, 0, 62, 30},
    .presetControl = {89, 0, 240, 30},
    .advClumpsView = {kEditorSize.width, 0, kAdvancedWidth, kEditorSize.height},
};

constexpr QVMEditorLayout doubleWide() {
    QVMEditorLayout layout = normal;
    layout.editor.width += kAdvancedWidth;
    return layout;
}

constexpr Rect wholeBox = {0, 0, kCompactSize.width, kCompactSize.height};

// What is not part of this form stands outside it, out of sight.
constexpr QVMEditorLayout compact = {
    .editor = wholeBox,
    .clumpsView = {-418, 30, 418, 290},
    .presetBar = {-418, 0, 418, 30},
    .powerBox = wholeBox,
    .logoStamp = {7, -54, 50, 50},
    .powerControl = {4, -204, 54, 62},
    .logoButton = {4, -312, 54, 34},
    .gearButton = {4, -244, 54, 40},
    .sketchPlace = wholeBox,
    .sketchPlaceRadius = 0, // it fills the box
    .abControl = {359, 0, 62, 30},
    .presetControl = {89, 0, 240, 30},
    .advClumpsView = {0, 0, 0, 0},
};

constexpr std::array<QVMEditorLayout, 3> layouts = {normal, doubleWide(), compact};
constexpr QVMEditorLayout none = {};

} // namespace

const QVMEditorLayout& EditorLayoutForAltFrame(std::int32_t altFrame) {
    if (altFrame < 0 || static_cast<std::size_t>(altFrame) >= layouts.size()) return none;
    return layouts[static_cast<std::size_t>(altFrame)];
}

} // namespace QVM_NAMESPACE
