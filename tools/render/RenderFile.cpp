#include "tools/render/RenderFile.h"

#include "tools/render/Metadata.h"
#include "tools/render/NewFile.h"
#include "tools/render/SoundReader.h"
#include "tools/render/SoundWriter.h"
#include "tools/render/UnitChain.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {
namespace render {

namespace {

constexpr std::size_t blockFrames = 8192;

// The work on one file, with what its steps have in common.
class FileRenderer {
public:
    FileRenderer(const RenderOptions& options, RenderResult& result, RenderProgress& progress,
                 const std::function<bool()>& isStopped)
        : options_(options), result_(result), progress_(progress), isStopped_(isStopped) {}

    void run();

private:
    using Measures = LoudnessMeter::Measures;
    // Gets each block as it was and as it is now.
    using Heard = std::function<void(std::span<const double>)>;
    using Sink = std::function<bool(std::span<double>)>;

    // Each answers whether to go on.
    bool open(std::optional<SoundReader>& reader);
    bool chooseFormat(const SoundReader& reader);
    bool findGain();
    bool write(SoundReader& reader);

    bool pass(SoundReader& reader, const Heard& before, const Sink& after);
    LoudnessMeter meter(const SoundReader& reader, Measures measures) const;
    bool fail(const std::string& what, const std::string& why);
    Replace replaces() const { return options_.force ? Replace::yes : Replace::no; }
    int passes() const { return options_.normaliseDb ? 2 : 1; }

    const RenderOptions& options_;
    RenderResult& result_;
    RenderProgress& progress_;
    const std::function<bool()>& isStopped_;
    sf_count_t framesDone_ = 0; // of all passes
};

bool FileRenderer::fail(const std::string& what, const std::string& why) {
    result_.failure = "cannot " + what + ": " + why;
    return false;
}

void FileRenderer::run() {
    std::optional<SoundReader> reader;
    if (!open(reader) || !chooseFormat(*reader)) return;
    if (std::string why = whyNotWritten(result_.files.output, replaces()); !why.empty()) {
        std::error_code error;
        const bool isItself = std::filesystem::equivalent(result_.files.input, result_.files.output, error);
        if (isItself && !options_.force) why = "it is the file that is read, and --force would replace it";
        fail("write \"" + result_.files.output + "\"", why);
        return;
    }
    if (options_.normaliseDb && !findGain()) return;
    write(*reader);
}

bool FileRenderer::open(std::optional<SoundReader>& reader) {
    auto opened = SoundReader::open(result_.files.input, options_.tailSeconds);
    if (const auto* refusal = std::get_if<SoundFileRefusal>(&opened))
        return fail("render \"" + result_.files.input + "\"", refusal->why);
    reader.emplace(std::move(std::get<SoundReader>(opened)));
    result_.source = reader->info();
    return true;
}

bool FileRenderer::chooseFormat(const SoundReader& reader) {
    const auto format = formatToWrite(reader.info(), options_.format, reader.frames());
    if (!format)
        return fail("write \"" + result_.files.output + "\"",
                    "there are no such files of this kind, rate and channels");
    result_.written = *format;
    return true;
}

LoudnessMeter FileRenderer::meter(const SoundReader& reader, Measures measures) const {
    const SF_INFO& info = reader.info();
    return {info.channels, info.samplerate, channelMapOf(reader.handle(), info.channels), measures};
}

bool FileRenderer::pass(SoundReader& reader, const Heard& before, const Sink& after) {
    const SF_INFO& info = reader.info();
    const auto width = isSingle(info.format) ? SampleWidth::single : SampleWidth::twofold;
    UnitChain chain(options_.settings, info.channels, info.samplerate, width);
    const auto channels = static_cast<std::size_t>(info.channels);
    std::vector<double> block(blockFrames * channels);
    const auto total = static_cast<double>(reader.frames()) * passes();
    while (const std::size_t frames = reader.read(block)) {
        if (isStopped_()) {
            result_.isInterrupted = true;
            return false;
        }
        const std::span<double> part = std::span(block).first(frames * channels);
        before(part);
        chain.process(part);
        if (!after(part)) return false;
        framesDone_ += static_cast<sf_count_t>(frames);
        progress_ = std::min(static_cast<double>(framesDone_) / total, 1.0);
    }
    return true;
}

// The file is rendered once for its peak and once more to be written: that is the same sound, and needs no room for it.
bool FileRenderer::findGain() {
    std::optional<SoundReader> reader;
    if (!open(reader)) return false;
    LoudnessMeter peaks = meter(*reader, Measures::peaks);
    const auto measure = [&peaks](std::span<double> part) { return peaks.add(part), true; };
    if (!pass(
            *reader, [](std::span<const double>) {}, measure))
        return false;
    const double peak = peaks.result().truePeak;
    if (peak > 0) result_.gainDb = *options_.normaliseDb - decibels(peak);
    return true;
}

bool FileRenderer::write(SoundReader& reader) {
    const std::string what = "write \"" + result_.files.output + "\"";
    NewFile file(result_.files.output);
    if (!file.problem().empty()) return fail(what, file.problem());
    SoundWriter writer(file.descriptor(), result_.written, reader.handle(), reader.info(),
                       options_.dither ? Dither::triangular : Dither::none);
    LoudnessMeter before = meter(reader, Measures::everything), after = meter(reader, Measures::everything);
    const double gain = std::pow(10, result_.gainDb.value_or(0) / 20);
    const auto put = [&](std::span<double> part) {
        if (gain != 1) std::ranges::transform(part, part.begin(), [gain](double sample) { return sample * gain; });
        writer.write(part);
        after.add(part);
        result_.frames += static_cast<sf_count_t>(part.size()) / reader.info().channels;
        return writer.problem().empty();
    };
    const bool isComplete = pass(
        reader, [&before](std::span<const double> part) { before.add(part); }, put);
    if (result_.isInterrupted) return false;
    if (isComplete) writer.finish();
    if (!writer.problem().empty()) return fail(what, writer.problem());
    if (result_.frames == 0) return fail("render \"" + result_.files.input + "\"", "none of it can be decoded");
    if (const std::string why = file.keep(replaces()); !why.empty()) return fail(what, why);
    result_.isDamaged = reader.isDamaged();
    result_.clipped = writer.clipped();
    result_.before = before.result();
    result_.after = after.result();
    progress_ = 1;
    return true;
}

} // namespace

RenderResult renderFile(const FilePair& files, const RenderOptions& options, RenderProgress& progress,
                        const std::function<bool()>& isStopped) {
    RenderResult result;
    result.files = files;
    try {
        FileRenderer(options, result, progress, isStopped).run();
    } catch (const std::exception& error) { // there is no memory, or a name is none to the system
        result.failure = "cannot render \"" + files.input + "\": " + error.what();
    }
    return result;
}

} // namespace render
} // namespace QVM_NAMESPACE
