#include "tools/render/ResultJson.h"

#include "description/Description.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace QVM_NAMESPACE {
namespace render {

namespace {

using Json = nlohmann::ordered_json;

Json number(const std::optional<double>& value) {
    return value && std::isfinite(*value) ? Json(std::round(*value * 1000) / 1000) : Json();
}

Json loudnessJson(const Loudness& loudness) {
    return {{"loudness_lufs", number(loudness.integratedLufs)},
            {"loudness_range_lu", number(loudness.rangeLu)},
            {"true_peak_dbtp", number(decibels(loudness.truePeak))},
            {"sample_peak_dbfs", number(decibels(loudness.samplePeak))}};
}

Json resultJson(const RenderResult& result) {
    Json json = {{"input", result.files.input}, {"output", result.files.output}, {"written", result.isWritten()}};
    if (!result.failure.empty()) json["problem"] = result.failure;
    if (result.isInterrupted) json["problem"] = "interrupted";
    if (!result.isWritten()) return json;
    json["damaged"] = result.isDamaged;
    json["sample_rate_hz"] = result.source.samplerate;
    json["channels"] = result.source.channels;
    json["frames"] = result.frames;
    json["input_format"] = formatText(result.source.format);
    json["output_format"] = formatText(result.written.format);
    json["normalise_gain_db"] = number(result.gainDb);
    json["clipped_samples"] = result.clipped;
    json["before"] = loudnessJson(result.before);
    json["after"] = loudnessJson(result.after);
    return json;
}

std::string textOf(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace

std::string resultsJson(std::span<const RenderResult> results, const RenderOptions& options) {
    Json json = {{"version", GetMetadata()->version}};
    const std::string preset = options.settings.presetName();
    if (!preset.empty()) json["preset"] = preset;
    if (!options.settings.address.empty()) json["settings"] = options.settings.address;
    json["files"] = Json::array();
    for (const RenderResult& result : results)
        json["files"].push_back(resultJson(result));
    return textOf(json);
}

std::string refusalJson(const std::string& problem) {
    return textOf({{"version", GetMetadata()->version}, {"problem", problem}, {"files", Json::array()}});
}

} // namespace render
} // namespace QVM_NAMESPACE
