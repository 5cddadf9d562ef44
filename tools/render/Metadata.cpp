#include "tools/render/Metadata.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {
namespace render {

namespace {

// Of the library's room for a header, which is 100 KiB; a file whose header does not fit would be damaged.
constexpr std::uint32_t mostChunkBytes = 60000;

// Chunks that say nothing of how the samples are stored, and that the library does not write itself.
constexpr std::array<std::string_view, 7> carriedChunks = {"LIST", "iXML", "axml", "acid", "id3 ", "ID3 ", "umid"};

void copyTexts(SNDFILE* from, SNDFILE* to) {
    for (int kind = SF_STR_FIRST; kind <= SF_STR_LAST; ++kind) {
        if (const char* text = sf_get_string(from, kind)) sf_set_string(to, kind, text);
    }
}

// Records whose length is the caller's guess: the library fills in as much as there is room for.
void copyRecord(SNDFILE* from, SNDFILE* to, int get, int set, std::size_t bytes) {
    std::vector<std::max_align_t> room(bytes / sizeof(std::max_align_t) + 1);
    if (sf_command(from, get, room.data(), static_cast<int>(bytes)) == SF_TRUE)
        sf_command(to, set, room.data(), static_cast<int>(bytes));
}

void copyCues(SNDFILE* from, SNDFILE* to) {
    std::uint32_t count = 0;
    if (sf_command(from, SFC_GET_CUE_COUNT, &count, sizeof count) != SF_TRUE || count == 0) return;
    copyRecord(from, to, SFC_GET_CUE, SFC_SET_CUE, sizeof count + count * sizeof(SF_CUE_POINT));
}

bool isWavLike(int format) {
    const int major = format & SF_FORMAT_TYPEMASK;
    return major == SF_FORMAT_WAV || major == SF_FORMAT_WAVEX || major == SF_FORMAT_RF64;
}

// Of the lists only that of the labels: the texts are written by the library.
bool isCarried(std::string_view id, const std::vector<char>& data) {
    if (std::ranges::find(carriedChunks, id) == carriedChunks.end()) return false;
    return id != "LIST" || (data.size() >= 4 && std::memcmp(data.data(), "adtl", 4) == 0);
}

void copyChunks(SNDFILE* from, SNDFILE* to) {
    std::uint32_t room = mostChunkBytes;
    for (auto* at = sf_get_chunk_iterator(from, nullptr); at; at = sf_next_chunk_iterator(at)) {
        SF_CHUNK_INFO chunk{};
        if (sf_get_chunk_size(at, &chunk) != SF_ERR_NO_ERROR || chunk.datalen == 0 || chunk.datalen > room) continue;
        std::vector<char> data(chunk.datalen);
        chunk.data = data.data();
        if (sf_get_chunk_data(at, &chunk) != SF_ERR_NO_ERROR) continue;
        if (!isCarried({chunk.id, 4}, data)) continue;
        chunk.id_size = 4;
        if (sf_set_chunk(to, &chunk) == SF_ERR_NO_ERROR) room -= chunk.datalen;
    }
}

} // namespace

void copyMetadata(SNDFILE* from, const SF_INFO& source, SNDFILE* to, const SF_INFO& target) {
    // A little less than the longest that the library takes; what is shorter says so itself.
    using Broadcast = SF_BROADCAST_INFO_VAR(16 * 1024 - 64);
    using Cart = SF_CART_INFO_VAR(16 * 1024 - 64);
    copyTexts(from, to);
    copyRecord(from, to, SFC_GET_BROADCAST_INFO, SFC_SET_BROADCAST_INFO, sizeof(Broadcast));
    copyRecord(from, to, SFC_GET_CART_INFO, SFC_SET_CART_INFO, sizeof(Cart));
    copyRecord(from, to, SFC_GET_INSTRUMENT, SFC_SET_INSTRUMENT, sizeof(SF_INSTRUMENT));
    copyCues(from, to);
    std::vector<int> map = channelMapOf(from, source.channels);
    if (!map.empty()) sf_command(to, SFC_SET_CHANNEL_MAP_INFO, map.data(), static_cast<int>(map.size() * sizeof(int)));
    if (isWavLike(source.format) && isWavLike(target.format)) copyChunks(from, to);
}

std::vector<int> channelMapOf(SNDFILE* file, int channels) {
    std::vector<int> map(static_cast<std::size_t>(channels));
    const int bytes = static_cast<int>(map.size() * sizeof(int));
    if (sf_command(file, SFC_GET_CHANNEL_MAP_INFO, map.data(), bytes) != SF_TRUE) map.clear();
    return map;
}

} // namespace render
} // namespace QVM_NAMESPACE
