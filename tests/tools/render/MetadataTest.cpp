#include "tools/render/Metadata.h"

#include "tools/render/RenderFiles.h"

#include <gtest/gtest.h>

#include <cstring>

namespace QVM_NAMESPACE {
namespace render {
namespace {

constexpr int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
using Sound = SoundFileHandle;

class MetadataTest : public testing::Test {
protected:
    Sound created(const std::string& name, int format, int channels = 2) const {
        SF_INFO info = formatOf(format, channels);
        return Sound(sf_open(directory_.file(name).c_str(), SFM_WRITE, &info));
    }
    static SF_INFO formatOf(int format, int channels = 2) {
        SF_INFO info{};
        info.format = format;
        info.channels = channels;
        info.samplerate = 48000;
        return info;
    }
    static void writeSilence(const Sound& file, int channels = 2) {
        const std::vector<float> silence(static_cast<std::size_t>(100 * channels));
        sf_writef_float(file.get(), silence.data(), 100);
    }
    // Copies from the one file to a new one of a format, and opens that.
    Sound copied(const std::string& from, int format, int channels = 2) const {
        SF_INFO source{};
        const Sound input(sf_open(directory_.file(from).c_str(), SFM_READ, &source));
        {
            const Sound output = created("copy", format, channels);
            copyMetadata(input.get(), source, output.get(), formatOf(format, channels));
            writeSilence(output, channels);
        }
        SF_INFO info{};
        return Sound(sf_open(directory_.file("copy").c_str(), SFM_READ, &info));
    }
    static std::string textOf(const Sound& file, int kind) {
        const char* text = sf_get_string(file.get(), kind);
        return text ? text : "";
    }

    audiofiles::Directory directory_;
};

TEST_F(MetadataTest, TextsAreCarriedToTheirKindOfFileAndToOthers) {
    {
        const Sound file = created("a", wav);
        sf_set_string(file.get(), SF_STR_TITLE, "Song");
        sf_set_string(file.get(), SF_STR_ARTIST, "Singer");
        sf_set_string(file.get(), SF_STR_COMMENT, "caf\xC3\xA9");
        sf_set_string(file.get(), SF_STR_TRACKNUMBER, "7");
        writeSilence(file);
    }
    for (const int format : {wav, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, SF_FORMAT_OGG | SF_FORMAT_VORBIS}) {
        const Sound copy = copied("a", format);
        EXPECT_EQ(textOf(copy, SF_STR_TITLE), "Song");
        EXPECT_EQ(textOf(copy, SF_STR_ARTIST), "Singer");
        EXPECT_EQ(textOf(copy, SF_STR_COMMENT), "caf\xC3\xA9");
        EXPECT_EQ(textOf(copy, SF_STR_TRACKNUMBER), "7");
        EXPECT_EQ(textOf(copy, SF_STR_ALBUM), "");
    }
}

TEST_F(MetadataTest, TheBroadcastChunkIsCarried) {
    {
        const Sound file = created("a", wav);
        SF_BROADCAST_INFO info{};
        std::strcpy(info.description, "Take 3");
        std::strcpy(info.originator, "Recorder");
        info.time_reference_low = 123456;
        ASSERT_EQ(sf_command(file.get(), SFC_SET_BROADCAST_INFO, &info, sizeof info), SF_TRUE);
        writeSilence(file);
    }
    const Sound copy = copied("a", wav);
    SF_BROADCAST_INFO info{};
    ASSERT_EQ(sf_command(copy.get(), SFC_GET_BROADCAST_INFO, &info, sizeof info), SF_TRUE);
    EXPECT_STREQ(info.description, "Take 3");
    EXPECT_EQ(info.time_reference_low, 123456U);
}

TEST_F(MetadataTest, CuePointsAndLoopsAreCarried) {
    {
        const Sound file = created("a", wav);
        SF_CUES cues{};
        cues.cue_count = 2;
        cues.cue_points[0].indx = 1;
        cues.cue_points[0].sample_offset = 10;
        cues.cue_points[1].indx = 2;
        cues.cue_points[1].sample_offset = 77;
        ASSERT_EQ(sf_command(file.get(), SFC_SET_CUE, &cues, sizeof cues), SF_TRUE);
        SF_INSTRUMENT instrument{};
        instrument.basenote = 60;
        instrument.velocity_hi = instrument.key_hi = 127;
        instrument.loop_count = 1;
        instrument.loops[0].mode = SF_LOOP_FORWARD;
        instrument.loops[0].start = 20;
        instrument.loops[0].end = 90;
        ASSERT_EQ(sf_command(file.get(), SFC_SET_INSTRUMENT, &instrument, sizeof instrument), SF_TRUE);
        writeSilence(file);
    }
    const Sound copy = copied("a", wav);
    SF_CUES cues{};
    ASSERT_EQ(sf_command(copy.get(), SFC_GET_CUE, &cues, sizeof cues), SF_TRUE);
    ASSERT_EQ(cues.cue_count, 2U);
    EXPECT_EQ(cues.cue_points[1].sample_offset, 77U);
    SF_INSTRUMENT instrument{};
    ASSERT_EQ(sf_command(copy.get(), SFC_GET_INSTRUMENT, &instrument, sizeof instrument), SF_TRUE);
    EXPECT_EQ(instrument.basenote, 60);
    ASSERT_EQ(instrument.loop_count, 1);
    EXPECT_EQ(instrument.loops[0].start, 20U);
}

TEST_F(MetadataTest, ChunksThatMeanNothingToTheLibraryAreCarriedAsTheyAre) {
    const std::string xml = "<BWFXML>sc\xC3\xA8ne</BWFXML>!",
                      labels = std::string("adtllabl\x08\0\0\0\x01\0\0\0one\0", 20);
    {
        const Sound file = created("a", wav);
        for (const auto& [id, data] :
             {std::pair<std::string, std::string>{"iXML", xml}, {"LIST", labels}, {"junk", "xxxx"}}) {
            SF_CHUNK_INFO chunk{};
            std::memcpy(chunk.id, id.c_str(), 4);
            chunk.id_size = 4;
            chunk.datalen = static_cast<unsigned>(data.size());
            chunk.data = const_cast<char*>(data.data());
            ASSERT_EQ(sf_set_chunk(file.get(), &chunk), SF_ERR_NO_ERROR);
        }
        writeSilence(file);
    }
    { const Sound copy = copied("a", wav); }
    const std::string bytes = bytesOf(directory_.file("copy"));
    EXPECT_NE(bytes.find(xml), std::string::npos);
    EXPECT_NE(bytes.find(labels), std::string::npos);
    EXPECT_EQ(bytes.find("junk"), std::string::npos);
    EXPECT_EQ(infoOf(directory_.file("copy")).frames, 100);
}

TEST_F(MetadataTest, AChunkThatTheHeaderHasNoRoomForIsLeftOut) {
    {
        const Sound file = created("a", wav);
        std::string data(80000, 'x');
        SF_CHUNK_INFO chunk{};
        std::memcpy(chunk.id, "iXML", 4);
        chunk.id_size = 4;
        chunk.datalen = static_cast<unsigned>(data.size());
        chunk.data = data.data();
        ASSERT_EQ(sf_set_chunk(file.get(), &chunk), SF_ERR_NO_ERROR);
        writeSilence(file);
    }
    { const Sound copy = copied("a", wav); }
    EXPECT_EQ(infoOf(directory_.file("copy")).frames, 100);
}

TEST_F(MetadataTest, ThePlacesOfTheChannelsAreCarried) {
    std::vector<int> map = {SF_CHANNEL_MAP_LEFT, SF_CHANNEL_MAP_RIGHT, SF_CHANNEL_MAP_LFE};
    const int wavex = SF_FORMAT_WAVEX | SF_FORMAT_PCM_16;
    {
        const Sound file = created("a", wavex, 3);
        ASSERT_EQ(sf_command(file.get(), SFC_SET_CHANNEL_MAP_INFO, map.data(), 3 * sizeof(int)), SF_TRUE);
        writeSilence(file, 3);
    }
    EXPECT_EQ(channelMapOf(copied("a", wavex, 3).get(), 3), map);
    const std::string plain = directory_.audio("plain", wav, 2, 48000, std::vector<float>(8));
    SF_INFO info{};
    EXPECT_TRUE(channelMapOf(Sound(sf_open(plain.c_str(), SFM_READ, &info)).get(), 2).empty());
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
