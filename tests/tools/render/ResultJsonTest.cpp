#include "tools/render/ResultJson.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>

namespace QVM_NAMESPACE {
namespace render {
namespace {

TEST(ResultJson, HasARowForEachFile) {
    std::array<RenderResult, 3> results;
    results[0].files = {"a.wav", "b.wav"};
    results[0].source.samplerate = 44100;
    results[0].source.channels = 2;
    results[0].written.format = SF_FORMAT_FLAC | SF_FORMAT_PCM_24;
    results[0].frames = 1000;
    results[0].clipped = 3;
    results[0].gainDb = -2.5;
    results[0].after = {0.5, 1, -14.23456, std::nullopt};
    results[1].failure = "cannot render it";
    results[2].files.input = "\xFF\"\n";
    results[2].isInterrupted = true;
    RenderOptions options;
    options.settings.presetIndex = 0;
    const auto json = nlohmann::json::parse(resultsJson(results, options));
    EXPECT_EQ(json["version"], "2.0.1");
    EXPECT_TRUE(json["preset"].is_string());
    EXPECT_FALSE(json.contains("settings"));
    ASSERT_EQ(json["files"].size(), 3U);
    const auto& first = json["files"][0];
    EXPECT_EQ(first["output"], "b.wav");
    EXPECT_EQ(first["written"], true);
    EXPECT_EQ(first["sample_rate_hz"], 44100);
    EXPECT_EQ(first["frames"], 1000);
    EXPECT_EQ(first["clipped_samples"], 3);
    EXPECT_EQ(first["normalise_gain_db"], -2.5);
    EXPECT_EQ(first["after"]["loudness_lufs"], -14.235);
    EXPECT_EQ(first["after"]["true_peak_dbtp"], 0);
    EXPECT_EQ(first["after"]["sample_peak_dbfs"], -6.021);
    EXPECT_TRUE(first["after"]["loudness_range_lu"].is_null());
    EXPECT_TRUE(first["before"]["true_peak_dbtp"].is_null()) << "silence";
    EXPECT_EQ(json["files"][1]["written"], false);
    EXPECT_EQ(json["files"][1]["problem"], "cannot render it");
    EXPECT_EQ(json["files"][2]["written"], false);
    EXPECT_EQ(json["files"][2]["problem"], "interrupted");
    EXPECT_EQ(json["files"][2]["input"], "\xEF\xBF\xBD\"\n") << "a byte that is no UTF-8";
}

TEST(ResultJson, OfArgumentsThatMakeNoSenseIsAnObjectOfTheSameShape) {
    const auto json = nlohmann::json::parse(refusalJson("no \"\xFF\"\n"));
    EXPECT_EQ(json["version"], "2.0.1");
    EXPECT_EQ(json["problem"], "no \"\xEF\xBF\xBD\"\n");
    EXPECT_TRUE(json["files"].is_array() && json["files"].empty());
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
