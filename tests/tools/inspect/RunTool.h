// Runs the tool in-process and collects what it wrote.
#pragma once

#include "tools/inspect/Inspect.h"

#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace inspect {

struct RunResult {
    int status = -1;
    std::string out;
    std::string err;
};

inline RunResult RunTool(std::initializer_list<std::string_view> arguments, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const std::vector<std::string_view> words(arguments);
    const int status = RunInspect(words, {in, out, err});
    return {status, out.str(), err.str()};
}

} // namespace inspect
} // namespace QVM_NAMESPACE
