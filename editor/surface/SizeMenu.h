// The part of the menus that is about the editor's size.
#pragma once

#include "BuildNamespace.h"

#include <vector>

namespace QVM_NAMESPACE {

class QVMGenericUI;
struct MenuItem;

// A submenu of the sizes, the present one ticked; in the small window, which has no room for a submenu beside a menu,
// the ways to another size, an item each. It does nothing once the editor is gone. Main thread.
std::vector<MenuItem> sizeItems(QVMGenericUI& ui);

} // namespace QVM_NAMESPACE
