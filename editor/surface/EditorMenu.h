// The context menu of the editor: what concerns one control, then what concerns all settings, and for who has no
// pointer what the buttons do.
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
// The same with a submenu of all that is done by a click on a button elsewhere, and the first row marked.
std::unique_ptr<Menu> makeKeyboardMenu(QVMGenericUI& ui, QVMParameterControl* control);

} // namespace QVM_NAMESPACE
