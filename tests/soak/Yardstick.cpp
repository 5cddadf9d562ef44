#include "Yardstick.h"

#include <algorithm>
#include <map>
#include <random>

namespace slantwise_tests {

namespace {

std::vector<std::uint32_t> shuffledNumbers() {
    std::vector<std::uint32_t> numbers(8192);
    std::mt19937 random(1);
    std::generate(numbers.begin(), numbers.end(), random);
    return numbers;
}

} // namespace

Yardstick::Yardstick() : unsorted_(shuffledNumbers()), numbers_(unsorted_) {}

void Yardstick::run() {
    std::copy(unsorted_.begin(), unsorted_.end(), numbers_.begin());
    std::sort(numbers_.begin(), numbers_.end());
    std::map<std::string, std::uint32_t> names;
    for (std::size_t i = 0; i < 1024; ++i)
        names.emplace("a name that is allocated " + std::to_string(unsorted_[i]), numbers_[i]);
    for (std::size_t i = 0; i < 1024; ++i)
        found_ += names.count("a name that is allocated " + std::to_string(unsorted_[2 * i]));
}

} // namespace slantwise_tests
