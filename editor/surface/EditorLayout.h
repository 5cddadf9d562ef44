// The frames of the editor's parts in each of its layouts, as data.
//
// Frames are in points at scale 1 with y downwards, each in the coordinates of the view that the part stands in.
#pragma once

#include "geometry/Geometry.h"

#include <cstdint>

namespace QVM_NAMESPACE {

// The layout variants by number. Any other number has empty frames throughout.
enum QVMAltFrame : std::int32_t {
    QVMAltFrameNormal = 0,
    QVMAltFrameDoubleWide = 1, // with the advanced drawer
    QVMAltFrameCompact = 2,
};

struct QVMEditorLayout {
    Rect editor;
    Rect clumpsView;
    Rect presetBar;
    Rect powerBox;
    Rect logoStamp;               // in the power box
    Rect powerControl;            // of pid 0, in the master clump
    Rect logoButton;              // in the power box
    Rect gearButton;              // in the power box
    Rect sketchPlace;             // in the power box: where the response curve is drawn
    double sketchPlaceRadius = 0; // of its corners, points
    Rect abControl;               // in the preset bar
    Rect presetControl;           // in the preset bar
    Rect advClumpsView;
};

// Where the advanced drawer has its place: beside the controls, or over them where a host gives no more room than the
// editor has without it.
enum class DrawerPlace { beside, over };

// The frames of a layout variant. Any thread; the table lives as long as the process.
const QVMEditorLayout& EditorLayoutForAltFrame(std::int32_t altFrame, DrawerPlace drawer = DrawerPlace::beside);

} // namespace QVM_NAMESPACE
