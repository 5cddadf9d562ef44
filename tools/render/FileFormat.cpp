#include "tools/render/FileFormat.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace QVM_NAMESPACE {
namespace render {

namespace {

constexpr std::array containers = {
    Container{"wav", " wave bwf ", SF_FORMAT_WAV},
    Container{"aiff", " aif aifc ", SF_FORMAT_AIFF},
    Container{"flac", "", SF_FORMAT_FLAC},
    Container{"caf", "", SF_FORMAT_CAF},
    Container{"w64", "", SF_FORMAT_W64},
    Container{"rf64", "", SF_FORMAT_RF64},
    Container{"au", " snd ", SF_FORMAT_AU},
    Container{"ogg", " oga ", SF_FORMAT_OGG},
    Container{"opus", "", SF_FORMAT_OGG | SF_FORMAT_OPUS},
    Container{"mp3", "", SF_FORMAT_MPEG},
};

constexpr sf_count_t largestRiff = 0xFFFF0000; // bytes, with room for what stands around the samples

std::string small(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

int major(int format) {
    return format & SF_FORMAT_TYPEMASK;
}

int subtype(int format) {
    return format & SF_FORMAT_SUBMASK;
}

bool isWav(int format) {
    return major(format) == SF_FORMAT_WAV || major(format) == SF_FORMAT_WAVEX;
}

bool isMpeg(int format) {
    return subtype(format) >= SF_FORMAT_MPEG_LAYER_I && subtype(format) <= SF_FORMAT_MPEG_LAYER_III;
}

// The library's check lets MPEG pass in files of other kinds, where it can read it but not write it.
bool canBeWritten(const SF_INFO& info) {
    return sf_format_check(&info) != 0 && (!isMpeg(info.format) || major(info.format) == SF_FORMAT_MPEG);
}

// At most.
int bytesOfSample(int format) {
    if (const int bits = integerBits(format)) return (bits + 7) / 8;
    return isSingle(format) ? 4 : 8;
}

// Files that end in "wav" are of three kinds, and stay of theirs.
bool isOfContainer(int format, const Container& container) {
    if (container.format == SF_FORMAT_WAV) return isWav(format) || major(format) == SF_FORMAT_RF64;
    return major(format) == major(container.format) &&
           (subtype(container.format) == 0 || subtype(format) == subtype(container.format));
}

// The subtypes to try, the best first: what is asked for or as the source is, and then what loses the least.
std::array<int, 10> subtypes(int source, int wanted) {
    const bool isFloat = integerBits(source) == 0 && isLossless(source);
    return {wanted,
            subtype(source) == SF_FORMAT_PCM_S8 ? SF_FORMAT_PCM_U8 : SF_FORMAT_PCM_S8,
            subtype(source) == SF_FORMAT_DOUBLE ? SF_FORMAT_DOUBLE : SF_FORMAT_FLOAT,
            isFloat || integerBits(source) > 16 ? SF_FORMAT_PCM_24 : SF_FORMAT_PCM_16,
            SF_FORMAT_PCM_24,
            SF_FORMAT_PCM_16,
            SF_FORMAT_VORBIS,
            SF_FORMAT_OPUS,
            SF_FORMAT_MPEG_LAYER_III,
            SF_FORMAT_FLOAT};
}

bool isSensible(int candidate, int source, bool isWanted) {
    if (isWanted) return true;
    const int bits = integerBits(candidate), sourceBits = integerBits(source);
    if (bits == 8) return sourceBits == 8;
    if (bits == 0 && isLossless(candidate)) return sourceBits == 0 || sourceBits == 32;
    return true;
}

} // namespace

const Container* containerNamed(std::string_view name) {
    const auto* const found = std::ranges::find(containers, small(name), &Container::name);
    return found == containers.end() ? nullptr : found;
}

const Container* containerOfEnding(std::string_view ending) {
    if (const Container* named = containerNamed(ending)) return named;
    if (ending.find(' ') != std::string_view::npos) return nullptr;
    const std::string word = " " + small(ending) + " ";
    const auto* const found = std::ranges::find_if(
        containers, [&word](const Container& container) { return container.others.find(word) != std::string::npos; });
    return found == containers.end() || ending.empty() ? nullptr : found;
}

std::string containerNames() {
    std::string names;
    for (const Container& container : containers)
        names.append(names.empty() ? "" : "|").append(container.name);
    return names;
}

bool FormatRequest::chooseBits(std::string_view bits) {
    if (bits == "16") return subtype = SF_FORMAT_PCM_16, true;
    if (bits == "24") return subtype = SF_FORMAT_PCM_24, true;
    if (bits == "32") return subtype = SF_FORMAT_PCM_32, true;
    if (bits == "float") return subtype = SF_FORMAT_FLOAT, true;
    if (bits == "double") return subtype = SF_FORMAT_DOUBLE, true;
    return false;
}

std::optional<SF_INFO> formatToWrite(const SF_INFO& source, const FormatRequest& request, sf_count_t frames) {
    const bool staysInContainer = !request.container || isOfContainer(source.format, *request.container);
    const int container = staysInContainer ? major(source.format) : major(request.container->format);
    const int named = request.container ? subtype(request.container->format) : 0;
    const int wanted = request.subtype.value_or(named ? named : subtype(source.format));
    SF_INFO info{};
    info.samplerate = source.samplerate;
    info.channels = source.channels;
    const int byteOrder = staysInContainer ? source.format & SF_FORMAT_ENDMASK : 0;
    for (const int candidate : subtypes(source.format, wanted)) {
        const bool isWanted = candidate == wanted;
        if (!isWanted && request.subtype) return std::nullopt; // nothing else will do
        if (!isSensible(candidate, source.format, isWanted)) continue;
        info.format = container | candidate | byteOrder;
        if (!canBeWritten(info)) continue;
        const sf_count_t bytes = frames * info.channels * bytesOfSample(candidate);
        if (isWav(info.format) && bytes > largestRiff) info.format = SF_FORMAT_RF64 | candidate;
        return info;
    }
    return std::nullopt;
}

int integerBits(int format) {
    switch (subtype(format)) {
    case SF_FORMAT_FLOAT:
    case SF_FORMAT_DOUBLE:
    case SF_FORMAT_VORBIS:
    case SF_FORMAT_OPUS:
    case SF_FORMAT_MPEG_LAYER_I:
    case SF_FORMAT_MPEG_LAYER_II:
    case SF_FORMAT_MPEG_LAYER_III:
        return 0;
    case SF_FORMAT_PCM_S8:
    case SF_FORMAT_PCM_U8:
        return 8;
    case SF_FORMAT_ALAC_20:
        return 20;
    case SF_FORMAT_PCM_24:
    case SF_FORMAT_ALAC_24:
    case SF_FORMAT_DWVW_24:
        return 24;
    case SF_FORMAT_PCM_32:
    case SF_FORMAT_ALAC_32:
        return 32;
    default:
        return 16;
    }
}

bool isLinear(int format) {
    switch (subtype(format)) {
    case SF_FORMAT_PCM_S8:
    case SF_FORMAT_PCM_U8:
    case SF_FORMAT_PCM_16:
    case SF_FORMAT_PCM_24:
    case SF_FORMAT_PCM_32:
    case SF_FORMAT_ALAC_16:
    case SF_FORMAT_ALAC_20:
    case SF_FORMAT_ALAC_24:
    case SF_FORMAT_ALAC_32:
        return true;
    default:
        return false;
    }
}

bool isSingle(int format) {
    return subtype(format) == SF_FORMAT_FLOAT;
}

bool isLossless(int format) {
    return isLinear(format) || isSingle(format) || subtype(format) == SF_FORMAT_DOUBLE;
}

std::string formatText(int format) {
    const auto nameOf = [](int code) {
        SF_FORMAT_INFO info{};
        info.format = code;
        const bool isKnown = sf_command(nullptr, SFC_GET_FORMAT_INFO, &info, sizeof info) == 0 && info.name;
        return std::string(isKnown ? info.name : "unknown");
    };
    const std::string container = nameOf(major(format));
    if (isLinear(format)) return container + ", " + std::to_string(integerBits(format)) + " bit";
    return container + ", " + nameOf(subtype(format));
}

} // namespace render
} // namespace QVM_NAMESPACE
