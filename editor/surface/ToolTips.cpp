#include "editor/surface/ToolTips.h"

#include "description/QVMClump.h"
#include "description/QVMParameter.h"
#include "description/tables/GestureTable.h"
#include "description/tables/ParameterTable.h"

#include <algorithm>
#include <array>

namespace QVM_NAMESPACE {

namespace {

using tables::GestureDevice;

struct ButtonText {
    Button button;
    std::string_view title;
    std::string_view does;
    std::string_view menuTitle;
};

constexpr std::string_view flips = "Flips between two complete settings.";
constexpr std::string_view copies = "Copies the settings you hear to the other side, and goes there.";
// clang-format off
constexpr std::array buttons = {
    ButtonText{Button::logo, "Get Current Settings", "Opens the address of all settings in the browser, and copies it.", "Open all settings in browser"},
    ButtonText{Button::gear, "Advanced Controls", "Opens the drawer with slope, resonance and quality.", "Advanced controls"},
    ButtonText{Button::undo, "Undo", "Takes the last change back.", "Undo"},
    ButtonText{Button::redo, "Redo", "Makes the change again that was taken back.", "Redo"},
    ButtonText{Button::sideA, "Settings A", flips, "Go to A"},
    ButtonText{Button::sideB, "Settings B", flips, "Go to B"},
    ButtonText{Button::copyAToB, "Copy A to B", copies, "Copy A to B"},
    ButtonText{Button::copyBToA, "Copy B to A", copies, "Copy B to A"},
    ButtonText{Button::presets, "Presets", "A click on the name opens the list of all presets.", "Presets"},
    ButtonText{Button::previousPreset, "Previous Preset", "Goes one back in the list.", "Presets"},
    ButtonText{Button::nextPreset, "Next Preset", "Goes one on in the list.", "Presets"},
    ButtonText{Button::compactForm, "Compact View", "Makes the editor a small window with the curve.", "Small window"},
    ButtonText{Button::wholeEditor, "Full View", "Brings the controls back.", "Small window"},
    ButtonText{Button::curve, "Response Curve", "A click hides curve and meter; a double-click leaves the curve alone in a small window.", "Curve and meter"},
    ButtonText{Button::hiddenCurve, "Show Curve and Meter", "Both are hidden, and cost nothing meanwhile.", "Curve and meter"},
    ButtonText{Button::meter, "Level Meter", "The highest level; a click starts it anew.", "Reset meter"},
    ButtonText{Button::clipLight, "Clip Light", "Lights when the output reaches full scale; a click puts it out.", "Reset meter"},
    ButtonText{Button::sizeGrip, "Size", "A drag resizes the editor; a double-click makes it 100 %.", "Size"},
};
// clang-format on

constexpr bool buttonsAreInOrder() {
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (buttons[i].button != static_cast<Button>(i)) return false;
    return buttons.size() == static_cast<std::size_t>(Button::sizeGrip) + 1;
}
static_assert(buttonsAreInOrder());

const ButtonText& textOf(Button button) {
    return buttons[static_cast<std::size_t>(button)];
}

std::string_view purposeOf(const QVMParameter& parameter) {
    const tables::ParameterRow* const row = tables::ParameterRowFor(parameter.pid);
    return row && row->codesafeName == parameter.codesafeName ? row->purpose : std::string_view();
}

unsigned subjectOf(const QVMParameter& parameter) {
    switch (parameter.controlType) {
    case QVMControlTypeSlider:
        return tables::onSlider;
    case QVMControlTypeNumber:
        return tables::onNumber;
    case QVMControlTypeToggle:
        return tables::onSwitch;
    default:
        return tables::onChoice;
    }
}

// The brief forms of what a device can do there, in a line.
std::string gesturesOn(unsigned subject, GestureDevice device) {
    std::string line;
    for (const tables::GestureRow& row : tables::Gestures()) {
        if (row.device != device || !(row.subjects & subject) || !*row.brief) continue;
        if (!line.empty()) line += " \u00b7 ";
        line += row.brief;
    }
    return line;
}

std::string linesOf(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        if (part.empty()) continue;
        if (!text.empty()) text += '\n';
        text += part;
    }
    return text;
}

std::string keysOf(Button button) {
    const bool isInMenuItself = button == Button::sizeGrip; // the others are in its last part
    return "Keys: " + gesturesOn(tables::onButton, GestureDevice::keyboard) + (isInMenuItself ? ", " : ", Editor, ") +
           std::string(menuTitleOf(button));
}

// The master switch never takes the keyboard: it is in the menu.
std::string keysOf(const QVMParameter& parameter) {
    const bool isMaster = parameter.clump && parameter.clump->clumpType == QVMClumpTypeMaster;
    const std::string menu = gesturesOn(tables::onButton, GestureDevice::keyboard);
    if (isMaster) return "Keys: " + menu + ", Editor, Power";
    return "Keys: " + gesturesOn(subjectOf(parameter), GestureDevice::keyboard);
}

} // namespace

std::string_view menuTitleOf(Button button) {
    return textOf(button).menuTitle;
}

std::string toolTipOf(Button button) {
    return toolTipOf(button, textOf(button).title);
}

std::string toolTipOf(Button button, std::string_view title) {
    return linesOf({title, textOf(button).does, keysOf(button)});
}

std::string toolTipOf(const QVMParameter& parameter, std::string_view state) {
    return linesOf({parameter.name, purposeOf(parameter), state, gesturesOn(subjectOf(parameter), GestureDevice::mouse),
                    keysOf(parameter)});
}

std::string bandToolTip(const QVMParameter& low, const QVMParameter& high) {
    const std::string_view name = high.name;
    const auto differing = std::ranges::mismatch(name, low.name).in1;
    const std::string_view shared = name.substr(0, static_cast<std::size_t>(differing - name.begin()));
    return linesOf({shared.substr(0, shared.find_last_of(' ')), gesturesOn(tables::onBand, GestureDevice::mouse)});
}

} // namespace QVM_NAMESPACE
