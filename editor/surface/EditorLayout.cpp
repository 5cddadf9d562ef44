#include "editor/surface/EditorLayout.h"

#include <array>

namespace QVM_NAMESPACE {

namespace {

constexpr QVMEditorLayout normal = {
    .editor = {0, 0, 480, 320},
    .clumpsView = {0, 30, 418, 290},
    .presetBar = {0, 0, 418, 30},
    .powerBox = {418, 0, 62, 320},
    .logoStamp = {7, 266, 50, 50},
    .powerControl = {4, 116, 54, 62},
    .logoButton = {4, 8, 54, 34},
    .gearButton = {4, 76, 54, 40},
    .sketchPlace = {4, 196, 54, 62},
    .sketchPlaceRadius = 4,
    .abControl = {359, 0, 62, 30},
    .presetControl = {89, 0, 240, 30},
    .advClumpsView = {480, 0, 200, 320},
};

constexpr QVMEditorLayout doubleWide() {
    QVMEditorLayout layout = normal;
    layout.editor = {0, 0, 680, 320};
    return layout;
}

// What is not part of this form stands outside it, out of sight.
constexpr QVMEditorLayout compact = {
    .editor = {0, 0, 200, 200},
    .clumpsView = {-418, 30, 418, 290},
    .presetBar = {-418, 0, 418, 30},
    .powerBox = {0, 0, 200, 200},
    .logoStamp = {7, -54, 50, 50},
    .powerControl = {4, -204, 54, 62},
    .logoButton = {4, -312, 54, 34},
    .gearButton = {4, -244, 54, 40},
    .sketchPlace = {0, 0, 200, 200},
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
