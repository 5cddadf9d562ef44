// Which preferences of the editor are remembered, and whom it tells of them.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

class QVMGenericUI;

// Defines the editor's own preferences and passes what is reported on to its delegate. Once, when the editor is built.
// Main thread.
void observePreferences(QVMGenericUI& ui);

} // namespace QVM_NAMESPACE
