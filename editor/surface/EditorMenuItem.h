// What the editor's menus are made of. Main thread.
#pragma once

#include "platform/view/Menu.h"

#include <functional>
#include <string>

namespace QVM_NAMESPACE {

class QVMGenericUI;

MenuItem menuItem(std::string title, std::function<void()> action, bool enabled = true);
// The same item with a tick before it, or without.
MenuItem ticked(bool isTicked, MenuItem made);
// An item that opens others.
MenuItem submenu(std::string title, std::vector<MenuItem> items);

// An action on the editor that does nothing once the editor is gone: a menu may outlive it.
std::function<void()> onEditor(QVMGenericUI& ui, std::function<void(QVMGenericUI&)> action);

} // namespace QVM_NAMESPACE
