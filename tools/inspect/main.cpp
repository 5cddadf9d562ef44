#include "tools/inspect/Inspect.h"

#include <iostream>
#include <vector>

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    const int status = slantwise::inspect::RunInspect(arguments, {std::cin, std::cout, std::cerr});
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "slantwise-inspect: cannot write the output\n";
        return status == slantwise::inspect::exitSuccess ? slantwise::inspect::exitFailure : status;
    }
    return status;
}
