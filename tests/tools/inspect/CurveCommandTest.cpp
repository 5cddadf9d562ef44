#include "description/Description.h"
#include "tools/inspect/RunTool.h"
#include "viz/sketches/ReferenceSettings.h"

#include <algorithm>
#include <cstdlib>
#include <gmock/gmock.h>
#include <random>

namespace QVM_NAMESPACE {
namespace inspect {
namespace {

using reference::Settings;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Table {
    double reference = 0, axis = 0;
    std::vector<double> frequency, response, audition;
};

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find(separator, start)) != std::string::npos; start = end + 1)
        parts.push_back(text.substr(start, end - start));
    parts.push_back(text.substr(start));
    return parts;
}

Table tableFrom(const std::string& text) {
    Table table;
    const std::vector<std::string> lines = split(text, '\n');
    EXPECT_EQ(std::sscanf(lines.at(0).c_str(), "# reference_db=%lf axis_db=%lf", &table.reference, &table.axis), 2);
    EXPECT_EQ(lines.at(1), "frequency_hz,response_db,audition_db");
    EXPECT_EQ(lines.back(), "");
    for (std::size_t i = 2; i + 1 < lines.size(); ++i) {
        const std::vector<std::string> fields = split(lines[i], ',');
        EXPECT_EQ(fields.size(), 3u);
        table.frequency.push_back(std::atof(fields.at(0).c_str()));
        table.response.push_back(std::atof(fields.at(1).c_str()));
        if (!fields.at(2).empty()) table.audition.push_back(std::atof(fields.at(2).c_str()));
    }
    return table;
}

// With long and short keys in turn.
std::string addressFor(const Settings& settings) {
    std::string address = "https://maker.example/product/2.0.1/?";
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid) {
        const QVMParameter& parameter = *GetParameter(pid);
        if (pid) address += "/";
        address += (pid % 2 ? parameter.minimalName : parameter.codesafeName) + ":";
        char number[32];
        std::snprintf(number, sizeof number, "%.9g", settings[pid]);
        address += number;
    }
    return address;
}

void expectClose(const std::vector<double>& values, const std::vector<double>& expected, const std::string& address) {
    ASSERT_EQ(values.size(), expected.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (expected[i] > -110) {
            ASSERT_NEAR(values[i], expected[i], 0.02) << address << " at " << i;
        } else {
            ASSERT_LT(values[i], -109.9) << address << " at " << i;
        }
    }
}

void expectResponseOf(const Settings& settings) {
    const std::string address = addressFor(settings);
    const RunResult result = RunTool({"curve", "--settings", address});
    ASSERT_EQ(result.status, 0) << result.err;
    const Table table = tableFrom(result.out);
    const reference::Response expected = reference::evaluate(settings, 108);
    expectClose(table.response, expected.total, address);
    expectClose(table.audition, expected.audition, address);
    for (std::size_t i = 0; i < 108; ++i)
        EXPECT_NEAR(table.frequency[i], expected.frequency[i], expected.frequency[i] * 1e-6);
    EXPECT_NEAR(table.reference, expected.reference, 0.02) << address;
    EXPECT_NEAR(table.axis, expected.axis, 1e-5);
}

TEST(CurveCommand, PrintsTheInitialSettingsOverTheDisplaysGrid) {
    const RunResult result = RunTool({"curve"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, IsEmpty());
    EXPECT_THAT(result.out, StartsWith("# reference_db="));
    const Table table = tableFrom(result.out);
    EXPECT_EQ(table.frequency.size(), 108u);
    EXPECT_EQ(table.frequency.front(), 4);
    EXPECT_EQ(table.frequency.back(), 24000);
    EXPECT_EQ(table.axis, 7.5);
    EXPECT_THAT(table.audition, IsEmpty());
}

TEST(CurveCommand, AgreesWithTheFormulasForEveryPreset) {
    for (std::uint32_t preset = 0; preset < QVMPresetCount; ++preset) {
        Settings settings = presetSettings(preset);
        settings[6] = preset % 4;
        settings[13] = preset / 4 % 2;
        settings[20] = preset / 8 % 2;
        expectResponseOf(settings);
    }
}

TEST(CurveCommand, AgreesWithTheFormulasForRandomSettings) {
    std::mt19937 random(3);
    for (int i = 0; i < 300; ++i) {
        Settings settings = initialSettings();
        for (std::uint32_t pid = 1; pid < QVMParameterCount; ++pid) {
            const QVMParameter& parameter = *GetParameter(pid);
            std::uniform_real_distribution<float> values(parameter.minValue, parameter.maxValue);
            settings[pid] = values(random);
        }
        settings[6] = i % 4;
        settings[13] = i / 4 % 2;
        settings[20] = i / 8 % 2;
        expectResponseOf(settings);
    }
}

TEST(CurveCommand, TheAuditionFieldIsFilledOnlyWhileOneListens) {
    const RunResult silent = RunTool({"curve", "--points", "2"});
    EXPECT_THAT(silent.out, HasSubstr(",\n24000,"));
    const Table table = tableFrom(RunTool({"curve", "--settings", "/?fll:1/frl:100"}).out);
    EXPECT_EQ(table.audition.size(), 108u);
}

TEST(CurveCommand, ValuesBeyondTheirRangeAreItsEnds) {
    const auto curveOf = [](const char* settings) { return RunTool({"curve", "--settings", settings}).out; };
    EXPECT_EQ(curveOf("/?tg:99/tal:70/trl:0"), curveOf("/?tg:18/tal:3/trl:10"));
    EXPECT_NE(curveOf("/?tg:6/tal:2"), curveOf("/?tg:6"));
}

TEST(CurveCommand, KeysThatNameNothingAreLeftOut) {
    EXPECT_EQ(RunTool({"curve", "--settings", "/?tg:6/loudness:one/nonsense"}).out,
              RunTool({"curve", "--settings", "/?tg:6"}).out);
}

TEST(CurveCommand, HasAsManyPointsAsAskedFor) {
    for (const int points : {2, 54, 1080}) {
        const Table table = tableFrom(RunTool({"curve", "--points", std::to_string(points)}).out);
        ASSERT_EQ(table.frequency.size(), static_cast<std::size_t>(points));
        EXPECT_EQ(table.frequency.front(), 4);
        EXPECT_EQ(table.frequency.back(), 24000);
    }
}

TEST(CurveCommand, AnAddressWithoutEntriesIsTheInitialSettings) {
    for (const char* address : {"https://maker.example/a/1/?", "https://maker.example/a/1/"})
        EXPECT_EQ(RunTool({"curve", "--settings", address}).out, RunTool({"curve"}).out) << address;
}

TEST(CurveCommand, AWrongAddressIsAMessageAndStatusOne) {
    for (const auto& [address, message] : {
             std::pair{"tg:6", "it is not a web address"},
             std::pair{"", "it is not a web address"},
             std::pair{"https://maker.example/a/", "it names no product and version"},
             std::pair{"/?tg:", "\"tg\" has no number"},
             std::pair{"/?tg:six", "\"tg\" has no number"},
             std::pair{"/?tg:nan", "\"tg\" has no number"},
         }) {
        const RunResult result = RunTool({"curve", "--settings", address});
        EXPECT_EQ(result.status, 2) << address;
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err, HasSubstr(message));
    }
}

TEST(CurveCommand, AWrongCommandLineIsAMessageAndStatusTwo) {
    for (const auto& [result, message] : {
             std::pair{RunTool({"curve", "--points"}), "--points needs a value"},
             std::pair{RunTool({"curve", "--settings"}), "--settings needs a value"},
             std::pair{RunTool({"curve", "--points", "1"}), "--points takes a number from 2 to 65536, not "},
             std::pair{RunTool({"curve", "--points", "many"}), "--points takes a number from 2 to 65536, not "},
             std::pair{RunTool({"curve", "--points", "108.5"}), "--points takes a number from 2 to 65536, not "},
             std::pair{RunTool({"curve", "--points", "99999999999"}), "--points takes a number from 2 to 65536, not "},
             std::pair{RunTool({"curve", "/?tg:6"}), "curve does not know '/?tg:6'"},
         }) {
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err, HasSubstr(message));
    }
}

} // namespace
} // namespace inspect
} // namespace QVM_NAMESPACE
