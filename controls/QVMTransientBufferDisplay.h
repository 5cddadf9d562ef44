// What a control implements that can show a number while it is being typed, before it becomes the value.
#pragma once

#include "platform/layer/AttributedString.h"

namespace QVM_NAMESPACE {

class View;

class QVMTransientBufferDisplay {
public:
    virtual ~QVMTransientBufferDisplay() = default;

    // Shows the text in place of the value; an empty one shows an open, empty field.
    virtual void displayTransientBufferValue(const AttributedString& text) = 0;
    // Shows the value again and forgets what was typed.
    virtual void discardTransientBufferValue() = 0;

    virtual bool displayingTransientBufferValue() const = 0;
    virtual void setDisplayingTransientBufferValue(bool displaying) = 0;

    // Points: the size at which typed text is set.
    virtual double transientStringPreferredFontSize() const = 0;
};

// Discards what `object` shows of a half-typed value. Null, a view that shows no such values, and one that shows none
// at the moment are left alone. Main thread.
void QVMTransientBufferDisplayClear(View* object);

} // namespace QVM_NAMESPACE
