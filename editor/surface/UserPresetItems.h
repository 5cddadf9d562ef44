// What the context menu does with the presets of the user's.
#pragma once

#include "BuildNamespace.h"

#include <vector>

namespace QVM_NAMESPACE {

class QVMGenericUI;
struct MenuItem;

// To save the present settings, to delete the current preset, and to take the last of these back. None in a product
// without presets. Items that outlive the editor do nothing. Main thread.
std::vector<MenuItem> userPresetItems(QVMGenericUI& ui);

} // namespace QVM_NAMESPACE
