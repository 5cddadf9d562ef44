// What the programs say of what goes wrong, each time in the same words. No state: any thread.
#pragma once

#include "BuildNamespace.h"

#include <string>

namespace QVM_NAMESPACE {

std::string quoted(const std::string& text);

// Of what is named on the command line or the file that it leads to, in a few words of why.
std::string cannotRead(const std::string& what, const std::string& why);
// Of a file that breaks off: what is done with it all the same ("plays").
std::string isDamaged(const std::string& file, const std::string& does);
// Of an option's value, with what it could be ("light or dark").
std::string takesNot(const std::string& option, const std::string& choices, const std::string& value);
std::string needsAValue(const std::string& option);
// Of an argument that has no place.
std::string unknownArgument(const std::string& argument);

} // namespace QVM_NAMESPACE
