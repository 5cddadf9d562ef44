// Writes a sound file.
#pragma once

#include "program/SoundFile.h"
#include "tools/render/Quantiser.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace render {

class SoundWriter {
public:
    // Into an open file, which stays the caller's. What is carried over from `source`, its metadata, is read here.
    SoundWriter(int descriptor, const SF_INFO& format, SNDFILE* source, const SF_INFO& sourceInfo, Dither dither);

    // Why nothing can be written any more, or nothing.
    const std::string& problem() const { return problem_; }
    // Whole frames. They are in place what a reader of the file will find, where that is known before it is coded.
    void write(std::span<double> interleaved);
    // Completes the file and looks whether all of it is there.
    void finish();

    // Samples that were cut off at full scale.
    std::uint64_t clipped() const { return quantiser_ ? quantiser_->clipped() : 0; }

private:
    void failBecause();

    int descriptor_;
    SF_INFO format_;
    SoundFileHandle file_;
    std::optional<Quantiser> quantiser_; // none where samples are floating point
    std::vector<std::int32_t> words_;
    sf_count_t written_ = 0; // frames
    std::string problem_;
};

} // namespace render
} // namespace QVM_NAMESPACE
