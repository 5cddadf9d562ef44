// The description records as JSON.
//
// Keys are the records' field names, in their order. Rectangles are [x, y, width, height], colours "#RRGGBB", and what
// is not set is null or an empty list.
#pragma once

#include "description/QVMClump.h"
#include "description/QVMMetadata.h"
#include "description/QVMParameter.h"

#include <nlohmann/json.hpp>

namespace QVM_NAMESPACE {
namespace inspect {

using Json = nlohmann::ordered_json;

Json ParameterJson(const QVMParameter& parameter);
Json ClumpJson(const QVMClump& clump);
Json MetadataJson(const QVMMetadata& metadata);

// All factory presets, in index order, each with its section, note and values.
Json PresetsJson();

// The pieces that records share. A 32-bit number is written with the fewest digits that read back as it.
Json NumberJson(float number);
Json NumbersJson(const std::vector<float>& numbers);
Json RectJson(const QVMRect& rect);

// A map as an object; null when it is empty.
template <typename Map>
Json MapJson(const Map& map) {
    Json json;
    for (const auto& [key, value] : map)
        json[key] = value;
    return json;
}

} // namespace inspect
} // namespace QVM_NAMESPACE
