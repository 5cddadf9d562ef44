// One entry of an outline: a title that has children, or a leaf that can be chosen.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

struct OutlineItem {
    std::string title;
    std::string note;                // shown under the title; empty: none
    std::optional<std::uint32_t> id; // of a leaf: what choosing it means to the owner; none: it cannot be chosen
    std::vector<OutlineItem> children;
    // What becomes of texts that are too long for the row: those of the product are known to fit.
    enum class Fit : bool { asIs, cut };
    Fit fit = Fit::asIs;

    bool operator==(const OutlineItem&) const = default;
};

} // namespace QVM_NAMESPACE
