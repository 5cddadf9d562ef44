#include "tools/inspect/Inspect.h"

#include "tools/inspect/RunTool.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace inspect {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

TEST(Inspect, HelpNamesEveryCommandAndOperation) {
    const RunResult result = RunTool({"--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, IsEmpty());
    for (const char* text : {"curve [--settings ADDRESS] [--points N]", "description", "settings ADDRESS", "values",
                             "normalize PID V TYPE", "after PID V forward|backward"}) {
        EXPECT_THAT(result.out, HasSubstr(text));
    }
}

TEST(Inspect, ShortHelpIsTheSame) {
    EXPECT_EQ(RunTool({"-h"}).out, RunTool({"--help"}).out);
    EXPECT_EQ(RunTool({"-h"}).status, 0);
}

TEST(Inspect, HelpNamesTheExitStatuses) {
    EXPECT_THAT(RunTool({"--help"}).out, HasSubstr("\nExit status:\n  0 "));
}

TEST(Inspect, BehindTwoDashesStandArguments) {
    const char* const address = "https://localhost/slantwise/2.0.1/?tg:6";
    EXPECT_EQ(RunTool({"settings", "--", address}).out, "tg 6\n");
    EXPECT_EQ(RunTool({"values", "--"}, "cast 0 1\n").out, "1\n");
    EXPECT_EQ(RunTool({"curve", "--points", "2", "--"}).status, 0);
    EXPECT_EQ(RunTool({"curve", "--", "--points"}).status, 2);
    EXPECT_EQ(RunTool({"description", "--", "more"}).status, 2);
}

TEST(Inspect, AnythingElseIsAMessageAndStatusTwo) {
    for (const auto& [result, message] : {
             std::pair{RunTool({}), "no command given"},
             std::pair{RunTool({"curves"}), "unknown command 'curves'"},
             std::pair{RunTool({""}), "unknown command ''"},
             std::pair{RunTool({"--version"}), "unknown command '--version'"},
             std::pair{RunTool({"--help", "values"}), "--help takes no arguments"},
             std::pair{RunTool({"description", "more"}), "description takes no arguments"},
             std::pair{RunTool({"values", "cast", "1", "2"}), "values takes no arguments"},
         }) {
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err, HasSubstr(message));
        EXPECT_THAT(result.err, HasSubstr("--help"));
    }
}

} // namespace
} // namespace inspect
} // namespace QVM_NAMESPACE
