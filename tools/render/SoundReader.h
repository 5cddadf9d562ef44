// Reads a sound file from its beginning to its end, and a tail of silence behind it.
#pragma once

#include "program/SoundFile.h"

#include <cstddef>
#include <span>
#include <string>
#include <variant>

namespace QVM_NAMESPACE {
namespace render {

class SoundReader {
public:
    // A file that can be rendered, or why not. Any thread.
    [[nodiscard]] static std::variant<SoundReader, SoundFileRefusal> open(const std::string& path, double tailSeconds);

    const SF_INFO& info() const { return file_.info; }
    SNDFILE* handle() const { return file_.handle.get(); }
    // With the tail.
    sf_count_t frames() const { return file_.info.frames + tailFrames_; }

    // Fills up to the whole of it with interleaved samples, of which 1 is full scale, and returns the frames that it
    // got: 0 at the end. Samples that are no finite numbers are silence.
    std::size_t read(std::span<double> interleaved);

    // Whether the file says that there was more in it than could be read so far.
    bool isDamaged() const { return isDamaged_; }

private:
    SoundReader(OpenSoundFile file, sf_count_t tailFrames);

    OpenSoundFile file_;
    sf_count_t tailFrames_;
    sf_count_t soundRead_ = 0, tailRead_ = 0; // frames
    bool isDamaged_;
};

// What the library writes into its log of a file says whether the file is shorter than it should be.
bool saysThatTheEndIsMissing(const std::string& log);

} // namespace render
} // namespace QVM_NAMESPACE
