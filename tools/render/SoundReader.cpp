#include "tools/render/SoundReader.h"

#include "description/NumberText.h"
#include "tools/render/UnitChain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <sstream>
#include <utility>

namespace QVM_NAMESPACE {
namespace render {

namespace {

std::string logOf(SNDFILE* file) {
    std::array<char, 16384> log{};
    const int length = sf_command(file, SFC_GET_LOG_INFO, log.data(), log.size());
    return {log.data(), static_cast<std::size_t>(std::clamp<int>(length, 0, log.size()))};
}

std::string whyNotRendered(const SF_INFO& info) {
    const auto range = [](int from, int to) { return " can be " + std::to_string(from) + " to " + std::to_string(to); };
    if (info.channels < 1 || info.channels > UnitChain::maxChannels)
        return "it has " + std::to_string(info.channels) + " channels, and there" + range(1, UnitChain::maxChannels);
    if (info.samplerate < UnitChain::lowestRateHz || info.samplerate > UnitChain::highestRateHz) {
        return "its sample rate is " + std::to_string(info.samplerate) + " Hz, and" +
               range(UnitChain::lowestRateHz, UnitChain::highestRateHz) + " Hz";
    }
    return info.frames > 0 ? "" : "no audio in it";
}

} // namespace

// A line such as " data : 96000 (should be 48000)". Programs that write into a pipe do not know the length, and put in
// the largest number there is, or one near it.
bool saysThatTheEndIsMissing(const std::string& log) {
    constexpr std::uint32_t unknownLength = 0x7F000000;
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string chunk, colon, first, second;
        std::uint64_t said = 0, is = 0;
        words >> chunk >> colon >> said >> first >> second >> is;
        if (!words || (chunk != "data" && chunk != "SSND") || first != "(should" || second != "be") continue;
        if (said > is && said < unknownLength) return true;
    }
    return false;
}

std::variant<SoundReader, SoundFileRefusal> SoundReader::open(const std::string& path, double tailSeconds) {
    auto opened = openSoundFile(path);
    if (auto* refusal = std::get_if<SoundFileRefusal>(&opened)) return std::move(*refusal);
    auto& file = std::get<OpenSoundFile>(opened);
    if (std::string why = whyNotRendered(file.info); !why.empty()) return SoundFileRefusal{std::move(why)};
    const auto tailFrames = static_cast<sf_count_t>(std::llround(tailSeconds * file.info.samplerate));
    return SoundReader(std::move(file), tailFrames);
}

SoundReader::SoundReader(OpenSoundFile file, sf_count_t tailFrames)
    : file_(std::move(file)), tailFrames_(tailFrames), isDamaged_(saysThatTheEndIsMissing(logOf(file_.handle.get()))) {}

std::size_t SoundReader::read(std::span<double> interleaved) {
    const auto channels = static_cast<std::size_t>(file_.info.channels);
    const auto room = static_cast<sf_count_t>(interleaved.size() / channels);
    sf_count_t got = tailRead_ > 0 ? 0 : std::max<sf_count_t>(sf_readf_double(handle(), interleaved.data(), room), 0);
    soundRead_ += got;
    for (double& sample : interleaved.first(static_cast<std::size_t>(got) * channels))
        sample = std::isfinite(sample) ? sample : 0;
    if (got == 0) {
        isDamaged_ = isDamaged_ || sf_error(handle()) != SF_ERR_NO_ERROR || soundRead_ < file_.info.frames;
        got = std::min(room, tailFrames_ - tailRead_);
        std::ranges::fill(interleaved.first(static_cast<std::size_t>(got) * channels), 0.0);
        tailRead_ += got;
    }
    return static_cast<std::size_t>(got);
}

} // namespace render
} // namespace QVM_NAMESPACE
