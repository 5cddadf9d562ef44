// The whole editor surface: a view that builds itself from the description, lays itself out, and passes on what it
// hears.
//
// What it knows is the session's, what has the keyboard is the focus's, and each kind of thing that is seen has a class
// of its own; the names here are fronts of theirs. It knows no audio unit, only a delegate. Values are in the shown
// domain unless a name says host. Main thread only.
#pragma once

#include "editor/keyboard/EditorFocus.h"
#include "editor/keyboard/KeyboardSurface.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/session/EditorSession.h"
#include "editor/surface/ControlReports.h"
#include "editor/surface/EditorDrawers.h"
#include "editor/surface/EditorMenus.h"
#include "editor/surface/EditorParts.h"
#include "editor/surface/EditorScale.h"
#include "editor/surface/EditorSketches.h"
#include "editor/surface/InterfacePreferences.h"
#include "editor/surface/LayoutVariants.h"
#include "editor/surface/ParameterControls.h"
#include "editor/surface/QVMABControl.h"
#include "editor/surface/QVMGenericUIDelegate.h"
#include "editor/surface/QVMHUDDisplay.h"
#include "editor/surface/ShownFocus.h"
#include "editor/surface/ShownSession.h"
#include "editor/surface/SketchHandover.h"
#include "platform/runloop/NotificationCenter.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

class QVMGenericUI : public View,
                     private QVMHUDDisplayDelegate,
                     private QVMABControlDelegate,
                     private KeyboardSurface,
                     private EditorDrawersDelegate {
public:
    // Names of the notifications about interface preferences.
    static constexpr const char* preferenceNotification = InterfacePreferences::changedNotification;
    static constexpr const char* preferencesSavedNotification = InterfacePreferences::savedNotification;

    // Nothing is built yet; every memoized value is the parameter's initial one.
    QVMGenericUI(const Rect& frame, std::shared_ptr<QVMConfig> config, std::uint32_t chanIn, std::uint32_t chanOut);
    ~QVMGenericUI() override;

    // Borrowed; null is allowed and hears nothing. The delegate clears it before it goes.
    QVMGenericUIDelegate* delegate() const { return delegate_; }
    void setDelegate(QVMGenericUIDelegate* delegate);
    // Builds everything from the configuration and the memoized values. Once.
    void completeInterfaceSetup();

    // What it is put together from.
    EditorSession& session() { return session_; }
    EditorFocus& focus() { return focus_; }
    QVMKeyboardHandler& keyboard() { return keyboard_; }
    ParameterControls& controls() { return controls_; }
    EditorParts& parts() { return parts_; }
    EditorDrawers& drawers() { return drawers_; }
    EditorSketches& sketches() { return sketches_; }
    const QVMConfig& config() const { return *config_; }
    // Expires with the editor: for what may be called after it has gone, as a menu's items.
    std::weak_ptr<const bool> lifetime() const { return alive_; }

    // Values (EditorValues, to which the controls and the live pictures bring theirs themselves). The first takes a
    // value from anywhere in the editor, the second that of a control as if the user had moved it: both tell the
    // delegate, and the control shows what comes back from the unit.
    void notifyParameterUpdatedTo(std::uint32_t pid, float value) { session_.values().send(pid, value); }
    void handleParameterControlUpdated(const QVMParameterControl& control) {
        session_.values().sendFromControl(control.parameter()->pid, control.floatValue());
    }
    // Without telling the delegate; and a value as the unit holds it, of which nothing is sent back.
    void updateMemoizedValueForParameter(float value, std::uint32_t pid) { session_.values().memoize(pid, value); }
    void updateParameterFromSketchState(std::uint32_t pid, float value) { session_.values().receive(pid, value); }
    // With no consequence at all, as before the setup. An unknown pid reads as 0.
    void setMemoizedPValueDirectlyValue(std::uint32_t pid, float value) { session_.values().setDirectly(pid, value); }
    float getMemoizedPValueDirectly(std::uint32_t pid) const { return session_.values().memoized(pid); }
    // Frames whose values came from the unit.
    std::uint32_t receivedParamUpdateCount() const { return session_.values().receivedFrames(); }
    // Several values by codename; unknown names are skipped.
    void setParameterValuePairs(const std::vector<std::pair<std::string, float>>& pairs) {
        session_.values().sendPairs(pairs);
    }
    // Every control's parameter to its initial value.
    void resetInitialValues() override;
    // The user chooses a value for a parameter that has no control: one discrete gesture.
    void chooseValueForParameter(float value, std::uint32_t pid);

    // Presets (PresetSession), by index or by name. A name that no preset has cannot be chosen.
    void requestPresetNamed(const std::string& name);
    // The preset control has another value, or the same one again: applies that preset and reports it.
    void presetUpdated();
    // Names the current preset and applies nothing. A name or index that no preset has is shown as such.
    void lastSavedPresetWasNamed(const std::string& name);
    void lastSavedPresetWasKeyed(std::uint32_t index) { session_.presets().setCurrent(index); }
    std::uint32_t currentPreset() const { return session_.presets().current(); }

    // Undo (EditorHistory): a snapshot follows half a second after the last change. The two sides (ABComparison): which
    // is the active one; a side that was kept elsewhere; and both anew with these values, by pid.
    void potentiallySaveToUndoRedoStack() { session_.history().scheduleSnapshot(); }
    void syncUndoRedoButtonsToStackState() { shown_.historyDidChange(); }
    std::uint32_t abState() const { return session_.comparison().active(); }
    void restoreABStateSettings(std::uint32_t state, std::string_view settings) {
        session_.restoreSide(state, settings);
    }
    void resetABState(std::span<const float> values) { session_.resetComparison(values); }

    // Layout variants (LayoutVariants). `requestFrame` asks the delegate, which answers with
    // `assumeAltFrameScaleChanged`.
    void requestFrame(std::int32_t altFrame) { layouts_.request(altFrame); }
    void assumeAltFrameScaleChanged(std::int32_t altFrame, bool scaleChanged) {
        layouts_.assume(altFrame, scaleChanged);
    }
    void restoreUIState(std::uint32_t state) { layouts_.restore(state); }
    void toggleFrame() override { layouts_.toggleCompact(); }
    void toggleDoubleWide() override { gearTapped(); }
    void gearTapped() { layouts_.toggleDoubleWide(); }
    std::int32_t altFrame() const { return layouts_.current(); }
    // Where the advanced drawer opens, in the layout that has it.
    void setDrawerPlace(DrawerPlace place) { layouts_.setDrawerPlace(place); }
    // What the delegate multiplies the size of a layout variant with (EditorScale).
    EditorScale& scale() { return scale_; }
    float currentScale() const { return scale_.current(); }
    // The window's device pixels a point, for every layer; nothing without a window.
    void setBackingScaleOnViewRecursively(View& view);
    void setBackingScaleOnLayerRecursively(Layer& layer);

    // Drawers (EditorDrawers), of which one at most is open. A new one stands below the preset bar.
    QVMDrawerView& addDrawer(std::unique_ptr<QVMDrawerView> drawer);
    void toggleDrawerForce(QVMDrawerView& drawer, bool force) { drawers_.toggle(drawer, force); }
    bool hideAllDrawers() override { return drawers_.hideVisiblePresenting(nullptr); }
    // False when there is no preset bar.
    bool togglePresetsDrawer() override;
    QVMPresetsDrawer* presetDrawer() const { return drawers_.presets(); }

    // The live pictures (EditorSketches). The curve is null until half a second after the setup.
    QVMParameterSketch* sketch() const { return sketches_.main(); }
    void toggleSketchVisibility() { sketches_.toggleVisibility(); }
    void meterTapped();

    void toggleUITheme() override;
    InterfacePreferences& preferences() { return preferences_; }
    // Opens the address of the current settings in the browser and copies it to the clipboard.
    void presetSaveTapped();
    void logoTapped() { presetSaveTapped(); }
    // Opens the manual; the extension is put behind its address, and may be empty.
    void openManualWithExtension(const std::string& extension);

    // Look-ups; null when there is none, or not yet. What is found is owned by the view that it stands in.
    QVMParameterControl* parameterControlWithPid(std::uint32_t pid) const override { return controls_.withPid(pid); }
    QVMParameterControl* parameterControlWithCodename(std::string_view codesafeName) const {
        return controls_.withCodename(codesafeName);
    }
    QVMClumpView* clumpViewWithCodename(std::string_view codesafeName) const {
        return parts_.clumpViewWithCodename(codesafeName);
    }
    const std::vector<QVMParameterControl*>& parameterControls() const { return controls_.all(); }
    QVMClumpsView* clumpsView() const { return parts_.clumpsView(); }
    QVMClumpsView* advClumpsView() const { return parts_.advClumpsView(); }
    QVMClumpView* masterClump() const { return parts_.masterClump(); }
    QVMPowerBox* powerBox() const { return parts_.powerBox(); }
    QVMPresetBar* presetBar() const { return parts_.presetBar(); }
    QVMHUDDisplay* hud() const { return hud_; }
    // The parameter's control that stands at a point, in the window's coordinates.
    QVMParameterControl* controlAtWindowPoint(Point pointInWindow) const;
    // What the parameter's control reported last; discrete for one that has not, or does not exist.
    QVMInteraction interactionState(std::uint32_t pid) const { return reports_.state(pid); }

    // Keyboard focus (EditorFocus). Null takes it away from all.
    void bringParameterControlIntoFocus(FocusableControl* control) { focus_.bring(control); }
    FocusableControl* focusedControl() const { return focus_.focused(); }
    // Follows the window: without focus the logo fades and the focused control is remembered for later.
    void setHasFocus(bool hasFocus);
    bool hasFocus() const { return focus_.hasFocus(); }
    void ensureFirstResponder();
    // The control that the last context menu was about; null when it was about none.
    QVMParameterControl* lastRightClickedControl() const { return menus_.subject(); }

    // Named by the contract and not used in this product. The scratch values that differ from the memoized ones are
    // sent, except those of disabled controls; the layout key is posted as a preference, with both numbers; the first
    // of the hooks is told of each parameter that a parameter with links is linked to, when that one's value comes to
    // 0.
    std::span<float> scratchPValues() { return session_.values().scratch(); }
    void applyScratchValues();
    void updateLayoutKeyNumerical(std::int32_t key, double number) { InterfacePreferences::post(this, key, number); }
    virtual void propagateLinkForPidNotify(std::uint32_t, bool) {}
    void parameterControlWantsToChangeMultipleValuesMotion(QVMParameterControl&, const std::map<std::uint32_t, float>&,
                                                           double) {}
    void freakout() override {}
    void hideAllControls() override {}
    // What those that have it are asked for themselves (PresetSession, ABComparison, EditorDrawers).
    void applyPresetValues(std::span<const float> values) { session_.presets().apply(values); }
    void undoRedoABState(std::uint32_t state) { session_.comparison().setActive(state); }
    bool hideVisibleDrawersPresenting(QVMDrawerView* drawer) { return drawers_.hideVisiblePresenting(drawer); }
    bool hideViewIfNotEqualToView(QVMDrawerView* drawer, const QVMDrawerView* excepted) {
        return EditorDrawers::hideUnlessEqual(drawer, excepted);
    }
    void hideDrawerIfVisible(QVMDrawerView* drawer) { drawers_.hideIfVisible(drawer); }
    void hideClumpsView() { drawers_.hideClumpsView(); }

    // View and responder. With nothing in focus every key is the host's.
    bool acceptsFirstResponder() const override { return true; }
    bool acceptsFirstMouse() const override { return true; }
    bool wantsKeys() const override; // with a focused control or an open list
    bool keyDown(const Event& event) override;
    bool performKeyEquivalent(const Event& event) override;
    void mouseDown(const Event& event) override;
    void mouseUp(const Event& event) override;
    void mouseMoved(const Event& event) override {
        parts_.pointerMoved(coordinates().fromWindow(event.locationInWindow));
    }
    void mouseExited(const Event&) override { parts_.pointerLeft(); }
    std::unique_ptr<Menu> menuForEvent(const Event& event) override;
    std::unique_ptr<Menu> menuForKeyboard();
    void viewDidMoveToWindow() override;
    void viewDidChangeBackingProperties() override;

private:
    // Assembly.
    void setConfig(std::shared_ptr<QVMConfig> config);
    void wireParts();
    void addPresetDrawer();
    void addFrameButton();
    void addHudAndNumericMeter();
    void addSketch();

    // QVMHUDDisplayDelegate: the indicators change nothing in this product.
    void hudWantsToUpdatePid(QVMHUDDisplay&, std::uint32_t) override {}
    // QVMABControlDelegate
    void abControlChangeTriggeredByButton(QVMABControl& control, std::uint32_t button) override;
    // KeyboardSurface
    void stepScale(int direction) override { direction == 0 ? scale_.choose(1) : scale_.step(direction); }
    // EditorDrawersDelegate
    void drawerWillOpen() override { focus_.bring(nullptr); }
    void presetsDrawerWillClose() override { ensureFirstResponder(); }

    std::shared_ptr<QVMConfig> config_;
    QVMGenericUIDelegate* delegate_ = nullptr;
    std::uint32_t chanIn_ = 0, chanOut_ = 0;

    ShownSession shown_;
    EditorSession session_;
    ShownFocus shownFocus_;
    EditorFocus focus_;
    QVMKeyboardHandler keyboard_;
    ControlReports reports_;
    ParameterControls controls_;
    EditorParts parts_;
    EditorDrawers drawers_;
    EditorSketches sketches_;
    SketchHandover handover_;
    LayoutVariants layouts_;
    EditorScale scale_;
    EditorMenus menus_;
    InterfacePreferences preferences_;

    QVMHUDDisplay* hud_ = nullptr;
    DelayedCall backingScaleCall_, sketchCall_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
    std::vector<ObservationToken> windowObservations_;
};

} // namespace QVM_NAMESPACE
