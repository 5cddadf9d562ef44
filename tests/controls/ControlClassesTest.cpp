// Which class edits which parameter.
#include "controls/ControlClasses.h"

#include "controls/Gestures.h"
#include "controls/QVMGlowingBooleanControl.h"
#include "controls/QVMGridControl.h"
#include "controls/QVMItemizedControl.h"
#include "controls/QVMNoteSlider.h"
#include "controls/QVMNumberControl.h"
#include "controls/QVMParameterControl.h"
#include "controls/QVMToggleControl.h"
#include "controls/QVMVerticalSlider.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace QVM_NAMESPACE {
namespace {

class ElsewhereControl : public QVMFloatControl {
public:
    using QVMFloatControl::QVMFloatControl;
};

const std::type_info& classOf(const QVMParameter& parameter) {
    const QVMParameterControl control({0, 0, 80, 60}, {}, &parameter, 0);
    const QVMFloatControl* inner = control.primaryControl();
    return inner ? typeid(*inner) : typeid(void);
}

TEST(ControlClasses, EachControlTypeHasItsClass) {
    const std::type_info* expected[] = {
        &typeid(QVMVerticalSlider), &typeid(QVMBooleanControl), &typeid(QVMCycleControl), &typeid(QVMItemizedControl),
        &typeid(QVMNumberControl),  &typeid(QVMToggleControl),  &typeid(QVMNoteSlider),   &typeid(QVMGridControl)};
    for (std::int32_t type = 0; type < 8; ++type)
        EXPECT_EQ(classOf(parameterLike(pidFilterSlopeLow, [type](QVMParameter& p) { p.controlType = type; })),
                  *expected[type])
            << type;
}

TEST(ControlClasses, TheMasterSwitchGlowsWhateverItsType) {
    const QVMParameter parameter = parameterLike(pidFilterSlopeLow, [](QVMParameter& p) {
        p.controlType = 2;
        p.codesafeName = "MasterOnOff";
    });
    EXPECT_EQ(classOf(parameter), typeid(QVMGlowingBooleanControl));
}

TEST(ControlClasses, AParameterControlNamesTheClassForAnyType) {
    const QVMParameter gain = parameterLike(pidTiltGain), master = parameterLike(pidMasterOnOff);
    const QVMParameterControl plain({0, 0, 80, 60}, {}, &gain, 0), power({0, 0, 80, 60}, {}, &master, 0);
    EXPECT_EQ(plain.classForControlType(4), controlClassForType(4));
    EXPECT_EQ(plain.classForControlType(9), nullptr);
    EXPECT_EQ(power.classForControlType(4), masterControlClass());
}

TEST(ControlClasses, TypesBeyondTheTableHaveNone) {
    EXPECT_EQ(controlClassForType(-1), nullptr);
    EXPECT_EQ(controlClassForType(8), nullptr);
    EXPECT_EQ(classOf(parameterLike(pidFilterSlopeLow, [](QVMParameter& p) { p.controlType = 8; })), typeid(void));
}

TEST(ControlClasses, WhoMakesAControlMayNameTheClass) {
    const QVMParameter parameter = parameterLike(pidFilterSlopeLow, [](QVMParameter& p) { p.controlType = 8; });
    const QVMParameterControl control({0, 0, 80, 60}, &parameter, 0, &makeFloatControl<ElsewhereControl>, {});
    const QVMFloatControl& inner = *control.primaryControl();
    EXPECT_EQ(typeid(inner), typeid(ElsewhereControl));
}

} // namespace
} // namespace QVM_NAMESPACE
