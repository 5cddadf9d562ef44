// The parameters of this product, one row each: identity, range, steps and control.
//
// What only few parameters have stands in ParameterExtrasTable.h, the frames in ParameterLayoutTable.h.
#pragma once

#include "BuildNamespace.h"

#include <cstdint>
#include <span>

namespace QVM_NAMESPACE {
namespace tables {

struct ParameterIdentity {
    std::uint32_t pid;
    const char* name;
    const char* codesafeName;
    const char* minimalName;
    std::uint32_t cid;
    std::int32_t unit; // QVMUnitCode
    const char* unitSymbol;
    float minValue;
    float maxValue;
    float initialValue;
};

struct ParameterControlRow {
    std::uint32_t pid;
    float granularity;
    float fineGranularity;
    float coarseGranularity;
    const char* formatString;
    bool logarithmic;
    std::int32_t controlType; // QVMControlTypeCode
    std::int32_t controlStyle;
    std::int32_t labelDisplay;
    std::int32_t cueSymbolDisplay;
    bool horizontal;
    bool isDisplaced;
    bool includeCrementers;
    const char* color;
};

// Both in pid order, one row for every pid. The tables live as long as the process.
std::span<const ParameterIdentity> ParameterIdentities();
std::span<const ParameterControlRow> ParameterControls();

} // namespace tables
} // namespace QVM_NAMESPACE
