// What the editor's tooltips say: a title, what the thing does in a sentence, and its gestures and keys, a line each.
#pragma once

#include "BuildNamespace.h"

#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

class QVMParameter;

// What in the editor is no parameter. One that stands for two states has a name for each.
enum class Button {
    logo,
    gear,
    undo,
    redo,
    sideA,
    sideB,
    copyAToB,
    copyBToA,
    presets,
    previousPreset,
    nextPreset,
    compactForm,
    wholeEditor,
    curve,
    hiddenCurve,
    meter,
    clipLight,
    sizeGrip,
};

// The title of the editor's menu item that does the same; its keys are the menu's.
std::string_view menuTitleOf(Button button);

std::string toolTipOf(Button button);
// With a title of the description's.
std::string toolTipOf(Button button, std::string_view title);

// `state` is how it stands at the moment, in lines of its own; empty for nothing to say.
std::string toolTipOf(const QVMParameter& parameter, std::string_view state = {});
// For the band between two handles: its title is what the names of both begin with.
std::string bandToolTip(const QVMParameter& low, const QVMParameter& high);

} // namespace QVM_NAMESPACE
