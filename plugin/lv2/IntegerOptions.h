// The options of an LV2 host with every integer in four bytes.
//
// Some hosts hand a block length as an integer of eight bytes, a size of the C library's; the toolkit takes an option
// only where its size is that of its type, and without a block length it makes no instance.
#pragma once

#include "BuildNamespace.h"

#include <lv2/options/options.h>
#include <lv2/urid/urid.h>

#include <cstdint>
#include <deque>
#include <vector>

namespace QVM_NAMESPACE {

// Made and used within one call from the host; any thread.
class IntegerOptions {
public:
    // Null options are an empty list. Values are read as they are now; those that need no change are the host's still.
    IntegerOptions(const LV2_Options_Option* options, const LV2_URID_Map& map);
    IntegerOptions(const IntegerOptions&) = delete;
    IntegerOptions& operator=(const IntegerOptions&) = delete;

    // Ends with an empty option, as the format wants it.
    LV2_Options_Option* get() { return options_.data(); }

private:
    std::vector<LV2_Options_Option> options_;
    std::deque<std::int32_t> values_; // they are pointed at
};

} // namespace QVM_NAMESPACE
