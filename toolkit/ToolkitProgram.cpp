#include "toolkit/ToolkitProgram.h"

#include <cstdio>
#include <cstdlib>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* noDisplay = "none";

} // namespace

int ToolkitProgram::run(int argumentCount, char* arguments[], CreateInstanceFunction create) {
    // The toolkit would take display 0 when none is named, whosever it is.
    if (std::getenv("DISPLAY") == nullptr) setenv("DISPLAY", noDisplay, 1);
    createInstance = create;
    return main(argumentCount, const_cast<const char**>(arguments));
}

void ToolkitProgram::warn(const std::string& message) const {
    std::fprintf(stderr, "%s: %s\n", calledAs_.c_str(), message.c_str());
}

void ToolkitProgram::fail(const std::string& message) {
    warn(message);
    setApplicationReturnValue(1);
    quit();
}

void ToolkitProgram::failForWantOfDisplay() {
    const char* const setTo = std::getenv("DISPLAY");
    const std::string display = setTo ? setTo : "";
    const std::string otherwise = ", or write a picture with --screenshot FILE";
    if (display.empty() || display == noDisplay) return fail("there is no display; set DISPLAY" + otherwise);
    fail("cannot open the display \"" + display + "\"; set DISPLAY to another" + otherwise);
}

} // namespace QVM_NAMESPACE
