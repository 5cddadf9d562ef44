// What is said of a file that was rendered, in lines.
#pragma once

#include "tools/render/RenderFile.h"

#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace render {

// "a.wav -> b.wav  -16.3 to -15.8 LUFS  -1.2 to -1.0 dBTP", of a file that was written.
std::string resultText(const RenderResult& result);

// What there is to complain about, each in a line: why it was not written, what was cut off, what is missing.
std::vector<std::string> complaints(const RenderResult& result);

// A file's name as a terminal can show it: without characters that would move the cursor.
std::string printable(const std::string& name);

} // namespace render
} // namespace QVM_NAMESPACE
