// A cycle control whose values can also be picked from a menu. Main thread only.
#pragma once

#include "controls/QVMCycleControl.h"
#include "platform/runloop/DelayedCall.h"
#include "platform/view/Menu.h"

#include <memory>

namespace QVM_NAMESPACE {

class QVMItemizedControl : public QVMCycleControl {
public:
    using QVMCycleControl::QVMCycleControl;

    // Opens the menu over the background, with the present value's row at a height in own coordinates; nothing while
    // the control is in no window.
    void popupItemizedOptions(double y);
    // Every value by name, nested as the parameter nests them, the present one checked and those that the channel
    // configuration does not allow disabled. The menu may outlive the control: its items then do nothing.
    std::unique_ptr<Menu> itemMenu();
    // What choosing an item does: a user's discrete change to that value.
    void chooseValue(float value);

    void handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities& granularities) override;

private:
    MenuItem itemFor(const std::string& name, float value);
    MenuItem itemFor(const QVMHierarchyItem& item, float& nextValue);

    DelayedCall popup_;
    std::shared_ptr<QVMItemizedControl*> self_ = std::make_shared<QVMItemizedControl*>(this); // for menu items
};

} // namespace QVM_NAMESPACE
