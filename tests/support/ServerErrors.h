// While it lives it is the process's handler of the X server's errors, as a host may have one, and writes them down.
// One at a time; the handler that was before comes back.
#pragma once

#include <string>

namespace slantwise_tests {

class ServerErrors {
public:
    ServerErrors();
    ~ServerErrors();
    ServerErrors(const ServerErrors&) = delete;
    ServerErrors& operator=(const ServerErrors&) = delete;

    // A line for each, with the numbers of the error and of the request. Errors are heard of when what follows them is
    // read.
    std::string told() const;
};

} // namespace slantwise_tests
