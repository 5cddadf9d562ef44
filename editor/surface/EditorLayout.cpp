#include "editor/surface/EditorLayout.h"

#include "description/tables/Frames.h"
#include "theme/Radii.h"

#include <array>

namespace QVM_NAMESPACE {

namespace {

using namespace tables;

// What the power box leaves of the editor: the preset bar at the top, the clumps below it.
constexpr double kBarHeight = 30, kBarWidth = kPowerBox.x;
// In the power box: the column of what can be pressed.
constexpr double kColumnX = kPowerSwitch.x, kColumnWidth = kPowerSwitch.width;

constexpr QVMEditorLayout normal = {
    .editor = {0, 0, kEditorSize.width, kEditorSize.height},
    .clumpsView = {0, kBarHeight, kBarWidth, kEditorSize.height - kBarHeight},
    .presetBar = {0, 0, kBarWidth, kBarHeight},
    .powerBox = kPowerBox,
    .logoStamp = {7, 266, 50, 50},
    .powerControl = kPowerSwitch,
    .logoButton = {kColumnX, 8, kColumnWidth, 34},
    .gearButton = {kColumnX, 76, kColumnWidth, 40},
    .sketchPlace = kCurvePlace,
    .sketchPlaceRadius = radii::mark,
    .abControl = {359, 0, 62, kBarHeight},
    .presetControl = {89, 0, 240, kBarHeight},
    .advClumpsView = {kEditorSize.width, 0, kAdvancedWidth, kEditorSize.height},
};

constexpr QVMEditorLayout doubleWide() {
    QVMEditorLayout layout = normal;
    layout.editor.width += kAdvancedWidth;
    return layout;
}

// Up against the column, whose buttons stay where they are.
constexpr QVMEditorLayout drawerOver() {
    QVMEditorLayout layout = normal;
    layout.advClumpsView.x = kPowerBox.x - kAdvancedWidth;
    return layout;
}

// The box with the curve in it is the whole editor. What is not part of this form stands outside it, out of sight.
constexpr QVMEditorLayout compact() {
    QVMEditorLayout layout = normal;
    layout.editor = layout.powerBox = layout.sketchPlace = {0, 0, kCompactSize.width, kCompactSize.height};
    layout.sketchPlaceRadius = 0;
    for (Rect* const leftOfIt : {&layout.clumpsView, &layout.presetBar})
        leftOfIt->x -= kBarWidth;
    for (Rect* const aboveIt : {&layout.logoStamp, &layout.powerControl, &layout.logoButton, &layout.gearButton})
        aboveIt->y -= kPowerBox.height;
    layout.advClumpsView = {};
    return layout;
}

constexpr std::array<QVMEditorLayout, 3> layouts = {normal, doubleWide(), compact()};
constexpr QVMEditorLayout wideInside = drawerOver(), none = {};

} // namespace

const QVMEditorLayout& EditorLayoutForAltFrame(std::int32_t altFrame, DrawerPlace drawer) {
    if (altFrame == QVMAltFrameDoubleWide && drawer == DrawerPlace::over) return wideInside;
    if (altFrame < 0 || static_cast<std::size_t>(altFrame) >= layouts.size()) return none;
    return layouts[static_cast<std::size_t>(altFrame)];
}

} // namespace QVM_NAMESPACE
