#include "toolkit/ToolkitProgram.h"

#include <cstdio>
#include <cstdlib>

namespace QVM_NAMESPACE {

int ToolkitProgram::run(int argumentCount, char* arguments[], CreateInstanceFunction create) {
    // The toolkit would take display 0 when none is named, whosever it is.
    if (std::getenv("DISPLAY") == nullptr) setenv("DISPLAY", "none", 1);
    createInstance = create;
    return main(argumentCount, const_cast<const char**>(arguments));
}

void ToolkitProgram::fail(const std::string& message) {
    std::fprintf(stderr, "%s: %s\n", name_.c_str(), message.c_str());
    setApplicationReturnValue(1);
    quit();
}

} // namespace QVM_NAMESPACE
