// A fixed piece of work. A processor that others share takes longer for everything by turns: what a yardstick takes
// right after something tells that from a something which grew.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace slantwise_tests {

class Yardstick {
public:
    Yardstick();
    // Any thread. About a millisecond, the same each time: allocations, comparisons and memory as an editor has them.
    void run();

private:
    const std::vector<std::uint32_t> unsorted_;
    std::vector<std::uint32_t> numbers_;
    std::size_t found_ = 0; // used by nobody, but the compiler does not know
};

} // namespace slantwise_tests
