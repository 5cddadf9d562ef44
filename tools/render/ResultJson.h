// What was done and measured, as JSON.
#pragma once

#include "tools/render/RenderFile.h"

#include <span>
#include <string>

namespace QVM_NAMESPACE {
namespace render {

// One object with a row for each file in its order, ending with a newline. Levels are in decibels, and null where there
// is no sound. Bytes of names that are no UTF-8 are replaced.
std::string resultsJson(std::span<const RenderResult> results, const RenderOptions& options);
// The same where the arguments make no sense: no files, and what is wrong.
std::string refusalJson(const std::string& problem);

} // namespace render
} // namespace QVM_NAMESPACE
