// Keys typed into an editor: every byte is a key, some of them named ones. Whatever is typed, the number being typed
// keeps its form and every value stays in its range.
#include "Fuzz.h"
#include "description/Description.h"
#include "editor/keyboard/QVMKeyboardHandler.h"
#include "editor/surface/QVMGenericUI.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>

using namespace slantwise;
using slantwise_fuzz::require;

namespace {

constexpr std::uint8_t firstNamedKey = 0x80, firstFocus = 0xC0; // below, a byte is a character
constexpr std::size_t longestTyping = 400;

// By the low bits of the byte.
constexpr std::array<std::uint16_t, 8> namedKeys = {Key::codeReturn, Key::codeTab,   Key::codeGrave, Key::codeDelete,
                                                    Key::codeEscape, Key::codeEnter, Key::codeSpace, Key::codeTab};
constexpr std::array<char32_t, 4> arrows = {Key::up, Key::down, Key::left, Key::right};

Event keyFor(std::uint8_t byte) {
    Event event;
    event.type = EventType::keyDown;
    if (byte < firstNamedKey) {
        event.charactersIgnoringModifiers = std::u32string(1, static_cast<char32_t>(byte));
        return event;
    }
    if ((byte & 0x10) != 0) event.modifierFlags |= EventModifier::shift;
    if ((byte & 0x20) != 0) {
        event.charactersIgnoringModifiers = std::u32string(1, arrows[byte % arrows.size()]);
        event.modifierFlags |= EventModifier::numericPad;
        if ((byte & 0x08) != 0) event.modifierFlags |= EventModifier::command;
    } else {
        event.keyCode = namedKeys[byte % namedKeys.size()];
    }
    return event;
}

// An editor with no unit: what it tells is heard by nobody, so its controls keep what was typed into them.
struct Editor {
    VirtualTime time;
    Window window;
    QVMGenericUI* ui;

    Editor() {
        auto made = std::make_unique<QVMGenericUI>(Rect{0, 0, 480, 320}, QVMConfig::inlinedConfig(), 2, 2);
        made->completeInterfaceSetup();
        ui = &window.setContentView(std::move(made));
    }

    void press(std::uint8_t byte) {
        if (byte >= firstFocus) {
            const auto& controls = ui->parameterControls();
            ui->bringParameterControlIntoFocus(controls[byte % controls.size()]);
        } else {
            window.sendEvent(keyFor(byte));
        }
    }

    void checkBuffer() const {
        const std::string& typed = ui->keyboard().numberBuffer();
        require(typed.find_first_not_of("-,.0123456789k") == std::string::npos, "only a number is typed");
        require(typed.rfind('-') == std::string::npos || typed.rfind('-') == 0, "a minus is the first character");
        require(typed.find('k') == std::string::npos || typed.find('k') + 1 == typed.size(), "a k is the last one");
        for (const char mark : {'.', ','})
            require(std::count(typed.begin(), typed.end(), mark) <= 1, "a mark is there once");
        require(typed.empty() || ui->focusedControl(), "nothing is typed without a focus");
    }
    void checkValues() const {
        for (const QVMParameterControl* control : ui->parameterControls()) {
            const QVMParameter& parameter = *control->parameter();
            require(control->floatValue() >= parameter.minValue && control->floatValue() <= parameter.maxValue,
                    "a value is in range");
            // The pushed end of a range may be told beyond it: the unit keeps it in.
            require(std::isfinite(ui->getMemoizedPValueDirectly(parameter.pid)), "and what is told of it is finite");
        }
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Editor editor;
    editor.ui->bringParameterControlIntoFocus(editor.ui->parameterControls().front());
    editor.press(firstNamedKey + 4); // Escape: nothing is left of the input before
    for (const std::uint8_t byte : std::span(data, std::min(size, longestTyping))) {
        editor.press(byte);
        editor.checkBuffer();
    }
    editor.checkValues();
    editor.time.advance(1);
    return 0;
}
