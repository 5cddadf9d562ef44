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

// By control type; main thread only. A null is a class that is defined elsewhere or not at all.
std::array<QVMFloatControlClass, 9>& classes() {
    static std::array<QVMFloatControlClass, 9> table = {
        &makeFloatControl<QVMVerticalSlider>, &makeFloatControl<QVMBooleanControl>,
        &makeFloatControl<QVMCycleControl>,   &makeFloatControl<QVMItemizedControl>,
        &makeFloatControl<QVMNumberControl>,  &makeFloatControl<QVMToggleControl>,
        &makeFloatControl<QVMNoteSlider>,     &makeFloatControl<QVMGridControl>,
    };
    return table;
}

} // namespace

QVMFloatControlClass controlClassForType(std::int32_t controlType) {
    const auto index = static_cast<std::size_t>(controlType);
    return controlType >= 0 && index < classes().size() ? classes()[index] : nullptr;
}

QVMFloatControlClass masterControlClass() {
    return &makeFloatControl<QVMGlowingBooleanControl>;
}

void registerControlClass(std::int32_t controlType, QVMFloatControlClass controlClass) {
    const auto index = static_cast<std::size_t>(controlType);
    if (controlType >= 0 && index < classes().size()) classes()[index] = controlClass;
}

} // namespace QVM_NAMESPACE
