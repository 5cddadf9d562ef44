// A control that the keyboard can act on, with or without a parameter behind it.
//
// It says what the focus and the keys need to know and can do; whatever else a control is for, its class adds. The base
// is one that takes nothing typed and that the walk with Tab does not come to. Main thread only.
#pragma once

#include "platform/view/Control.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

struct QVMClump;

class FocusableControl : public Control {
public:
    using Control::Control;

    bool focused() const { return focused_; }
    // Whether it has the keyboard; who draws that overrides it and calls the base. Told with every move of the focus,
    // also when it stays.
    virtual void setFocused(bool focused) { focused_ = focused; }

    // The name by which the tab order has it, for as long as the control lives; empty for one that is not in there.
    virtual std::string_view codename() const { return {}; }
    // The clump that it belongs to, wherever it stands; null for none. Not owned.
    virtual const QVMClump* clump() const { return nullptr; }

    // One arrow key, as its character; `granularity` is a QVMGranularity. Whether it was of use.
    virtual bool incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity) = 0;
    // Return, before what was typed is looked at: flips a switch, and is false for anything else.
    virtual bool toggleBooleanControl() = 0;
    // Whether there are keys that mean a tap on it, and what they do; false when the tap was refused.
    virtual bool hasTap() const { return false; }
    virtual bool tap() = 0;

    // Whether text shows while it is being typed, and how; the end of showing it; and the whole text, with Return.
    virtual bool acceptsTransientStringBuffers() const { return false; }
    virtual void setTransientStringValue(const std::string& text) = 0;
    virtual void clearTransientStringValue() {}
    virtual void setStringValue(const std::string&) {}

    // A press ends with the control that it began in: the editor would give the focus to what is under the pointer.
    void mouseDragged(const Event&) override {}
    void mouseUp(const Event&) override {}

private:
    bool focused_ = false;
};

} // namespace QVM_NAMESPACE
