#include "tools/render/SoundWriter.h"

#include "tools/render/FileFormat.h"
#include "tools/render/Metadata.h"

#include <cerrno>
#include <system_error>
#include <type_traits>
#include <utility>

#include <unistd.h>

namespace QVM_NAMESPACE {
namespace render {

namespace {

// The library passes over it in some formats, and leaves the system's word for it where it was.
bool hasDiskFailed() {
    return errno == ENOSPC || errno == EFBIG || errno == EDQUOT || errno == EIO;
}

} // namespace

static_assert(std::is_same_v<std::int32_t, int>); // what the library calls an int

SoundWriter::SoundWriter(int descriptor, const SF_INFO& format, SNDFILE* source, const SF_INFO& sourceInfo,
                         Dither dither)
    : descriptor_(descriptor), format_(format) {
    auto opened = createSoundFile(descriptor, format);
    if (auto* refusal = std::get_if<SoundFileRefusal>(&opened)) {
        problem_ = std::move(refusal->why);
        return;
    }
    file_ = std::move(std::get<OpenSoundFile>(opened).handle);
    if (const int bits = integerBits(format.format))
        quantiser_.emplace(bits, isLinear(format.format) ? dither : Dither::none);
    // The chunk has the time of day in it, and would make every run another file.
    sf_command(file_.get(), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    sf_command(file_.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    if (!isLossless(format.format)) {
        int mode = SF_BITRATE_MODE_VARIABLE; // in the other modes MP3 files have the usual rate whatever the quality
        sf_command(file_.get(), SFC_SET_BITRATE_MODE, &mode, sizeof mode);
        double quality = 0.9;
        sf_command(file_.get(), SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
    }
    copyMetadata(source, sourceInfo, file_.get(), format);
}

void SoundWriter::write(std::span<double> interleaved) {
    if (!problem_.empty()) return;
    const auto frames = static_cast<sf_count_t>(interleaved.size()) / format_.channels;
    errno = 0;
    sf_count_t done = 0;
    if (quantiser_) {
        words_.resize(interleaved.size());
        quantiser_->quantise(interleaved, words_);
        done = sf_writef_int(file_.get(), words_.data(), frames);
    } else {
        done = sf_writef_double(file_.get(), interleaved.data(), frames);
    }
    written_ += done;
    if (done != frames || hasDiskFailed()) failBecause();
}

void SoundWriter::failBecause() {
    problem_ = errno != 0 ? std::generic_category().message(errno) : "it cannot be written in this format";
}

// The library does not say of what it writes last, its header among it, whether that went well.
void SoundWriter::finish() {
    if (!problem_.empty()) return;
    errno = 0;
    const int status = sf_close(file_.release());
    if (status != SF_ERR_NO_ERROR || hasDiskFailed()) return failBecause();
    if (!isLossless(format_.format)) return;
    lseek(descriptor_, 0, SEEK_SET);
    const auto opened = openSoundFile(descriptor_);
    const auto* file = std::get_if<OpenSoundFile>(&opened);
    if (!file || file->info.frames != written_) failBecause();
}

} // namespace render
} // namespace QVM_NAMESPACE
