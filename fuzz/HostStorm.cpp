#include "HostStorm.h"

#include "Fuzz.h"
#include "description/Description.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"

#include <cstddef>
#include <string>
#include <utility>

using namespace slantwise;

namespace slantwise_fuzz {

namespace {

constexpr Size widestEditor{700, 340}; // points, with a little beyond the edge

std::uint32_t modifiersFrom(std::uint8_t bits) {
    std::uint32_t flags = 0;
    if ((bits & 1) != 0) flags |= EventModifier::shift;
    if ((bits & 2) != 0) flags |= EventModifier::option;
    if ((bits & 4) != 0) flags |= EventModifier::command;
    if ((bits & 8) != 0) flags |= EventModifier::control;
    return flags;
}

std::uint32_t pidFrom(ByteSource& in) {
    return static_cast<std::uint32_t>(in.below(QVMParameterCount));
}

} // namespace

constexpr std::array<HostStorm::Step, 29> HostStorm::steps = {
    &HostStorm::automate,       &HostStorm::setAnyNumber,  &HostStorm::playBlock,     &HostStorm::playAnySample,
    &HostStorm::prepare,        &HostStorm::chooseProgram, &HostStorm::saveState,     &HostStorm::restoreState,
    &HostStorm::restoreSpoilt,  &HostStorm::openEditor,    &HostStorm::closeEditor,   &HostStorm::nameParameters,
    &HostStorm::showFrames,     &HostStorm::wait,          &HostStorm::loseThings,    &HostStorm::changeScale,
    &HostStorm::press,          &HostStorm::drag,          &HostStorm::release,       &HostStorm::openMenu,
    &HostStorm::chooseFromMenu, &HostStorm::scroll,        &HostStorm::typeCharacter, &HostStorm::pressNamedKey,
    &HostStorm::focus,          &HostStorm::useCommand,    &HostStorm::choosePreset,  &HostStorm::paste,
    &HostStorm::undoAndRedo,
};

void HostStorm::step(ByteSource& in) {
    (this->*steps[in.below(steps.size())])(in);
    host_.checkAtRest();
    host_.check();
}

void HostStorm::automate(ByteSource& in) {
    const std::uint32_t pid = pidFrom(in);
    const QVMFloat32Range range = GetParameter(pid)->heldRange();
    const float value = range.min + in.part() * (range.max - range.min);
    require(AudioUnitSetParameter(&host_.unit(), pid, kAudioUnitScope_Global, 0, value, 0) == noErr,
            "a value in range is taken");
}

void HostStorm::setAnyNumber(ByteSource& in) {
    const auto pid = static_cast<std::uint32_t>(in.below(QVMParameterCount + 2)); // two that there are not
    AudioUnitSetParameter(&host_.unit(), pid, kAudioUnitScope_Global, 0, in.number(), 0);
}

void HostStorm::playBlock(ByteSource& in) {
    host_.play(static_cast<std::uint32_t>(in.byte()) * 8, 2 * in.part() - 1);
}

void HostStorm::playAnySample(ByteSource& in) {
    constexpr float loudest = 1e10F; // 200 dB beyond full scale; nothing here makes an infinity of it
    const float sample = in.number();
    host_.play(in.byte(), std::abs(sample) > loudest ? loudest : sample);
}

void HostStorm::prepare(ByteSource& in) {
    constexpr std::array rates = {44100.0, 48000.0, 88200.0, 96000.0, 192000.0, 8000.0, 1.0, 1e6, 0.0, -1.0, 1e300};
    const double rate = rates[in.below(rates.size())];
    const auto frames = static_cast<std::uint32_t>(in.byte()) * 32;
    const auto chanIn = static_cast<std::uint32_t>(in.below(4)), chanOut = static_cast<std::uint32_t>(in.below(4));
    host_.unit().prepare(rate, frames, chanIn, chanOut);
}

void HostStorm::chooseProgram(ByteSource& in) {
    host_.unit().choosePreset(static_cast<std::int32_t>(in.below(32)) - 4);
}

void HostStorm::saveState(ByteSource& in) {
    saved_[in.below(saved_.size())] = host_.unit().saveState();
}

void HostStorm::restoreState(ByteSource& in) {
    const auto& state = saved_[in.below(saved_.size())];
    require(host_.restore(state) == !state.empty(), "a state that was saved can be restored");
}

void HostStorm::restoreSpoilt(ByteSource& in) {
    std::vector<std::uint8_t> state = saved_[in.below(saved_.size())];
    if (state.empty()) return;
    state[in.word() % state.size()] ^= in.byte();
    if (in.below(2) == 0) state.resize(in.word() % state.size());
    host_.restore(state);
}

void HostStorm::openEditor(ByteSource&) {
    host_.openEditor();
}

void HostStorm::closeEditor(ByteSource&) {
    host_.closeEditor();
}

void HostStorm::nameParameters(ByteSource& in) {
    if (!host_.isEditorOpen()) return;
    const std::uint32_t pid = pidFrom(in);
    host_.view().setParameterValuePairs({{GetParameter(pid)->codesafeName, in.number()}});
}

void HostStorm::showFrames(ByteSource& in) {
    for (std::size_t frames = 1 + in.below(8); frames > 0; --frames)
        host_.frame();
}

void HostStorm::wait(ByteSource& in) {
    host_.wait(2 * static_cast<double>(in.part()));
}

// The keyboard, the pointer or the screen is taken away, and given back.
void HostStorm::loseThings(ByteSource& in) {
    if (!host_.isEditorOpen()) return;
    Window& window = host_.window();
    switch (in.below(4)) {
    case 0:
        return window.setKeyWindow(!window.isKeyWindow());
    case 1:
        return window.cancelPress();
    case 2:
        return window.setVisible(!window.isVisible());
    default:
        return host_.ui().setHasFocus(!host_.ui().hasFocus());
    }
}

void HostStorm::changeScale(ByteSource& in) {
    if (host_.isEditorOpen()) host_.window().setBackingScaleFactor(1 + 0.5 * static_cast<double>(in.below(5)));
}

Event HostStorm::pointerEvent(EventType type, ByteSource& in) const {
    Event event;
    event.type = type;
    event.locationInWindow.x = static_cast<double>(in.part()) * widestEditor.width;
    event.locationInWindow.y = static_cast<double>(in.part()) * widestEditor.height;
    const std::uint8_t bits = in.byte();
    event.modifierFlags = modifiersFrom(bits & (bits >> 4)); // most often none
    event.clickCount = 1 + (bits & 1);
    return event;
}

void HostStorm::press(ByteSource& in) {
    host_.send(pointerEvent(EventType::mouseDown, in));
}

void HostStorm::drag(ByteSource& in) {
    host_.send(pointerEvent(in.below(8) == 0 ? EventType::mouseMoved : EventType::mouseDragged, in));
}

void HostStorm::release(ByteSource& in) {
    host_.send(pointerEvent(EventType::mouseUp, in));
}

void HostStorm::openMenu(ByteSource& in) {
    host_.send(pointerEvent(EventType::rightMouseDown, in));
}

void HostStorm::chooseFromMenu(ByteSource& in) {
    host_.chooseFromMenu(in.byte());
}

void HostStorm::scroll(ByteSource& in) {
    constexpr std::array phases = {EventPhase::none, EventPhase::began, EventPhase::changed, EventPhase::ended,
                                   EventPhase::mayBegin};
    Event event = pointerEvent(EventType::scrollWheel, in);
    event.scrollingDeltaX = in.byte() - 128;
    event.scrollingDeltaY = in.byte() - 128;
    event.phase = phases[in.below(phases.size())];
    event.hasPreciseScrollingDeltas = event.phase != EventPhase::none;
    event.isDirectionInvertedFromDevice = in.below(2) != 0;
    host_.send(event);
}

void HostStorm::typeCharacter(ByteSource& in) {
    constexpr std::string_view characters = "0123456789.,-k ";
    const std::uint8_t byte = in.byte();
    Event event;
    event.type = EventType::keyDown;
    const char32_t typed = byte < 128 ? static_cast<char32_t>(characters[byte % characters.size()]) : byte;
    event.charactersIgnoringModifiers = std::u32string(1, typed);
    host_.send(event);
}

void HostStorm::pressNamedKey(ByteSource& in) {
    constexpr std::array codes = {Key::codeReturn, Key::codeTab,   Key::codeSpace, Key::codeGrave, Key::codeDelete,
                                  Key::codeEscape, Key::codeEnter, Key::codeF10,   Key::codeMenu};
    constexpr std::array arrows = {Key::up, Key::down, Key::left, Key::right};
    Event event;
    event.type = in.below(4) == 0 ? EventType::keyUp : EventType::keyDown;
    event.modifierFlags = modifiersFrom(in.byte());
    if (in.below(2) == 0) {
        event.keyCode = codes[in.below(codes.size())];
    } else {
        event.charactersIgnoringModifiers = std::u32string(1, arrows[in.below(arrows.size())]);
        event.modifierFlags |= EventModifier::numericPad;
    }
    host_.send(event);
}

void HostStorm::focus(ByteSource& in) {
    if (!host_.isEditorOpen()) return;
    const auto& controls = host_.ui().parameterControls();
    const std::size_t at = in.below(controls.size() + 1);
    host_.ui().bringParameterControlIntoFocus(at < controls.size() ? controls[at] : nullptr);
}

// What has a button or an item in a menu.
void HostStorm::useCommand(ByteSource& in) {
    if (!host_.isEditorOpen()) return;
    QVMGenericUI& ui = host_.ui();
    const std::array<std::function<void()>, 10> commands = {
        [&] { ui.keyboard().keyboardShortcutUndo(); },
        [&] { ui.keyboard().keyboardShortcutRedo(); },
        [&] { ui.keyboard().keyboardShortcutToggleAdvancedDrawer(); },
        [&] { ui.keyboard().keyboardShortcutTogglePresetDrawer(); },
        [&] { ui.keyboard().keyboardShortcutToggleTheme(); },
        [&] { ui.keyboard().keyboardShortcutTogglePower(); },
        [&] { ui.keyboard().keyboardShortcutResizeWindow(); },
        [&] { ui.presetBar()->ab().tap(); },
        [&] { ui.resetInitialValues(); },
        [&] { ui.meterTapped(); },
    };
    commands[in.below(commands.size())]();
}

void HostStorm::choosePreset(ByteSource& in) {
    const auto& names = GetPresets()->stringValues;
    if (host_.isEditorOpen()) host_.view().requestPresetNamed(names[in.below(names.size())]);
}

void HostStorm::paste(ByteSource& in) {
    if (!host_.isEditorOpen()) return;
    QVMKeyboardHandler& keyboard = host_.ui().keyboard();
    keyboard.applyURLEncodedPreset(keyboard.baseURLForPluginVersion() + "/?" + in.text());
}

void HostStorm::undoAndRedo(ByteSource&) {
    host_.checkUndoAndRedo();
}

} // namespace slantwise_fuzz
