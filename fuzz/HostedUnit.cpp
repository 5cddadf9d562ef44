#include "HostedUnit.h"

#include "Fuzz.h"
#include "description/Description.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaViewFactory2.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace slantwise;

namespace slantwise_fuzz {

namespace {

bool isFinite(const std::vector<float>& samples) {
    return std::all_of(samples.begin(), samples.end(), [](float sample) { return std::isfinite(sample); });
}

} // namespace

void HostedUnit::openEditor() {
    if (window_) return;
    window_.emplace(static_cast<WindowHost*>(this));
    view_ = &window_->setContentView(QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&unit_, {}));
    presses_ = gestures_.follow(*window_);
    restores_ = unit_.restoreCount();
}

void HostedUnit::closeEditor() {
    if (!window_) return;
    presses_.reset();
    require(isOpen_.none(), "no gesture outlives the editor");
    window_->setHost(nullptr);
    window_.reset();
    view_ = nullptr;
}

void HostedUnit::wait(double seconds) {
    time_.advance(seconds);
    ticks_.tick(time_.now());
    time_.settle();
    followHost();
    check();
}

// As the shell's editor does with every refresh of its window.
void HostedUnit::followHost() {
    if (!window_) return;
    const std::uint32_t restores = unit_.restoreCount();
    if (std::exchange(restores_, restores) != restores) view_->adoptRestoredState();
    const std::int32_t index = unit_.presetIndex();
    const auto chosen = static_cast<std::uint32_t>(index);
    if (index >= 0 && chosen != ui().currentPreset()) ui().lastSavedPresetWasKeyed(chosen);
}

void HostedUnit::send(Event event) {
    if (!window_) return;
    event.timestamp = time_.now();
    window_->sendEvent(event);
}

void HostedUnit::chooseFromMenu(std::size_t item) {
    if (!menu_ || menu_->items.empty()) return;
    const std::unique_ptr<Menu> shown = std::move(menu_); // gone with the choice
    const MenuItem* chosen = &shown->items[item % shown->items.size()];
    if (!chosen->submenu.empty()) chosen = &chosen->submenu[item % chosen->submenu.size()];
    if (chosen->enabled && chosen->action) chosen->action();
}

bool HostedUnit::restore(std::span<const std::uint8_t> bytes) {
    const auto before = unit_.saveState();
    if (unit_.restoreState(bytes) != UnitStateResult::ok) {
        require(unit_.saveState() == before, "a state that is refused changes nothing");
        return false;
    }
    const auto saved = unit_.saveState();
    require(unit_.restoreState(saved) == UnitStateResult::ok, "what was restored is saved so that it can be restored");
    require(unit_.saveState() == saved, "and saved the same");
    return true;
}

void HostedUnit::play(std::uint32_t frames, float sample) {
    left_.assign(frames, sample);
    right_.assign(frames, sample);
    float* const channels[] = {left_.data(), right_.data()};
    unit_.process(channels, channels, frames);
    if (std::isfinite(sample)) require(isFinite(left_) && isFinite(right_), "what is heard is finite");
}

void HostedUnit::gestureBegan(std::uint32_t pid) {
    require(!isOpen_[pid], "a gesture begins once");
    isOpen_.set(pid);
}

void HostedUnit::valueChanged(std::uint32_t pid) {
    require(isOpen_[pid], "a value comes within a gesture");
}

void HostedUnit::gestureEnded(std::uint32_t pid) {
    require(isOpen_[pid], "a gesture ends once");
    isOpen_.reset(pid);
}

void HostedUnit::editEnded() {
    require(isOpen_.none(), "an edit ends with the last gesture");
}

// As the editor has it, in the shown domain.
float HostedUnit::heldValue(std::uint32_t pid) const {
    float value = 0;
    unit_.getParameter(pid, kAudioUnitScope_Global, 0, &value);
    return GetParameter(pid)->heldValueFromHostValue(value);
}

void HostedUnit::check() {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMFloat32Range range = GetParameter(pid)->heldRange();
        float value = 0;
        require(unit_.getParameter(pid, kAudioUnitScope_Global, 0, &value) == noErr, "every parameter can be read");
        require(std::isfinite(value) && range.contains(value), "the unit's values are in range");
        if (window_) require(std::isfinite(ui().getMemoizedPValueDirectly(pid)), "the editor's values are finite");
    }
    if (!window_) return;
    for (const QVMParameterControl* control : ui().parameterControls()) {
        const QVMParameter& parameter = *control->parameter();
        require(control->floatValue() >= parameter.minValue && control->floatValue() <= parameter.maxValue,
                "a control's value is in range");
    }
    const QVMUndoRedoStack& history = ui().keyboard().undoRedoStack();
    const auto length = static_cast<std::int64_t>(history.stack().size());
    const std::int64_t furthest = std::max<std::int64_t>(length, 1); // an undo leaves it there in an empty one
    require(history.insertionPoint() >= 0 && history.insertionPoint() <= furthest, "the mark is within the history");
    require(!history.locks(), "the history is locked only while a step is put back");
    require(ui().abState() <= 1, "one of two sides is active");
}

void HostedUnit::checkAtRest() {
    time_.settle();
    if (window_ && window_->mouseCapture()) return;
    require(isOpen_.none(), "no gesture is left open");
    if (!window_ || !window_->isVisible() || !ui().sketch()) return;
    frame();
    frame();
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        checkEditorShows(pid);
}

// The editor may know a value in more bits than the unit keeps.
void HostedUnit::checkEditorShows(std::uint32_t pid) {
    const QVMParameter& parameter = *GetParameter(pid);
    const float shown = ui().getMemoizedPValueDirectly(pid), held = heldValue(pid);
    require(shown == held || parameter.heldValueFromHostValue(parameter.reverseCastValue(shown)) == held,
            "the editor has what the unit holds");
}

void HostedUnit::checkUndoAndRedo() {
    if (!window_ || !window_->isVisible()) return;
    if (window_->mouseCapture() || window_->isKeyHeld()) return; // the history waits for the end of a gesture
    // Just opened, the editor has its live pictures, hands over what it shares and takes the unit's values with a frame
    // each; a snapshot is due half a second after the last change.
    for (int i = 0; i < 4; ++i)
        wait(1);
    QVMKeyboardHandler& keyboard = ui().keyboard();
    const std::optional<QVMSnapshot> before = keyboard.undoRedoStack().currentValues()
                                                  ? std::optional(*keyboard.undoRedoStack().currentValues())
                                                  : std::nullopt;
    if (!keyboard.undoRedoStack().canUndo()) return;
    std::array<float, QVMParameterCount> values{};
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        values[pid] = heldValue(pid);
    keyboard.keyboardShortcutUndo();
    checkAtRest();
    require(keyboard.undoRedoStack().canRedo(), "what was undone can be redone");
    keyboard.keyboardShortcutRedo();
    checkAtRest();
    require(before == *keyboard.undoRedoStack().currentValues(), "a step forward undoes a step back");
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        require(values[pid] == heldValue(pid), "and brings every value back");
}

} // namespace slantwise_fuzz
