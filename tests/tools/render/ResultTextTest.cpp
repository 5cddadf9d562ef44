#include "tools/render/ResultText.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

RenderResult written() {
    RenderResult result;
    result.files = {"a.wav", "b.wav"};
    result.source.samplerate = 48000;
    result.frames = 96000;
    result.before = {0.5, 0.5, -16.28, 3.0};
    result.after = {0.9, 1.0, -15.84, 3.0};
    return result;
}

TEST(ResultText, IsALineWithLoudnessAndPeaks) {
    EXPECT_EQ(resultText(written()), "a.wav -> b.wav  -16.3 to -15.8 LUFS  -6.0 to 0.0 dBTP");
    RenderResult normalised = written();
    normalised.gainDb = -0.04;
    EXPECT_THAT(resultText(normalised), testing::EndsWith("dBTP  (gain 0.0 dB)"));
}

TEST(ResultText, SilenceHasNoLevel) {
    RenderResult silent = written();
    silent.before = silent.after = {};
    EXPECT_EQ(resultText(silent), "a.wav -> b.wav  -Inf to -Inf LUFS  -Inf to -Inf dBTP");
}

TEST(ResultText, ComplaintsAreWhatWentWrong) {
    EXPECT_THAT(complaints(written()), testing::IsEmpty());
    RenderResult result = written();
    result.clipped = 1;
    result.isDamaged = true;
    EXPECT_THAT(complaints(result),
                testing::ElementsAre("\"a.wav\" is damaged, and rendered as far as it can be read (2.0 s)",
                                     "\"b.wav\": 1 sample is cut off at full scale"));
    result.clipped = 20;
    EXPECT_EQ(complaints(result).back(), "\"b.wav\": 20 samples are cut off at full scale");
    result.failure = "cannot";
    EXPECT_THAT(complaints(result), testing::ElementsAre("cannot"));
    result.failure.clear();
    result.isInterrupted = true;
    EXPECT_THAT(complaints(result), testing::IsEmpty());
}

TEST(ResultText, NamesDoNotMoveTheCursor) {
    EXPECT_EQ(printable("a\x1b[2Jb\nc\x7F"), "a?[2Jb?c?");
    EXPECT_EQ(printable("caf\xC3\xA9"), "caf\xC3\xA9");
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
