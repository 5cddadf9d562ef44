// The context menu of the editor: what concerns the control that was clicked, then what concerns all settings.
#pragma once

#include "description/BuildNamespace.h"

#include <memory>

namespace QVM_NAMESPACE {

class Menu;
class QVMGenericUI;
class QVMParameterControl;

// `control` is one of the editor's, with a primary control, or null for a click beside them. A menu that outlives the
// editor does nothing. Main thread.
std::unique_ptr<Menu> makeEditorMenu(QVMGenericUI& ui, QVMParameterControl* control);

} // namespace QVM_NAMESPACE
