// Fitted sections at the nodes of a grid, such that sections of neighbouring nodes belong together.
#pragma once

#include "Fit.h"

#include <vector>

namespace prototypes {

// The tilt by the span of its corners (descending, even on a logarithmic scale) and by its gain. Corners are stored
// relative to the span: 0 at the lower corner of the tilt and 1 at the upper one.
class TiltGrid {
public:
    static constexpr int spans = 16;
    static constexpr int sections = 3;
    static const std::vector<double>& gains(); // dB, ascending

    TiltGrid();
    const std::vector<std::vector<Cascade>>& nodes() const { return nodes_; } // by span, then by gain

private:
    void start();
    void walkSpans();
    void walkGains(int span);
    void smooth();

    std::vector<std::vector<Cascade>> nodes_;
};

enum class FilterKind { passed, removed, removedRoot };

// Filters of orders 1 to 8, ascending and even on a logarithmic scale.
std::vector<Cascade> filterGrid(FilterKind kind);

} // namespace prototypes
