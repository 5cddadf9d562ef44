// An editor that is driven by keys.
#pragma once

#include "editor/EditorFixture.h"

#include <gmock/gmock.h>

#include <string_view>

namespace QVM_NAMESPACE {

class QVMKeyboardHandlerTest : public EditorFixture {
protected:
    void focus(std::uint32_t pid) { ui_->bringParameterControlIntoFocus(&control(pid)); }
    std::uint32_t focusedPid() const {
        return dynamic_cast<const QVMParameterControl&>(*ui_->focusedControl()).parameter()->pid;
    }
    const std::string& buffer() { return ui_->keyboard().numberBuffer(); }
    void type(std::string_view text) {
        for (const char c : text)
            key(static_cast<char32_t>(c));
    }
    bool tab(std::uint32_t modifiers = 0) { return key(0, Key::codeTab, modifiers); }
    bool arrow(char32_t which, std::uint32_t modifiers = 0) {
        return ui_->keyboard().handlePerformKeyEquivalent(pressedKey(which, 0, modifiers | EventModifier::numericPad));
    }
};

} // namespace QVM_NAMESPACE
