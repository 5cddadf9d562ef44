// Which control has the keyboard, which had it when the window lost it, and where it goes from there.
//
// What is hidden has no focus: canBeShown() is the one question that the focus, the walk and the layout ask. Main
// thread only.
#pragma once

#include "controls/QVMParameterControl.h"
#include "editor/keyboard/FocusSurface.h"
#include "editor/session/EditorValues.h"

#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

class EditorFocus {
public:
    // All are borrowed; the controls stand in `root` or below it.
    EditorFocus(const QVMConfig& config, const EditorValues& values, const View& root, FocusSurface& surface);

    // Null for none.
    FocusableControl* focused() const { return focused_; }
    // A control of the master clump never takes it; null, or one that cannot be shown, takes it away from all.
    void bring(FocusableControl* control);
    // Whether nothing hides a control, itself or a view around it, but the drawer, which opens for the focus.
    bool canBeShown(const FocusableControl& control) const;
    // Whether a parameter's control stands in the drawer while that is closed. Null does not.
    bool isInClosedDrawer(const QVMParameter* parameter) const;
    // A further control of a parameter, which the walk comes to where the layout hides the first. Borrowed; it is there
    // whenever the focus is asked for anything.
    void addStandIn(QVMParameterControl& control) { standIns_.push_back(&control); }
    // Opens the drawer when the focus is in there: whoever walks to it sees where he is.
    void reveal();
    // Takes the focus from a control that the layout has taken away: what is typed would change it.
    void dropIfHidden();

    // Follows the window: without the keyboard the focused control is remembered for later.
    void setHasFocus(bool hasFocus);
    bool hasFocus() const { return hasFocus_; }

    // The next control along the description's tab order that can be used, or null; -1 is backwards. From none it is
    // the first, or the first that can be used where the layout hides that one. There is none while processing is off.
    QVMParameterControl* adjacent(const FocusableControl* from, int direction) const;

private:
    bool isInClosedDrawer(const FocusableControl& control) const;
    QVMParameterControl* shownControlNamed(std::string_view codename) const;

    const QVMConfig& config_;
    const EditorValues& values_;
    const View& root_;
    FocusSurface& surface_;
    std::vector<QVMParameterControl*> standIns_;
    FocusableControl* focused_ = nullptr;
    FocusableControl* remembered_ = nullptr;
    bool hasFocus_ = false;
};

} // namespace QVM_NAMESPACE
