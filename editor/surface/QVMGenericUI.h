// The whole editor surface: a view that builds itself from the description, and the one funnel that every value passes
// on its way to the audio unit and back.
//
// It knows no audio unit, only a delegate. Values are in the shown domain unless a name says host. Main thread only.
#pragma once

#include "controls/QVMParameterControl.h"
#include "controls/QVMSpeedLim.h"
#include "description/QVMConfig.h"
#include "editor/keyboard/EditorFocus.h"
#include "editor/keyboard/KeyboardSurface.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/session/EditorSession.h"
#include "editor/surface/QVMABControl.h"
#include "editor/surface/QVMDrawerView.h"
#include "editor/surface/QVMGenericUIDelegate.h"
#include "editor/surface/QVMHUDDisplay.h"
#include "platform/runloop/DelayedCall.h"
#include "platform/runloop/NotificationCenter.h"
#include "platform/view/View.h"
#include "viz/sketches/QVMParameterSketchDelegate.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

class DrawerBackdrop;
class FrameButton;
class QVMClumpsView;
class NoticeView;
class NumericMeterReading;
class PBGLSketchAbstract;
class QVMClumpView;
class QVMMeterButton;
class QVMPowerBox;
class QVMPresetBar;
class QVMPresetsDrawer;
class QVMRangeControl;
struct SideEffects;
struct PBSketch;

class QVMGenericUI : public View,
                     private QVMParameterControlDelegate,
                     private QVMHUDDisplayDelegate,
                     private QVMParameterSketchDelegate,
                     private QVMABControlDelegate,
                     private QVMDrawerViewDelegate,
                     private SessionSurface,
                     private FocusSurface,
                     private KeyboardSurface {
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
    // follows when the value comes back from the unit; before there is a sketch, by which it comes, at once.
    void notifyParameterUpdatedTo(std::uint32_t pid, float value) { session_.values().send(pid, value); }
    // The user moved a control: as above, then the partner of a low/high pair is pushed an octave away.
    void handleParameterControlUpdated(QVMParameterControl& control);
    // Stores a value without telling the delegate. An equal one changes nothing.
    void updateMemoizedValueForParameter(float value, std::uint32_t pid) { session_.values().memoize(pid, value); }
    // A value as the unit posted it (QVMParameter::heldValueFromHostValue). It reaches its control, and nothing is
    // sent back. What the unit makes of the memoized value counts as the memoized value, if the unit can hold that.
    void updateParameterFromSketchState(std::uint32_t pid, float value) { session_.values().receive(pid, value); }

    // Several values by codename; unknown names are skipped.
    void setParameterValuePairs(const std::vector<std::pair<std::string, float>>& pairs) {
        session_.values().sendPairs(pairs);
    }
    // Every control's parameter to its initial value.
    void resetInitialValues() override;
    // The scratch values that differ from the memoized ones, except those of disabled controls.
    void applyScratchValues();
    std::span<float> scratchPValues() { return session_.values().scratch(); }
    // Reads or stores a memoized value with no consequence at all. An unknown pid reads as 0.
    void setMemoizedPValueDirectlyValue(std::uint32_t pid, float value) { session_.values().setDirectly(pid, value); }
    float getMemoizedPValueDirectly(std::uint32_t pid) const { return session_.values().memoized(pid); }
    std::uint32_t receivedParamUpdateCount() const { return session_.values().receivedFrames(); }

    // Presets, by index or by name. Choosing one sets every parameter that is no preset wildcard. A name that no preset
    // has cannot be chosen.
    void requestPresetNamed(const std::string& name);
    // The preset control has another value, or the same one again: applies that preset and reports it.
    void presetUpdated();
    // One value for each parameter that is no preset wildcard, in pid order. What is no number leaves its parameter.
    void applyPresetValues(std::span<const float> values) { session_.presets().apply(values); }
    // Names the current preset and applies nothing. A name or index that no preset has is shown as such.
    void lastSavedPresetWasNamed(const std::string& name);
    void lastSavedPresetWasKeyed(std::uint32_t index) { session_.presets().setCurrent(index); }
    // 0 in a product without presets.
    std::uint32_t currentPreset() const { return session_.presets().current(); }
    // Opens or closes the presets drawer; false when there is no preset bar.
    bool togglePresetsDrawer() override;
    QVMPresetsDrawer* presetDrawer() const { return presetDrawer_; }

    // Undo snapshots follow half a second after the last change, unless the stack is locked, and after the end of the
    // gesture that is under way then.
    void potentiallySaveToUndoRedoStack() { session_.history().scheduleSnapshot(); }
    void syncUndoRedoButtonsToStackState();
    // The side that belongs to a snapshot. Nothing is copied or applied.
    void undoRedoABState(std::uint32_t state) { session_.comparison().setActive(state); }
    std::uint32_t abState() const { return session_.comparison().active(); }
    // Slot `state` gets the values of the text, 0 where an element is empty or no number; the other slot becomes the
    // active one. State 2 means nothing was saved.
    void restoreABStateSettings(std::uint32_t state, std::string_view settings) {
        session_.restoreSide(state, settings);
    }
    // The comparison starts anew: A is active, and both slots have these values, by pid.
    void resetABState(std::span<const float> values) { session_.resetComparison(values); }

    // Layout variants: 0 normal, 1 with the advanced drawer, 2 compact. `requestFrame` asks the delegate, which answers
    // with `assumeAltFrameScaleChanged`.
    void requestFrame(std::int32_t altFrame);
    void assumeAltFrameScaleChanged(std::int32_t altFrame, bool scaleChanged);
    void restoreUIState(std::uint32_t state);
    // An open presets drawer is closed first, and the layout changes half a second later.
    void toggleFrame() override;
    void toggleDoubleWide() override { gearTapped(); }
    void gearTapped();
    std::int32_t altFrame() const { return altFrame_; }
    // What the delegate multiplies the size of a layout variant with.
    float currentScale() const { return currentScale_; }
    void setCurrentScale(float scale) { currentScale_ = scale; }
    void setBackingScaleOnViewRecursively(View& view);
    void setBackingScaleOnLayerRecursively(Layer& layer);

    // Drawers, of which one at most is open. Opening one closes the others first; while the presets drawer is the one
    // to close, the other waits for its end, unless it is forced.
    QVMDrawerView& addDrawer(std::unique_ptr<QVMDrawerView> drawer); // below the preset bar, with the editor told of it
    void toggleDrawerForce(QVMDrawerView& drawer, bool force);
    // Closes every open drawer but one, and opens that one, which may be null; true when it closed any.
    bool hideVisibleDrawersPresenting(QVMDrawerView* drawer);
    bool hideViewIfNotEqualToView(QVMDrawerView* drawer, const QVMDrawerView* excepted);
    bool hideAllDrawers() override { return hideVisibleDrawersPresenting(nullptr); }
    void hideDrawerIfVisible(QVMDrawerView* drawer);
    // Nothing of it is seen behind a drawer that covers it.
    void hideClumpsView();
    QVMDrawerView* waitingDrawer() const { return waitingDrawer_; }

    // Shows or hides the curve and the meter, as a click on the curve does. Nothing before there are any.
    void toggleSketchVisibility();
    bool areSketchesHidden() const;
    // The user chooses a value for a parameter that has no control: one discrete gesture.
    void chooseValueForParameter(float value, std::uint32_t pid);

    void toggleUITheme() override;
    // Posts the preference notification with both numbers.
    void updateLayoutKeyNumerical(std::int32_t key, double number);
    void meterTapped();
    // Opens the address of the current settings in the browser and copies it to the clipboard.
    void presetSaveTapped();
    void logoTapped() { presetSaveTapped(); }
    // Opens the manual; the extension is put behind its address, and may be empty.
    void openManualWithExtension(const std::string& extension);

    // Says for a few seconds why a thing that was asked for did not happen.
    void showNotice(std::string what, std::string why);
    // The last notice, hidden when its time is over. Null before the first.
    NoticeView* notice() const { return notice_; }

    // Look-ups; null when there is none.
    QVMParameterControl* parameterControlWithPid(std::uint32_t pid) const override;
    QVMParameterControl* parameterControlWithCodename(std::string_view codesafeName) const override;
    QVMClumpView* clumpViewWithCodename(std::string_view codesafeName) const;
    const std::vector<QVMParameterControl*>& parameterControls() const override { return parameterControls_; }
    const QVMConfig& config() const { return *config_; }
    // Expires with the editor: for what may be called after it has gone, as a menu's items.
    std::weak_ptr<const bool> lifetime() const { return alive_; }
    EditorSession& session() { return session_; }
    EditorFocus& focus() { return focus_; }
    QVMKeyboardHandler& keyboard() { return keyboard_; }
    QVMClumpsView* clumpsView() const { return clumpsView_; }
    QVMClumpsView* advClumpsView() const { return advClumpsView_; }
    QVMClumpView* masterClump() const { return masterClump_; }
    QVMPowerBox* powerBox() const { return powerBox_; }
    FrameButton* frameButton() const { return frameButton_; }
    QVMPresetBar* presetBar() const { return presetBar_; }
    // The response curve, which hands its frames to the meter too. Null until half a second after the setup.
    QVMParameterSketch* sketch() const { return sketch_; }
    // What the parameter's control reported last; discrete for one that has not, or does not exist.
    QVMInteraction interactionState(std::uint32_t pid) const {
        return pid < interactionStates_.size() ? interactionStates_[pid] : QVMInteractionDiscrete;
    }

    // Keyboard focus (EditorFocus).
    void bringParameterControlIntoFocus(QVMParameterControl* control) { focus_.bring(control); }
    QVMParameterControl* focusedControl() const { return focus_.focused(); }
    // The control that the last context menu was about; null when it was about none.
    QVMParameterControl* lastRightClickedControl() const { return lastRightClickedControl_; }
    // Follows the window: without focus the logo fades and the focused control is remembered for later.
    void setHasFocus(bool hasFocus);
    bool hasFocus() const { return focus_.hasFocus(); }
    void ensureFirstResponder();

    // Deliberately empty in this product. The first is told of each parameter that a parameter with links is linked to,
    // when that one's value comes to 0.
    virtual void propagateLinkForPidNotify(std::uint32_t, bool) {}
    void parameterControlWantsToChangeMultipleValuesMotion(QVMParameterControl&, const std::map<std::uint32_t, float>&,
                                                           double) {}
    void freakout() override {}
    void hideAllControls() override {}

    bool acceptsFirstResponder() const override { return true; }
    bool acceptsFirstMouse() const override { return true; }
    // With nothing in focus every key is the host's.
    bool wantsKeys() const override; // with a focused control or an open list
    bool keyDown(const Event& event) override;
    bool performKeyEquivalent(const Event& event) override;
    void mouseDown(const Event& event) override;
    void mouseUp(const Event& event) override;
    std::unique_ptr<Menu> menuForEvent(const Event& event) override;
    // That of the control with the focus, and everything in it that otherwise takes a click on a button.
    std::unique_ptr<Menu> menuForKeyboard();
    void viewDidMoveToWindow() override;
    void viewDidChangeBackingProperties() override;

private:
    using ControlList = std::vector<QVMParameterControl*>;

    // Assembly.
    void setConfig(std::shared_ptr<QVMConfig> config);
    void addPowerBox();
    void addClumpsView();
    void addPresetBar();
    void addAndRegisterParameterControls();
    QVMClumpView& addClumpView(QVMClump& clump, const Rect& frame, View& container);
    void addParameterControlsForClump(QVMClump& clump, QVMClumpView& clumpView);
    void registerParameterControls(const ControlList& controls, QVMClumpView& clumpView);
    void addRangeControls(QVMParameterControl& low, QVMParameterControl& high, QVMClumpView& clumpView);
    void addPresetDrawer();
    void addFrameButton();
    void layOutSketch();
    void layOutFrameButton();
    void layOutNotice();
    void addHudAndNumericMeter();
    void applyChannelLayoutRules();
    // How the sketches' drawing object is set up.
    struct SketchSettings {
        double sampleRate = 44100; // hertz
        std::uint32_t maxFrames = 512;
        float scale = 1; // device pixels a point
    };
    void addSketch();
    void addSketchWithFrameAppendView(const Rect& frame, View& appendView, const SketchSettings& settings);
    void addAuxiliarySketch(const PBSketch& description, const SketchSettings& settings);
    void showMemoizedValues(PBGLSketchAbstract& vizRef) const;
    std::int32_t focusedPid() const; // -1 for none
    void sketchScaleDidChange();
    void describeMeters();

    void applySideEffects(const SideEffects& effects, QVMParameterControl& cause);
    void dimScope(const SideEffects& effects, const QVMParameterControl& cause);

    void assumeNextFrame();
    void assumeFrames();
    void observePreferences();
    void interfacePreferencesUpdated(const Notification& notification);
    QVMParameterControl* controlAtWindowPoint(Point pointInWindow) const;
    const QVMClump* clumpAtWindowPoint(Point pointInWindow) const;

    // QVMParameterControlDelegate
    void parameterControlDidChangeInteractionStateEvent(QVMParameterControl& control, QVMInteraction state,
                                                        const Event* event) override;
    void parameterControlHasRequestedDocumentation(QVMParameterControl& control) override;
    void parameterControlDidTapMeaninglessly(QVMParameterControl& control) override;
    void parameterControlWantsToPerformStaticConversion(QVMParameterControl&, std::int32_t) override {}
    void parameterControlWantsToDisplayModal(QVMParameterControl&, View&) override {}
    // QVMParameterSketchDelegate: the drawing object is handed over first; then the states that differ from the last
    // ones received are adopted.
    void sketchHasUpdatedParameterStates(QVMParameterSketch& sketch, const QVMParameterState* states) override;
    void sketchDidChangeVisibility(QVMParameterSketch& sketch) override;
    // QVMHUDDisplayDelegate: the indicators change nothing in this product.
    void hudWantsToUpdatePid(QVMHUDDisplay&, std::uint32_t) override {}
    // QVMDrawerViewDelegate
    bool canDrawerViewToggleVisibilityToVisibility(QVMDrawerView& drawer, bool visible) override;
    void drawerDidTapMiniature(QVMDrawerView& drawer, std::int32_t code) override;

    void presentPresetsDrawer(QVMDrawerView& drawer);
    void dismissPresetsDrawer(QVMDrawerView& drawer);
    void animationDidStopFinished(QVMDrawerView& drawer, bool finished);
    void showClumpsView();
    std::vector<QVMDrawerView*> drawers() const;
    // What a menu about a control is about: nothing where there is no value to change.
    QVMParameterControl* menuSubject(QVMParameterControl* control);
    bool popUpMenuForKey(const Event& event);

    // QVMABControlDelegate
    void abControlChangeTriggeredByButton(QVMABControl& control, std::uint32_t button) override;

    // SessionSurface
    void sendValueToUnit(std::uint32_t pid, float hostValue) override;
    void showValue(std::uint32_t pid, float value) override;
    void valueDidChange(std::uint32_t pid) override;
    void valueWasReceived(std::uint32_t pid, float value, float was) override;
    std::vector<ShownValue> shownValues() const override;
    bool isGestureUnderWay() const override;
    void historyDidChange() override { syncUndoRedoButtonsToStackState(); }
    void sideDidChange(std::uint32_t side, SideMove move) override;
    void showPreset(std::uint32_t index) override;
    void showPresetDirty(bool dirty) override;
    void presetDidBecomeCurrent(const std::string& name, std::uint32_t index) override;
    void settingsWereRefused(const std::string& why) override { showNotice("Not pasted", why); }

    // FocusSurface
    const View* closedDrawer() const override;
    void openClosedDrawer() override;
    void focusWillMove() override { keyboard_.clearNumberBuffer(); }
    void focusDidMove(QVMParameterControl* control) override;

    std::shared_ptr<QVMConfig> config_;
    QVMGenericUIDelegate* delegate_ = nullptr;
    std::uint32_t chanIn_ = 0, chanOut_ = 0;
    float currentScale_ = 1;
    std::int32_t altFrame_ = 0;

    EditorSession session_;
    EditorFocus focus_;
    QVMKeyboardHandler keyboard_;
    std::vector<QVMInteraction> interactionStates_; // by pid
    ControlList parameterControls_;                 // in order of registration; owned by their superviews
    QVMClumpsView* clumpsView_ = nullptr;
    QVMClumpsView* advClumpsView_ = nullptr;
    QVMClumpView* masterClump_ = nullptr;
    QVMPowerBox* powerBox_ = nullptr;
    QVMPresetBar* presetBar_ = nullptr;
    QVMPresetsDrawer* presetDrawer_ = nullptr; // none without presets
    QVMDrawerView* waitingDrawer_ = nullptr;   // opens when the presets drawer has closed
    DrawerBackdrop* drawerBackdrop_ = nullptr;
    FrameButton* frameButton_ = nullptr;
    QVMHUDDisplay* hud_ = nullptr;
    NoticeView* notice_ = nullptr; // none before the first notice
    QVMMeterButton* numericMeter_ = nullptr;
    std::unique_ptr<NumericMeterReading> numericMeterReading_; // null without a meter
    QVMParameterSketch* sketch_ = nullptr;
    QVMSpeedLim advFlashLim_;

    QVMParameterControl* lastRightClickedControl_ = nullptr; // or the one with the focus, for a menu by key

    DelayedCall toggleFrameCall_, backingScaleCall_, hideClumpsViewCall_, sketchCall_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
    std::vector<ObservationToken> observations_, windowObservations_;
};

} // namespace QVM_NAMESPACE
