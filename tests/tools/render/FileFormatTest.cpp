#include "tools/render/FileFormat.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

SF_INFO infoOf(int format, int channels = 2) {
    SF_INFO info{};
    info.format = format;
    info.channels = channels;
    info.samplerate = 48000;
    return info;
}

int written(int format, const FormatRequest& request, sf_count_t frames = 1000) {
    const auto info = formatToWrite(infoOf(format), request, frames);
    return info ? info->format : 0;
}

FormatRequest asked(std::string_view container, std::string_view bits = "") {
    FormatRequest request;
    request.container = containerNamed(container);
    EXPECT_TRUE(bits.empty() || request.chooseBits(bits));
    return request;
}

TEST(FileFormat, IsTheFilesOwnUnlessTold) {
    for (const int format :
         {SF_FORMAT_WAV | SF_FORMAT_PCM_U8, SF_FORMAT_WAVEX | SF_FORMAT_PCM_24, SF_FORMAT_AIFF | SF_FORMAT_PCM_16,
          SF_FORMAT_FLAC | SF_FORMAT_PCM_S8, SF_FORMAT_AIFF | SF_FORMAT_PCM_24 | SF_ENDIAN_LITTLE,
          SF_FORMAT_W64 | SF_FORMAT_DOUBLE, SF_FORMAT_OGG | SF_FORMAT_VORBIS, SF_FORMAT_RF64 | SF_FORMAT_FLOAT,
          SF_FORMAT_CAF | SF_FORMAT_ALAC_20, SF_FORMAT_AU | SF_FORMAT_ULAW})
        EXPECT_EQ(written(format, {}), format) << std::hex << format;
}

TEST(FileFormat, AnotherContainerKeepsTheSamplesWhereItCan) {
    const int wav24 = SF_FORMAT_WAV | SF_FORMAT_PCM_24, wavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    EXPECT_EQ(written(wav24, asked("aiff")), SF_FORMAT_AIFF | SF_FORMAT_PCM_24);
    EXPECT_EQ(written(wav24, asked("flac")), SF_FORMAT_FLAC | SF_FORMAT_PCM_24);
    EXPECT_EQ(written(wavFloat, asked("flac")), SF_FORMAT_FLAC | SF_FORMAT_PCM_24);
    EXPECT_EQ(written(SF_FORMAT_WAV | SF_FORMAT_PCM_U8, asked("flac")), SF_FORMAT_FLAC | SF_FORMAT_PCM_S8);
    EXPECT_EQ(written(wav24, asked("ogg")), SF_FORMAT_OGG | SF_FORMAT_VORBIS);
    EXPECT_EQ(written(wav24, asked("opus")), SF_FORMAT_OGG | SF_FORMAT_OPUS);
    EXPECT_EQ(written(SF_FORMAT_OGG | SF_FORMAT_VORBIS, asked("wav")), SF_FORMAT_WAV | SF_FORMAT_FLOAT);
    EXPECT_EQ(written(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, asked("wav")), SF_FORMAT_WAV | SF_FORMAT_FLOAT);
    EXPECT_EQ(written(SF_FORMAT_AIFF | SF_FORMAT_PCM_16 | SF_ENDIAN_LITTLE, asked("wav")),
              SF_FORMAT_WAV | SF_FORMAT_PCM_16);
}

TEST(FileFormat, TheKindsOfFilesThatEndInWavStayOfTheirKind) {
    for (const int major : {SF_FORMAT_WAV, SF_FORMAT_WAVEX, SF_FORMAT_RF64})
        EXPECT_EQ(written(major | SF_FORMAT_PCM_24, asked("wav", "16")), major | SF_FORMAT_PCM_16);
    EXPECT_EQ(written(SF_FORMAT_WAV | SF_FORMAT_PCM_24, asked("rf64")), SF_FORMAT_RF64 | SF_FORMAT_PCM_24);
}

TEST(FileFormat, BitsThatAreAskedForAreThoseOrNone) {
    const int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_24;
    FormatRequest request;
    for (const auto& [bits, subtype] :
         {std::pair{"16", SF_FORMAT_PCM_16}, std::pair{"24", SF_FORMAT_PCM_24}, std::pair{"32", SF_FORMAT_PCM_32},
          std::pair{"float", SF_FORMAT_FLOAT}, std::pair{"double", SF_FORMAT_DOUBLE}}) {
        ASSERT_TRUE(request.chooseBits(bits));
        EXPECT_EQ(written(wav, request), SF_FORMAT_WAV | subtype);
    }
    EXPECT_FALSE(request.chooseBits("20"));
    EXPECT_EQ(written(wav, asked("flac", "float")), 0);
    EXPECT_EQ(written(wav, asked("ogg", "16")), 0);
}

TEST(FileFormat, AWaveFileThatWouldBeTooLongIsOfTheLongKind) {
    const int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_24;
    const sf_count_t frames = 0xFFFF0000 / 6;
    EXPECT_EQ(written(wav, {}, frames), wav);
    EXPECT_EQ(written(wav, {}, frames + 1), SF_FORMAT_RF64 | SF_FORMAT_PCM_24);
    EXPECT_EQ(written(wav, asked("wav", "double"), frames / 2), SF_FORMAT_RF64 | SF_FORMAT_DOUBLE);
}

TEST(FileFormat, ContainersAreKnownByTheirNamesAndEndings) {
    EXPECT_EQ(containerNames(), "wav|aiff|flac|caf|w64|rf64|au|ogg|opus|mp3");
    EXPECT_EQ(containerNamed("WAV"), containerNamed("wav"));
    EXPECT_EQ(containerNamed("aif"), nullptr);
    EXPECT_EQ(containerOfEnding("AIF"), containerNamed("aiff"));
    EXPECT_EQ(containerOfEnding("flac"), containerNamed("flac"));
    EXPECT_EQ(containerOfEnding(""), nullptr);
    EXPECT_EQ(containerOfEnding("bak"), nullptr);
    EXPECT_EQ(containerOfEnding("wave bwf"), nullptr) << "an ending is one word";
}

TEST(FileFormat, KnowsWhatSamplesAreMadeOf) {
    EXPECT_EQ(integerBits(SF_FORMAT_CAF | SF_FORMAT_ALAC_20), 20);
    EXPECT_EQ(integerBits(SF_FORMAT_WAV | SF_FORMAT_FLOAT), 0);
    EXPECT_EQ(integerBits(SF_FORMAT_OGG | SF_FORMAT_VORBIS), 0);
    EXPECT_EQ(integerBits(SF_FORMAT_WAV | SF_FORMAT_ULAW), 16);
    EXPECT_FALSE(isLinear(SF_FORMAT_WAV | SF_FORMAT_ULAW));
    EXPECT_TRUE(isLinear(SF_FORMAT_FLAC | SF_FORMAT_PCM_24));
    EXPECT_TRUE(isLossless(SF_FORMAT_WAV | SF_FORMAT_DOUBLE));
    EXPECT_FALSE(isLossless(SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM));
    EXPECT_TRUE(isSingle(SF_FORMAT_WAV | SF_FORMAT_FLOAT));
    EXPECT_FALSE(isSingle(SF_FORMAT_WAV | SF_FORMAT_DOUBLE));
}

TEST(FileFormat, IsSaidInWords) {
    EXPECT_EQ(formatText(SF_FORMAT_AIFF | SF_FORMAT_PCM_24), "AIFF (Apple/SGI), 24 bit");
    EXPECT_EQ(formatText(0), "unknown, unknown");
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
