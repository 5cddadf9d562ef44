#include "controls/ControlClasses.h"

#include "controls/QVMBooleanControl.h"
#include "controls/QVMCycleControl.h"
#include "controls/QVMGlowingBooleanControl.h"
#include "controls/QVMGridControl.h"
#include "controls/QVMItemizedControl.h"
#include "controls/QVMNoteSlider.h"
#include "controls/QVMNumberControl.h"
#include "controls/QVMToggleControl.h"
#include "controls/QVMVerticalSlider.h"

#include <array>

namespace QVM_NAMESPACE {

namespace {

// By control type.
constexpr std::array<QVMFloatControlClass, 8> classes = {
    &makeFloatControl<QVMVerticalSlider>,  &makeFloatControl<QVMBooleanControl>, &makeFloatControl<QVMCycleControl>,
    &makeFloatControl<QVMItemizedControl>, &makeFloatControl<QVMNumberControl>,  &makeFloatControl<QVMToggleControl>,
    &makeFloatControl<QVMNoteSlider>,      &makeFloatControl<QVMGridControl>,
};

} // namespace

QVMFloatControlClass controlClassForType(std::int32_t controlType) {
    const auto index = static_cast<std::size_t>(controlType);
    return controlType >= 0 && index < classes.size() ? classes[index] : nullptr;
}

QVMFloatControlClass masterControlClass() {
    return &makeFloatControl<QVMGlowingBooleanControl>;
}

} // namespace QVM_NAMESPACE
