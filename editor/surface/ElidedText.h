// Text that is cut to a width, with an ellipsis in place of what does not fit.
#pragma once

#include "platform/layer/Font.h"

#include <string>

namespace QVM_NAMESPACE {

// The text, or as much of its beginning as fits with the ellipsis behind it; whole characters, and no blank before the
// ellipsis. The width is in points. Main thread.
std::string elided(const std::string& text, const Font& font, double width);

} // namespace QVM_NAMESPACE
