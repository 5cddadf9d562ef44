// Whether setting a layer's property moves there at once or glides. Scoped; transactions nest; main thread only. It
// lives on the stack of who makes the changes, and is of no effect on what was changed before it.
#pragma once

#include "platform/layer/Animation.h"

namespace QVM_NAMESPACE {

class Transaction {
public:
    // Within it, changes of position, bounds, opacity, transform, background colour and corner radius glide from what
    // is presented to the new value. Outside any transaction, and in one that disables actions, they are immediate.
    static Transaction animated(double seconds, TimingFunction timing = TimingFunction::easeInEaseOut) {
        return Transaction(seconds, timing);
    }
    static Transaction disablingActions() { return Transaction(0, TimingFunction::linear); }

    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // Of the innermost transaction; 0 when changes are immediate.
    static double currentDuration();
    static TimingFunction currentTiming();

private:
    Transaction(double seconds, TimingFunction timing);
    const Transaction* outer_ = nullptr;
    double duration_ = 0;
    TimingFunction timing_ = TimingFunction::linear;
};

} // namespace QVM_NAMESPACE
