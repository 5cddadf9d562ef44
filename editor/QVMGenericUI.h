// The whole editor surface: a view that builds itself from the description, and the one funnel that every value passes
// on its way to the audio unit and back.
//
// It knows no audio unit, only a delegate. Values are in the shown domain unless a name says host. Main thread only.
#pragma once

#include "controls/QVMParameterControl.h"
#include "controls/QVMSpeedLim.h"
#include "description/QVMConfig.h"
#include "editor/QVMGenericUIDelegate.h"
#include "editor/QVMHUDDisplay.h"
#include "platform/DelayedCall.h"
#include "platform/NotificationCenter.h"
#include "platform/View.h"

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

class QVMClumpsView;
class QVMClumpView;
class QVMKeyboardHandler;
class QVMMeterButton;
class QVMPowerBox;
class QVMPresetBar;
class QVMRangeControl;

class QVMGenericUI final : public View, private QVMParameterControlDelegate, private QVMHUDDisplayDelegate {
public:
    // Names of the notifications about interface preferences; the first carries the numbers "major" and "minor".
    static constexpr const char* preferenceNotification = "kQVMInterfacePreferenceNotification";
    static constexpr const char* preferencesSavedNotification = "kQVMInterfacePreferencesSavedNotification";

    // Nothing is built yet; every memoized value is the parameter's initial one.
    QVMGenericUI(const Rect& frame, std::shared_ptr<QVMConfig> config, std::uint32_t chanIn, std::uint32_t chanOut);
    ~QVMGenericUI() override;

    // Borrowed; null is allowed and hears nothing. The delegate clears it before it goes.
    void setDelegate(QVMGenericUIDelegate* delegate) { delegate_ = delegate; }
    // Builds everything from the configuration and the memoized values. Once.
    void completeInterfaceSetup();

    // A value from anywhere in the editor: restricted, told to the delegate in the host domain, memoized. The control
    // follows when the value comes back from the unit.
    void notifyParameterUpdatedTo(std::uint32_t pid, float value);
    // The user moved a control: as above, then the partner of a low/high pair is pushed an octave away.
    void handleParameterControlUpdated(QVMParameterControl& control);
    // Stores a value without telling the delegate. An equal one changes nothing.
    void updateMemoizedValueForParameter(float value, std::uint32_t pid);
    // The unit's values in the host domain, one for each pid, as often as a display frame. Those that differ from the
    // last ones received reach their controls, and nothing is sent back.
    void sketchHasUpdatedParameterStates(std::span<const float> hostValues);
    // One of them.
    void updateParameterFromSketchState(std::uint32_t pid, float hostValue);
    // Host domain to shown domain, rounded to the fine step and clamped: how every value from the unit is read.
    static float shownValueFromHostValue(const QVMParameter& parameter, float hostValue);

    // Several values by codename; unknown names are skipped.
    void setParameterValuePairs(const std::vector<std::pair<std::string, float>>& pairs);
    // Every control's parameter to its initial value.
    void resetInitialValues();
    // The scratch values that differ from the memoized ones, except those of disabled controls.
    void applyScratchValues();
    std::span<float> scratchPValues() { return scratchPValues_; }
    // Reads or stores a memoized value with no consequence at all. An unknown pid reads as 0.
    void setMemoizedPValueDirectlyValue(std::uint32_t pid, float value);
    float getMemoizedPValueDirectly(std::uint32_t pid) const;
    std::uint32_t receivedParamUpdateCount() const { return receivedParamUpdateCount_; }

    // Presets, by index or by name. Choosing one sets every parameter that is no preset wildcard.
    void requestPresetNamed(const std::string& name);
    void presetUpdated();
    void lastSavedPresetWasNamed(const std::string& name);
    void lastSavedPresetWasKeyed(std::uint32_t index);
    std::uint32_t currentPreset() const { return currentPreset_; }

    // Undo snapshots follow half a second after the last change, unless the stack is locked.
    void potentiallySaveToUndoRedoStack();
    void syncUndoRedoButtonsToStackState();
    void undoRedoABState(std::uint32_t state);
    std::uint32_t abState() const { return abState_; }
    // Slot `state` gets the values of the text; the other slot becomes the active one. State 2 means nothing was saved.
    void restoreABStateSettings(std::uint32_t state, std::string_view settings);

    // Layout variants: 0 normal, 1 with the advanced drawer, 2 compact. `requestFrame` asks the delegate, which answers
    // with `assumeAltFrameScaleChanged`.
    void requestFrame(std::int32_t altFrame);
    void assumeAltFrameScaleChanged(std::int32_t altFrame, bool scaleChanged);
    void restoreUIState(std::uint32_t state);
    void toggleFrame();
    void toggleDoubleWide() { gearTapped(); }
    void gearTapped();
    std::int32_t altFrame() const { return altFrame_; }
    float currentScale() const { return currentScale_; }
    void setBackingScaleOnViewRecursively(View& view);
    void setBackingScaleOnLayerRecursively(Layer& layer);

    // Drawers: each tells whether there was one to move.
    bool hideAllDrawers() { return false; }
    bool togglePresetDrawer() { return false; }

    void toggleUITheme();
    // Posts the preference notification with both numbers.
    void updateLayoutKeyNumerical(std::int32_t key, double number);
    void meterTapped();

    // Look-ups; null when there is none.
    QVMParameterControl* parameterControlWithPid(std::uint32_t pid) const;
    QVMParameterControl* parameterControlWithCodename(std::string_view codesafeName) const;
    QVMClumpView* clumpViewWithCodename(std::string_view codesafeName) const;
    const std::vector<QVMParameterControl*>& parameterControls() const { return parameterControls_; }
    const QVMConfig& config() const { return *config_; }
    QVMKeyboardHandler& keyboard() { return *keyboard_; }
    QVMClumpsView* clumpsView() const { return clumpsView_; }
    QVMClumpsView* advClumpsView() const { return advClumpsView_; }
    QVMClumpView* masterClump() const { return masterClump_; }
    QVMPowerBox* powerBox() const { return powerBox_; }
    QVMPresetBar* presetBar() const { return presetBar_; }
    // What the parameter's control reported last; discrete for one that has not, or does not exist.
    QVMInteraction interactionState(std::uint32_t pid) const {
        return pid < interactionStates_.size() ? interactionStates_[pid] : QVMInteractionDiscrete;
    }

    // Keyboard focus. A control of the master clump never takes it; null takes it away from all.
    void bringParameterControlIntoFocus(QVMParameterControl* control);
    QVMParameterControl* focusedControl() const { return focusedControl_; }
    // Follows the window: without focus the logo fades and the focused control is remembered for later.
    void setHasFocus(bool hasFocus);
    bool hasFocus() const { return hasFocus_; }
    void ensureFirstResponder();

    // Deliberately empty in this product.
    void propagateLinkForPidNotify(std::uint32_t, bool) {}
    void freakout() {}
    void hideAllControls() {}

    bool acceptsFirstResponder() const override { return true; }
    bool acceptsFirstMouse() const override { return true; }
    // With nothing in focus every key is the host's.
    bool wantsKeys() const override { return focusedControl_ != nullptr; }
    bool keyDown(const Event& event) override;
    bool performKeyEquivalent(const Event& event) override;
    void mouseDown(const Event& event) override;
    void mouseUp(const Event& event) override;
    std::unique_ptr<Menu> menuForEvent(const Event& event) override;
    void viewDidMoveToWindow() override;
    void viewDidChangeBackingProperties() override;

private:
    using ControlList = std::vector<QVMParameterControl*>;

    // Assembly.
    void addPowerBox();
    void addClumpsView();
    void addPresetBar();
    void addAndRegisterParameterControls();
    QVMClumpView& addClumpView(QVMClump& clump, const Rect& frame, View& container);
    void addParameterControlsForClump(QVMClump& clump, QVMClumpView& clumpView);
    void registerParameterControls(const ControlList& controls, QVMClumpView& clumpView);
    void addRangeControls(QVMParameterControl& low, QVMParameterControl& high, QVMClumpView& clumpView);
    void addHudAndNumericMeter();
    void applyChannelLayoutRules();

    // Value flow.
    void handleSideEffectsOfUpdatedControl(QVMParameterControl& control, float value, float was);
    void dimByScope(const QVMParameterControl& control, float value);
    void dimDisableAndHide(const QVMParameter& cause, float value);
    void checkPresetDirtyState();
    void notifyPresetChange(std::uint32_t index);
    void saveParametersToUndoRedoStack();
    void copyValuesToPreset(std::vector<float>& slot, float preset) const;

    void assumeNextFrame();
    void assumeFrames();
    void observePreferences();
    void interfacePreferencesUpdated(const Notification& notification);
    QVMParameterControl* controlAtWindowPoint(Point pointInWindow) const;

    // QVMParameterControlDelegate
    void parameterControlDidChangeInteractionStateEvent(QVMParameterControl& control, QVMInteraction state,
                                                        const Event* event) override;
    void parameterControlHasRequestedDocumentation(QVMParameterControl&) override {}
    void parameterControlDidTapMeaninglessly(QVMParameterControl&) override {}
    void parameterControlWantsToPerformStaticConversion(QVMParameterControl&, std::int32_t) override {}
    void parameterControlWantsToDisplayModal(QVMParameterControl&, View&) override {}
    // QVMHUDDisplayDelegate: the indicators change nothing in this product.
    void hudWantsToUpdatePid(QVMHUDDisplay&, std::uint32_t) override {}

    std::shared_ptr<QVMConfig> config_;
    QVMGenericUIDelegate* delegate_ = nullptr;
    std::uint32_t chanIn_ = 0, chanOut_ = 0;
    float currentScale_ = 1;
    std::int32_t altFrame_ = 0;

    // One entry for each parameter, by pid.
    std::vector<float> memoizedPValues_;
    std::vector<std::uint8_t> memoizedPValuesChanged_;
    std::vector<float> receivedPValues_; // host domain; the largest finite float: nothing received yet
    std::vector<float> scratchPValues_;
    std::vector<QVMInteraction> interactionStates_;
    std::uint32_t receivedParamUpdateCount_ = 0;

    std::uint32_t abState_ = 0;
    std::array<std::vector<float>, 2> abValues_; // each parameter by pid, then the preset's index
    std::uint32_t currentPreset_ = 0;

    std::unique_ptr<QVMKeyboardHandler> keyboard_;
    ControlList parameterControls_; // in order of registration; owned by their superviews
    QVMClumpsView* clumpsView_ = nullptr;
    QVMClumpsView* advClumpsView_ = nullptr;
    QVMClumpView* masterClump_ = nullptr;
    QVMPowerBox* powerBox_ = nullptr;
    QVMPresetBar* presetBar_ = nullptr;
    QVMHUDDisplay* hud_ = nullptr;
    QVMMeterButton* numericMeter_ = nullptr;
    QVMSpeedLim advFlashLim_;

    QVMParameterControl* focusedControl_ = nullptr;
    QVMParameterControl* rememberedFocus_ = nullptr;
    QVMParameterControl* lastRightClickedControl_ = nullptr;
    bool hasFocus_ = false;

    DelayedCall undoCall_, dirtyCall_, toggleFrameCall_, backingScaleCall_;
    std::vector<ObservationToken> observations_, windowObservations_;
};

} // namespace QVM_NAMESPACE
