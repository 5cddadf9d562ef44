// Every parameter's control: made from the description, found again, and put into the state that the session decides.
//
// The controls are owned by the views that they stand in. Main thread only.
#pragma once

#include "controls/QVMParameterControl.h"
#include "description/QVMConfig.h"
#include "editor/session/EditorValues.h"

#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

class QVMClumpView;
struct SideEffects;

class ParameterControls {
public:
    using List = std::vector<QVMParameterControl*>;

    // Both are borrowed. The delegate hears what the controls report beside values; their values go to `values` and
    // come from there.
    ParameterControls(QVMParameterControlDelegate& delegate, EditorValues& values);

    // Makes a control for each parameter of a clump that has a place and is not hidden, with its present value, and the
    // bands of its ranges. A displaced one stands in the view around the clump's.
    void addClump(QVMClump& clump, QVMClumpView& clumpView, View& around);

    // A further control of a parameter that has one. It reports and sends as that does and is found where it stands,
    // but it is not listed: what the session says of a parameter is for the first. Borrowed; as long as the controls.
    void addStandIn(QVMParameterControl& control);
    const List& standIns() const { return standIns_; }

    // In the order in which they were made.
    const List& all() const { return all_; }
    // Null when there is none.
    QVMParameterControl* withPid(std::uint32_t pid) const;
    QVMParameterControl* withCodename(std::string_view codesafeName) const;
    // The control that a view is, or stands in; null for neither.
    QVMParameterControl* around(const View* view) const;
    bool contains(const QVMParameterControl* control) const;
    std::vector<ShownValue> shownValues() const;

    // Disables and pins what the rules of the description say for a pair of channel counts.
    void applyChannelLayoutRules(const QVMConfig& config, QVMChannelPair channels);
    // What a value of `cause` means for the others. `areas` are the views around clump views; null ones are skipped.
    void apply(const SideEffects& effects, const QVMParameterControl& cause, const std::vector<const View*>& areas);

private:
    void enlist(const List& controls, QVMClumpView& clumpView);
    void addRangeControls(QVMParameterControl& low, QVMParameterControl& high, QVMClumpView& clumpView);

    QVMParameterControlDelegate& delegate_;
    EditorValues& values_;
    List all_, standIns_;
};

} // namespace QVM_NAMESPACE
