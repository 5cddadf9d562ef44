// The user's hand on an editor: pointer and keys through the window, in virtual time.
#pragma once

#include "editor/EditorFixture.h"

#include "controls/QVMSymbolButton.h"
#include "controls/QVMVerticalSlider.h"
#include "editor/surface/QVMPresetBar.h"

namespace QVM_NAMESPACE {

class QVMGenericUIHistoryGestures : public EditorFixture {
protected:
    static constexpr std::uint32_t gain = 1, tiltLow = 2, tiltHigh = 3, output = 7;

    Point handleOf(std::uint32_t pid) {
        const auto& slider = dynamic_cast<QVMVerticalSlider&>(*control(pid).primaryControl());
        return slider.coordinates().toWindow(slider.readoutBulb()->position());
    }
    void down(Point at, std::uint32_t modifiers = 0) {
        window_.sendEvent(mouseEvent(EventType::mouseDown, at, modifiers));
    }
    void drag(Point to) { window_.sendEvent(mouseEvent(EventType::mouseDragged, to)); }
    void up(Point at, std::uint32_t modifiers = 0) { window_.sendEvent(mouseEvent(EventType::mouseUp, at, modifiers)); }
    void keyGoesDown(char32_t arrow) { window_.sendEvent(pressedKey(arrow, 0, EventModifier::numericPad)); }
    void keyGoesUp(char32_t arrow) {
        Event event = pressedKey(arrow, 0, EventModifier::numericPad);
        event.type = EventType::keyUp;
        window_.sendEvent(event);
    }
    // As a display server repeats it: two thirds of a second after the press, then thirty times a second.
    void holdKey(char32_t arrow, int repeats) {
        keyGoesDown(arrow);
        frames(0.66);
        for (int i = 0; i < repeats; ++i) {
            keyGoesDown(arrow);
            frames(1.0 / 30);
        }
    }
    void set(std::uint32_t pid, float value) {
        userSets(pid, value);
        frames(1);
    }
    void undo() {
        click(middleOf(ui_->presetBar()->undo()));
        frames(1);
    }
    void redo() {
        click(middleOf(ui_->presetBar()->redo()));
        frames(1);
    }
    std::size_t steps() { return stack().stack().size(); }
};

} // namespace QVM_NAMESPACE
