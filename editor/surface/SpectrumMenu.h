// The part of a menu that chooses what is seen of the spectrum.
#pragma once

#include "BuildNamespace.h"

#include <vector>

namespace QVM_NAMESPACE {

class QVMGenericUI;
struct MenuItem;

// The modes, the present one ticked: a submenu, or an item each in the small window, which has no room for a submenu
// beside a menu. Who chooses one has it reported as a preference. A menu that outlives the editor does nothing. Main
// thread.
std::vector<MenuItem> spectrumItems(QVMGenericUI& ui);

} // namespace QVM_NAMESPACE
