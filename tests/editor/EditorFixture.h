// An editor in a window of its own, on virtual time and with display frames by hand, with a delegate that records what
// it hears and a unit that is nothing but 24 numbers and posts them.
#pragma once

#include "controls/QVMFloatControl.h"
#include "description/Description.h"
#include "editor/PressedKeys.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/surface/QVMGenericUI.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"
#include "theme/QVMUITheme.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// Writes one line for each call it hears, and keeps what was sent as the unit would.
class RecordingDelegate : public QVMGenericUIDelegate {
public:
    void interfaceUpdatedParameterKeyedValue(std::uint32_t pid, float hostValue) override {
        store(pid, hostValue);
        sent.push_back({pid, hostValue});
        calls.push_back("updated " + std::to_string(pid));
    }
    void interfaceBeganInteractionWithParameterKeyedEvent(QVMGenericUI&, std::uint32_t pid, const Event*) override {
        calls.push_back("began " + std::to_string(pid));
    }
    void interfaceEndedInteractionWithParameterKeyed(QVMGenericUI&, std::uint32_t pid) override {
        calls.push_back("ended " + std::to_string(pid));
    }
    void interfaceDiscretelyInteractedWithParameterKeyed(QVMGenericUI&, std::uint32_t pid) override {
        calls.push_back("discrete " + std::to_string(pid));
    }
    void interfaceDidUpdateCurrentPresetToValueNamedPid(QVMGenericUI&, const std::string& name,
                                                        std::uint32_t index) override {
        calls.push_back("preset " + name + " " + std::to_string(index));
    }
    void interfaceWantsToSaveAlternateStateSettings(QVMGenericUI&, std::uint32_t state,
                                                    const std::string& settings) override {
        calls.push_back("save slot " + std::to_string(state));
        savedSlot = settings;
    }
    void interfaceWantsToSaveUIState(QVMGenericUI&, std::uint32_t state) override {
        calls.push_back("save state " + std::to_string(state));
    }
    void interfaceWantsToAssumeFrame(QVMGenericUI& ui, std::int32_t frame) override {
        calls.push_back("frame " + std::to_string(frame));
        ui.assumeAltFrameScaleChanged(frame, false);
    }
    SharedState* interfaceWantsVizRef(QVMGenericUI&) override { return vizRef; }
    void interfaceHasReadiedVizRef(QVMGenericUI&, SharedState* readied) override {
        calls.push_back("viz");
        vizRef = readied;
        post();
        vizRef->restartGlide();
    }
    void interfaceWantsSampleRateMaxFrames(QVMGenericUI&, double& rate, std::uint32_t& frames) override {
        rate = sampleRate;
        frames = 512;
    }
    void interfaceWantsToResetMetering(QVMGenericUI&) override { calls.push_back("reset metering"); }
    void interfaceDidUpdateInterfacePreferenceValue(QVMGenericUI&, const std::string& key, double value) override {
        calls.push_back("preference " + key + " " + std::to_string(static_cast<int>(value)));
    }
    void interfaceShouldRequestUpdatedLayout(QVMGenericUI&) override { calls.push_back("layout"); }
    void interfaceWantsToUploadBufferAtURL(QVMGenericUI&, const std::string&) override {}

    // As the unit does, whoever sets the value: what is out of range ends at the range's end, and what is no number
    // changes nothing.
    void store(std::uint32_t pid, float hostValue) {
        const QVMFloat32Range range = GetParameter(pid)->heldRange();
        if (std::isfinite(hostValue)) unit.at(pid) = std::clamp(hostValue, range.min, range.max);
    }
    // As the unit does with every change.
    void post() {
        if (!vizRef) return;
        bool glides = false;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
            const float value = GetParameter(pid)->heldValueFromHostValue(unit[pid]);
            if (vizRef->glide.parameterStates[pid].value == value) continue;
            vizRef->glide.parameterStates[pid].value = vizRef->glide.interpTargets[pid] = value;
            glides = true;
        }
        if (glides) vizRef->restartGlide();
    }

    struct Sent {
        std::uint32_t pid;
        float hostValue;
    };
    std::vector<std::string> calls;
    std::vector<Sent> sent;
    double sampleRate = 44100;                   // hertz
    std::string savedSlot;                       // of the A/B comparison
    std::array<float, QVMParameterCount> unit{}; // host domain
    SharedState* vizRef = nullptr;               // as the unit would know it
};

class EditorFixture : public testing::Test {
protected:
    void SetUp() override { open(QVMConfig::inlinedConfig()); }

    void TearDown() override {
        if (&QVMUITheme::theme() != &QVMUITheme::light()) QVMUITheme::toggleThemeForWindow(nullptr);
        if (ui_) ui_->setDelegate(nullptr);
    }

    // Builds the editor on the unit as it is, as its owner does.
    template <class Editor = QVMGenericUI>
    Editor& build(std::shared_ptr<QVMConfig> config, std::uint32_t chanIn = 2, std::uint32_t chanOut = 2) {
        if (ui_) ui_->setDelegate(nullptr);
        delegate_.vizRef = nullptr;
        auto ui = std::make_unique<Editor>(Rect{0, 0, 480, 320}, std::move(config), chanIn, chanOut);
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            ui->setMemoizedPValueDirectlyValue(pid, GetParameter(pid)->shownValueFromHostValue(delegate_.unit[pid]));
        ui->completeInterfaceSetup();
        ui->setDelegate(&delegate_);
        Editor& built = window_.setContentView(std::move(ui));
        ui_ = &built;
        delegate_.calls.clear();
        delegate_.sent.clear();
        return built;
    }
    // Builds it on initial values, then lets the first snapshot be taken and the first pictures be made.
    void open(std::shared_ptr<QVMConfig> config, std::uint32_t chanIn = 2, std::uint32_t chanOut = 2) {
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            delegate_.unit[pid] = GetParameter(pid)->reverseCastValue(GetParameter(pid)->initialValue);
        build(std::move(config), chanIn, chanOut);
        time_.advance(1);
        for (int i = 0; i < glideFrames; ++i)
            frame();
        delegate_.calls.clear();
        delegate_.sent.clear();
    }

    // One display frame: the unit's values come back.
    void frame() {
        delegate_.post();
        ticks_.tick(time_.now());
        time_.settle();
    }
    // Every display frame of so many seconds, as in a host.
    void frames(double seconds) {
        for (double passed = 0; passed < seconds; passed += frameSeconds) {
            time_.advance(frameSeconds);
            frame();
        }
    }

    // What a user's hand does to a control, without the geometry.
    void userSets(std::uint32_t pid, float value) {
        QVMFloatControl* inner = control(pid).primaryControl();
        inner->setFloatValue(value);
        inner->reportInterfaceInitiatedValueChange();
    }
    // As the host's automation does; the value is in the host domain.
    void hostSets(std::uint32_t pid, float hostValue) {
        delegate_.store(pid, hostValue);
        frame();
    }

    QVMParameterControl& control(std::uint32_t pid) { return *ui_->parameterControlWithPid(pid); }
    float memoized(std::uint32_t pid) const { return ui_->getMemoizedPValueDirectly(pid); }
    std::vector<float> memoized() const {
        std::vector<float> all;
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            all.push_back(memoized(pid));
        return all;
    }
    QVMUndoRedoStack& stack() { return ui_->keyboard().undoRedoStack(); }

    bool key(char32_t character, std::uint16_t keyCode = 0, std::uint32_t modifiers = 0) {
        return ui_->keyboard().handleKeyDownEvent(pressedKey(character, keyCode, modifiers));
    }
    static Event mouseEvent(EventType type, Point at, std::uint32_t modifiers = 0) {
        Event event;
        event.type = type;
        event.locationInWindow = at;
        event.modifierFlags = modifiers;
        event.clickCount = 1;
        return event;
    }
    Point middleOf(const View& view) const { return view.coordinates().toWindow(view.bounds()).center(); }
    void click(Point at, std::uint32_t modifiers = 0) {
        window_.sendEvent(mouseEvent(EventType::mouseDown, at, modifiers));
        window_.sendEvent(mouseEvent(EventType::mouseUp, at, modifiers));
    }

    static constexpr int glideFrames = 10; // more than a hand-over and a glide take
    static constexpr double frameSeconds = 1.0 / 60;

    ManualTickSource ticks_;
    VirtualTime time_;
    RecordingDelegate delegate_;
    Window window_;
    QVMGenericUI* ui_ = nullptr; // owned by the window
};

} // namespace QVM_NAMESPACE
