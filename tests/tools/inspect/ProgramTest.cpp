// The built program, run as a user would run it in a shell with no display.
#include "BuildNamespace.h"
#include "support/ShellCommand.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <string>

namespace QVM_NAMESPACE {
namespace {

using testing::HasSubstr;

using ProgramResult = slantwise_tests::CommandResult;

ProgramResult RunProgram(const std::string& before, const std::string& after) {
    return slantwise_tests::runCommand(before + " env -u DISPLAY -u WAYLAND_DISPLAY " SLANTWISE_INSPECT " " + after);
}

TEST(InspectProgram, DescribesThePlugin) {
    const ProgramResult result = RunProgram("", "description");
    EXPECT_EQ(result.status, 0);
    const auto json = nlohmann::json::parse(result.output);
    EXPECT_EQ(json["metadata"]["pluginName"], "Slantwise");
    EXPECT_EQ(json["parameters"].size(), 24u);
}

TEST(InspectProgram, AnswersValueOperationsFromStandardInput) {
    const ProgramResult result = RunProgram("printf 'normalize 2 12345 1\\ntext 7 -96\\n' |", "values");
    EXPECT_EQ(result.output, "12300\n-Inf\n");
    EXPECT_EQ(result.status, 0);
}

TEST(InspectProgram, ReportsABadLineInItsStatus) {
    const ProgramResult result = RunProgram("printf 'what\\ncast 0 1\\n' |", "values");
    EXPECT_EQ(result.output, "error: unknown operation 'what'\n1\n");
    EXPECT_EQ(result.status, 1);
}

TEST(InspectProgram, HelpsAndRefuses) {
    EXPECT_EQ(RunProgram("", "--help").status, 0);
    const ProgramResult refused = RunProgram("", "sing 2>&1");
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.output, HasSubstr("unknown command 'sing'"));
    EXPECT_EQ(RunProgram("", "2>&1").status, 2);
}

TEST(InspectProgram, SaysSoWhenItCannotRead) {
    const ProgramResult folder = RunProgram("", "values 2>&1 </");
    EXPECT_EQ(folder.status, 1);
    EXPECT_EQ(folder.output, "slantwise-inspect: cannot read the input: Is a directory\n");
    EXPECT_EQ(RunProgram("", "values 2>&1 <&-").output,
              "slantwise-inspect: cannot read the input: Bad file descriptor\n");
    EXPECT_EQ(RunProgram("", "values </dev/null").status, 0);
}

TEST(InspectProgram, SaysSoWhenItCannotWrite) {
    EXPECT_NE(RunProgram("", "description >/dev/full 2>&1").status, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
