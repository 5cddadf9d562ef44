// Fitting a value's text into the room there is for it.
#pragma once

#include "platform/layer/AttributedString.h"

namespace QVM_NAMESPACE {

// The text with its fonts 1 point smaller, and again, while it is wider than `width` points; never below a size that
// can be read. Glyphs, which is all that is not ASCII, keep their size. Main thread.
AttributedString shrunkenToWidth(AttributedString text, double width);

} // namespace QVM_NAMESPACE
