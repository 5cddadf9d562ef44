// All settings as one web address, out to the clipboard and back in.
//
// What is read changes nothing unless all of it can be read; the log and the surface are told why. What an address does
// not name returns to its initial value. Main thread only.
#pragma once

#include "editor/session/EditorValues.h"

#include <string>

namespace QVM_NAMESPACE {

class SettingsClipboard {
public:
    // All borrowed.
    SettingsClipboard(const QVMConfig& config, EditorValues& values, SessionSurface& surface);

    // "SITE/SLUG/VERSION", the part of the address that no settings change.
    std::string baseAddress() const;
    // The address of what the controls show. The master switch is never in it.
    std::string address() const;
    // Takes an address of any product; false when nothing was applied.
    bool apply(const std::string& text);

    // To the clipboard, and from there: false when nothing was applied.
    void copy() const;
    bool paste();
    // Whether the clipboard's text begins as an address of this very product: for a menu. What is behind that is looked
    // at when it is pasted. Reads the clipboard, which may block.
    bool canPaste() const;

private:
    void refuse(const std::string& why);

    const QVMConfig& config_;
    EditorValues& values_;
    SessionSurface& surface_;
};

} // namespace QVM_NAMESPACE
