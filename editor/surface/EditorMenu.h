// The context menu of the editor: what concerns one control, then what concerns all settings, and last, for who has no
// pointer or looks for it here, what the buttons do and what has no button. It is the same by pointer and by key.
#pragma once

#include "BuildNamespace.h"

#include <memory>

namespace QVM_NAMESPACE {

class Menu;
class QVMGenericUI;
class QVMParameterControl;
struct QVMClump;

// `control` is one of the editor's, with a primary control, or null for a click beside them; `clump` is where it was
// asked for, or null. A menu that outlives the editor does nothing. Main thread.
std::unique_ptr<Menu> makeEditorMenu(QVMGenericUI& ui, QVMParameterControl* control, const QVMClump* clump);

} // namespace QVM_NAMESPACE
