// The part of the menus that is about the editor's size.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

class QVMGenericUI;
struct MenuItem;

// A submenu of the sizes, the present one ticked. It does nothing once the editor is gone. Main thread.
MenuItem makeSizeMenu(QVMGenericUI& ui);

} // namespace QVM_NAMESPACE
