#include "platform/layer/Transaction.h"

namespace QVM_NAMESPACE {

namespace {
const Transaction* innermost = nullptr; // main thread only
}

Transaction::Transaction(double seconds, TimingFunction timing)
    : outer_(innermost), duration_(seconds), timing_(timing) {
    innermost = this;
}

Transaction::~Transaction() {
    innermost = outer_;
}

double Transaction::currentDuration() {
    return innermost ? innermost->duration_ : 0;
}

TimingFunction Transaction::currentTiming() {
    return innermost ? innermost->timing_ : TimingFunction::linear;
}

} // namespace QVM_NAMESPACE
