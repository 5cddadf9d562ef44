// Text that is fitted to a width: cut, with an ellipsis in place of what does not fit, or in several lines.
#pragma once

#include "platform/layer/Font.h"

#include <cstddef>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// The text, or as much of its beginning as fits with the ellipsis behind it; whole characters, and no blank before the
// ellipsis. The width is in points. Main thread.
std::string elided(const std::string& text, const Font& font, double width);
// The same with the ellipsis in its middle, for names that may differ at their ends only.
std::string elidedInMiddle(const std::string& text, const Font& font, double width);
// The text in lines that fit, broken at blanks, and behind the slashes of a path; at most so many, the last one cut.
std::vector<std::string> inLines(const std::string& text, const Font& font, double width, std::size_t most);

} // namespace QVM_NAMESPACE
