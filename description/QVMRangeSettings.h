// The range-control settings of a parameter: a small dictionary that keeps its entries in the order they were given.
//
// The keys are few and read by name in several places (which end of a range this is, how close it may come to the
// partner), so an ordered list with look-ups is all it takes.
#pragma once

#include "BuildNamespace.h"

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {

class QVMRangeSettings {
public:
    using Value = std::variant<bool, float, std::string>;
    using Entry = std::pair<std::string, Value>;

    QVMRangeSettings() = default;
    explicit QVMRangeSettings(std::vector<Entry> entries) : entries_(std::move(entries)) {}

    // True for a parameter that is no end of a range.
    bool empty() const { return entries_.empty(); }
    const std::vector<Entry>& entries() const { return entries_; }

    // The value at a key; a key that is missing or holds another type reads as false, 0 or an empty text.
    bool boolValue(std::string_view key) const;
    float floatValue(std::string_view key) const;
    // Named by the contract and not used in this product, whose settings are flags and numbers.
    std::string stringValue(std::string_view key) const;

private:
    template <typename Type>
    Type valueOr(std::string_view key, Type fallback) const;

    std::vector<Entry> entries_;
};

} // namespace QVM_NAMESPACE
