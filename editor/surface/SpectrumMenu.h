// The part of a menu that chooses what is seen of the spectrum.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

class QVMGenericUI;
struct MenuItem;

// A submenu of the modes, the present one ticked. Who chooses one has it reported as a preference. A menu that outlives
// the editor does nothing. Main thread.
MenuItem spectrumItem(QVMGenericUI& ui);

} // namespace QVM_NAMESPACE
