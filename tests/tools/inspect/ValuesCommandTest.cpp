#include "tools/inspect/RunTool.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace inspect {
namespace {

using testing::StartsWith;

TEST(ValuesCommand, AnswersEveryOperation) {
    const RunResult result = RunTool({"values"}, "cast 0 0.3\n"
                                                 "reverse 1 4.5\n"
                                                 "coerce 1 3.26\n"
                                                 "round 0 2.5 0\n"
                                                 "normalize 2 12345 1\n"
                                                 "position 1 0\n"
                                                 "fromposition 7 1 1\n"
                                                 "after 6 3 forward\n"
                                                 "after 6 0 backward\n"
                                                 "text 2 12345\n"
                                                 "suffix 2 12345\n");
    EXPECT_EQ(result.out, "1\n4.5\n3.29999995\n3\n12300\n0.5\n12\n0\n3\n12.3\nkHz\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
}

TEST(ValuesCommand, NumbersHaveNineSignificantDigits) {
    const RunResult result =
        RunTool({"values"}, "cast 2 12005\nround 1 0.1 1\nreverse 1 1e20\ncast 1 nan\ncast 1 -inf\n");
    EXPECT_EQ(result.out, "489.897766\n0.100000001\n1.00000002e+20\nnan\n-inf\n");
}

TEST(ValuesCommand, AnAbsentSuffixIsTold) {
    const RunResult result = RunTool({"values"}, "suffix 0 1\nsuffix 7 -96\nsuffix 24 1\ntext 24 1\n");
    EXPECT_EQ(result.out, "(none)\n\n(none)\n\n");
    EXPECT_EQ(result.status, 0);
}

TEST(ValuesCommand, GlyphsAreUTF8) {
    EXPECT_EQ(RunTool({"values"}, "text 0 1\n").out, "\xEE\x84\x81\n");
}

TEST(ValuesCommand, ABadLineIsAnsweredAndTheRestGoesOn) {
    const RunResult result = RunTool({"values"}, "cast 0 1\nnonsense\ncast 0 0\n");
    EXPECT_EQ(result.out, "1\nerror: unknown operation 'nonsense'\n0\n");
    EXPECT_EQ(result.status, 1);
}

TEST(ValuesCommand, EveryKindOfBadLineIsAnError) {
    for (const char* line : {"",
                             "   ",
                             "cast",
                             "cast 0",
                             "cast 0 1 2",
                             "cast x 1",
                             "cast -1 1",
                             "cast 1.5 1",
                             "cast 24 1",
                             "cast 0 one",
                             "cast 0 1x",
                             "cast 0 1e39",
                             "cast 0 1e999",
                             "cast 4294967296 1",
                             "round 0 1",
                             "round 0 1 3",
                             "round 0 1 -1",
                             "round 0 1 fine",
                             "after 0 1",
                             "after 0 1 up",
                             "Cast 0 1",
                             "position 0 +-1",
                             "text 0",
                             "suffix x 1"}) {
        const RunResult result = RunTool({"values"}, std::string(line) + "\n");
        EXPECT_THAT(result.out, StartsWith("error: ")) << line;
        EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 1) << line;
        EXPECT_EQ(result.status, 1) << line;
    }
}

TEST(ValuesCommand, BlanksLineEndsAndSignsDoNotMatter) {
    EXPECT_EQ(RunTool({"values"}, "  cast\t1   +2.5 \r\n").out, "2.5\n");
    EXPECT_EQ(RunTool({"values"}, "cast 1 2.5").out, "2.5\n"); // no end of line at all
    EXPECT_EQ(RunTool({"values"}, "cast 1 1e-60").out, "0\n");
}

TEST(ValuesCommand, NoInputIsNoOutput) {
    const RunResult result = RunTool({"values"});
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.status, 0);
}

} // namespace
} // namespace inspect
} // namespace QVM_NAMESPACE
