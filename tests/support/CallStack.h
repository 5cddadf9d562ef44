// Which of this project's classes are on the stack right now: those that are called, not those that are said to be.
#pragma once

#include <string>
#include <vector>

namespace call_stack {

// "folder/Class" of each function of a class that has a header of its own under `sourceFolder`, outermost caller first;
// one that calls itself or its own parts is named once. Reads the symbols of the running program, so it must not be
// stripped. A function that the compiler put into its caller or jumped out of is not there.
std::vector<std::string> classes(const std::string& sourceFolder);

} // namespace call_stack
