#include "editor/session/ModesWithoutControl.h"

#include <algorithm>
#include <iterator>

namespace QVM_NAMESPACE {

bool isModeWithoutControl(const QVMParameter& parameter) {
    return parameter.hidden && !parameter.stringValues.empty();
}

std::vector<const QVMParameter*> modesWithoutControl(const QVMClump* clump) {
    std::vector<const QVMParameter*> found;
    if (!clump) return found;
    std::copy_if(clump->parameters.begin(), clump->parameters.end(), std::back_inserter(found),
                 [](const QVMParameter* parameter) { return isModeWithoutControl(*parameter); });
    return found;
}

} // namespace QVM_NAMESPACE
