// The list of presets by section, which opens over the clumps.
//
// It brings no ground of its own: the clumps, shrunk to a miniature behind it, are seen to change while presets are
// tried. A press there, or anywhere outside the list, asks for all drawers to be closed. Main thread only.
#pragma once

#include "description/Presets.h"
#include "editor/surface/NameField.h"
#include "editor/surface/QVMDrawerView.h"

#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

class OutlineView;
class PresetSession;
class QVMParameterControl;
struct OutlineItem;

class QVMPresetsDrawer final : public QVMDrawerView {
public:
    // What is on offer is settled here, for the configuration's channel counts. The configuration outlives the drawer.
    QVMPresetsDrawer(const Rect& frame, const QVMConfig& config,
                     const QVMPresetStructure& presets = GetPresetStructure());

    std::uint32_t chanIn() const { return chanIn_; }
    std::uint32_t chanOut() const { return chanOut_; }
    // The catalogue: what is on offer in the present channel configuration.
    const std::vector<QVMPresetSection>& sections() const { return sections_; }
    bool itemValidForCurrentChannels(const QVMPresetEntry& item) const;
    OutlineView& outline() { return *outline_; }

    // Borrowed: the control that is set when a preset is chosen here, and whose action follows; and who is told of a
    // press on the miniature. Either may be null.
    QVMParameterControl* presetControl() const { return presetControl_; }
    void setPresetControl(QVMParameterControl* control);
    void setMiniatureDelegate(QVMDrawerViewDelegate* delegate) { miniatureDelegate_ = delegate; }

    // The same, and whose presets of the user's stand behind the catalogue, in a section of their own, and are stepped
    // through and named in the control. They are looked at when the drawer opens. Borrowed; without it there are none.
    void connect(QVMParameterControl* control, PresetSession& presets);
    // The user's presets are others.
    void presetListDidChange();

    // The present settings are to be a preset of the user's: its name is typed at the end of the list. Has no effect
    // while the drawer is closed, and ends with it.
    void beginNaming();
    // Null while no name is typed.
    NameField* nameField() const { return nameField_; }

    // Marks the preset control's present value in the list, when the drawer is open.
    void showCurrentPreset();

    // Where the miniature stands behind the drawer, own coordinates; a thin line is drawn around it.
    static constexpr Rect miniatureFrame = {204, 66, 209, 145};

    void setVisibility(bool visible) override;
    void themeUpdated() override;
    // Steps through the list, or closes the drawer, when it is open; true when handled. The editor offers every key.
    bool keyDown(const Event& event) override;
    bool performKeyEquivalent(const Event& event) override;
    void mouseDown(const Event& event) override;

    // Named by the contract and not used in this product: a preset was chosen somewhere. What the list marks is the
    // preset control's value.
    void presetSelected(std::uint32_t) {}

private:
    // A plain letter goes to the next preset that begins with it.
    bool chooseByLetter(const Event& event);
    void choose(std::uint32_t presetID);
    void showList();
    void endNaming();
    void saveAs(const std::string& name, bool isAnswer);
    void tellRefusal(NameField::Refusal refusal) const;
    OutlineItem usersSection() const;
    void tapMiniature();

    std::uint32_t chanIn_ = 0, chanOut_ = 0;
    std::vector<QVMPresetSection> sections_;
    PresetSession* presets_ = nullptr;
    QVMParameterControl* presetControl_ = nullptr;
    QVMDrawerViewDelegate* miniatureDelegate_ = nullptr;
    std::shared_ptr<Layer> miniatureBorder_;
    OutlineView* outline_ = nullptr;
    NameField* nameField_ = nullptr; // in the list
};

} // namespace QVM_NAMESPACE
