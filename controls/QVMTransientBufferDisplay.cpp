#include "controls/QVMTransientBufferDisplay.h"

#include "platform/view/View.h"

namespace QVM_NAMESPACE {

void QVMTransientBufferDisplayClear(View* object) {
    auto* display = dynamic_cast<QVMTransientBufferDisplay*>(object);
    if (display && display->displayingTransientBufferValue()) display->discardTransientBufferValue();
}

} // namespace QVM_NAMESPACE
