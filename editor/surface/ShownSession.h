// Shows what the session decides: what values mean for other controls, the history on its buttons, the side and the
// preset in the bar. Main thread only.
#pragma once

#include "controls/QVMSpeedLim.h"
#include "editor/session/SessionSurface.h"

namespace QVM_NAMESPACE {

class EditorSession;
class QVMGenericUI;
class QVMParameter;
class QVMParameterControl;

class ShownSession final : public SessionSurface {
public:
    // The editor is borrowed; nothing is asked of it here.
    explicit ShownSession(QVMGenericUI& ui);

    // SessionSurface. Before there are any controls, a bar or a delegate, there is nobody to show anything to.
    void controlWillChangeValue() override;
    // The indicators, the meters' tool tips, and the gear where the control stands in the closed drawer.
    void valueDidChange(std::uint32_t pid) override;
    // Side effects, the band of a range, and links.
    void valueWasReceived(std::uint32_t pid, float value, float was) override;
    std::vector<ShownValue> shownValues() const override;
    // Asks the window what is held: whoever was told of it.
    bool isGestureUnderWay() const override;
    // Undo and redo can be pressed when there is anything to come back to.
    void historyDidChange() override;
    void sideDidChange(std::uint32_t side, SideMove move) override;
    void showPreset(std::uint32_t index) override;
    void showPresetDirty(bool dirty) override;
    // Its control has the keyboard, unless the open list has it.
    void presetWasApplied() override;
    void presetDidBecomeCurrent(const std::string& savedName, std::uint32_t index) override;
    void presetListDidChange() override;
    void presetWasRefused(const std::string& what, const std::string& why) override;
    void settingsWereRefused(const std::string& why) override;

private:
    void flashGearFor(const QVMParameter* parameter);

    QVMGenericUI& ui_;
    QVMSpeedLim gearFlashes_;
};

} // namespace QVM_NAMESPACE
