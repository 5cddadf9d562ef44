// Where keys lead in a list of leaves.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// A plain value: the leaves that can be chosen, from the top, and the one that is selected. Each way gives the leaf to
// choose next, none where there is none. Any thread.
struct OutlineWalk {
    struct Leaf {
        std::uint32_t id;
        std::string name;
    };
    using Goal = std::optional<std::uint32_t>;

    std::vector<Leaf> leaves;
    Goal selected;

    // So many places behind the selected one, stopping at the ends; with none selected, the end where that way begins.
    Goal by(int places) const;
    Goal toFirst() const;
    Goal toLast() const;
    // The next one behind the selected one, from the first one on behind the last, whose name begins with a letter,
    // capital or small.
    Goal toLetter(char32_t letter) const;
};

} // namespace QVM_NAMESPACE
