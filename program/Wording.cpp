#include "program/Wording.h"

namespace QVM_NAMESPACE {

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

std::string cannotRead(const std::string& what, const std::string& why) {
    return "cannot read " + what + ": " + why;
}

std::string isDamaged(const std::string& file, const std::string& does) {
    return quoted(file) + " is damaged, and " + does + " as far as it can be read";
}

std::string takesNot(const std::string& option, const std::string& choices, const std::string& value) {
    return option + " takes " + choices + ", not " + quoted(value);
}

std::string needsAValue(const std::string& option) {
    return option + " needs a value";
}

std::string unknownArgument(const std::string& argument) {
    return "unknown argument " + quoted(argument) + " (--help lists the options)";
}

} // namespace QVM_NAMESPACE
