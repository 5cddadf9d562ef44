#include "tools/inspect/RunTool.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace inspect {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* base = "https://maker.example/slantwise/2.0.1/?";

std::string answer(const std::string& query) {
    const std::string address = base + query;
    const RunResult result = RunTool({"settings", address});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.err, IsEmpty());
    return result.out;
}

TEST(SettingsCommand, PrintsAKeyAndAValueALine) {
    EXPECT_EQ(answer("tg:4.5/trl:120/TiltRangeHigh:1e4"), "tg 4.5\ntrl 120\nTiltRangeHigh 10000\n");
    EXPECT_EQ(answer(""), "");
}

TEST(SettingsCommand, ReadsTheOlderForm) {
    EXPECT_EQ(answer("tg=4.5&trl=120"), "tg 4.5\ntrl 120\n");
}

TEST(SettingsCommand, PrintsWhatTheParameterWouldBe) {
    EXPECT_EQ(answer("tg:99/trl:-1/tal:2.6/fll:7/out:0.1"), "tg 18\ntrl 10\ntal 2.5999999\nfll 1\nout 0.100000001\n");
}

TEST(SettingsCommand, LeavesOutWhatWouldNotBeSet) {
    EXPECT_EQ(answer("tg:x/loudness:3/trl:50/out"), "trl 50\n");
}

TEST(SettingsCommand, ARefusalIsAReasonAndStatusOne) {
    const std::string wrong = std::string(base) + "trl:50/tg:nan", endless = base + std::string(5000, '/');
    for (const auto& [address, reason] : {
             std::pair<std::string, const char*>{"hello", "it is not a web address"},
             {"/?tg:6", "it is not a web address"},
             {"https://maker.example/?tg:6", "it names no product and version"},
             {wrong, "\"tg\" has no number"},
             {endless, "it is longer than 4096 bytes"},
         }) {
        const RunResult result = RunTool({"settings", address});
        EXPECT_EQ(result.status, 2) << address;
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err, HasSubstr(reason));
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << address;
    }
}

TEST(SettingsCommand, AWrongCommandLineIsAMessageAndStatusTwo) {
    for (const auto& result : {RunTool({"settings"}), RunTool({"settings", base, base})}) {
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err, HasSubstr("settings takes one address"));
    }
}

} // namespace
} // namespace inspect
} // namespace QVM_NAMESPACE
