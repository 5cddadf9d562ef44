// What the editor hands to the desktop for the user, and what it says of it: an address into the clipboard, a page to
// the browser. Main thread.
#pragma once

#include "BuildNamespace.h"

#include <string>

namespace QVM_NAMESPACE {

class QVMGenericUI;

// The address of all settings to the clipboard, and a remark that it is there.
void copySettings(QVMGenericUI& ui);
// The same, and opens it.
void openSettings(QVMGenericUI& ui);
// Opens the manual at its address. Where that can't be, a remark says where it lies.
void openManual(QVMGenericUI& ui, const std::string& address);
// Opens a page of the web, and its address is in the remark that it can't be.
void openPage(QVMGenericUI& ui, const std::string& address);

} // namespace QVM_NAMESPACE
