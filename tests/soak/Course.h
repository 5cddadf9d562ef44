// Many turns of the same use: counts them, and finds what they leave behind and whether they take longer and longer.
#pragma once

#include "Footprint.h"
#include "Yardstick.h"

#include <functional>
#include <vector>

namespace slantwise_tests {

class Course {
public:
    // What the measured part of a turn was, as its own use numbers it: the work of one kind is compared.
    using Kind = unsigned;
    struct Use {
        std::function<void()> before = [] {}; // the part of a turn that is as long as chance has it
        std::function<Kind()> measured;       // the other one
        std::function<void()> rest = [] {};   // brings everything to where a footprint can be taken
    };

    explicit Course(long turns) : turns_(turns) {}

    // Main thread, once. What is held is compared between half of the way and the end: in the first half, whatever is
    // made at its first use is made, and what has a bound of its own comes near it; what leaks goes on. Work is
    // compared between the two ends of the way. Prints its figures; false where something grows.
    bool run(const Use& use);

private:
    struct Turn {
        Kind kind;
        float work; // of the main thread, in yardsticks
    };

    bool isHeldTheSame(const Footprint& half, const Footprint& end) const;
    bool isWorkTheSame() const;

    const long turns_;
    Yardstick yardstick_;
    std::vector<Turn> done_;
};

} // namespace slantwise_tests
