// Frames and sizes that more than one table, or more than one folder, needs. Points with y downwards.
#pragma once

#include "geometry/Geometry.h"

namespace QVM_NAMESPACE {
namespace tables {

inline constexpr Size kEditorSize = {480, 320};
inline constexpr double kAdvancedWidth = 200; // of the drawer beside the editor
inline constexpr Size kCompactSize = {200, 200};

// In the editor: the box with the switch and the response curve at the right edge.
inline constexpr Rect kPowerBox = {418, 0, 62, 320};
// In that box.
inline constexpr Rect kPowerSwitch = {4, 116, 54, 62};
inline constexpr Rect kCurvePlace = {4, 196, 54, 62};

// The panels, in the view around them, which fills what the preset bar and the power box leave.
inline constexpr Rect kTiltPanel = {0, 0, 321, 174};
inline constexpr Rect kFilterPanel = {0, 174, 321, 116};
inline constexpr Rect kOutputPanel = {321, 0, 97, 290};
// In the output panel: the slider in which the meter stands.
inline constexpr Rect kOutputSlider = {0, 0, 97, 217};
// The same place in the view around the panels.
inline constexpr Rect kMeterPlace = {kOutputPanel.x + kOutputSlider.x, kOutputPanel.y + kOutputSlider.y,
                                     kOutputSlider.width, kOutputSlider.height};

} // namespace tables
} // namespace QVM_NAMESPACE
