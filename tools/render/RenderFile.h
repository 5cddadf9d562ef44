// One file from reading to writing.
#pragma once

#include "tools/render/LoudnessMeter.h"
#include "tools/render/OutputPaths.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include <sndfile.h>

namespace QVM_NAMESPACE {
namespace render {

struct RenderResult {
    FilePair files;
    std::string failure; // why nothing was written, empty where it was
    bool isInterrupted = false;
    bool isDamaged = false; // the input has an end that could not be read
    SF_INFO source{}, written{};
    sf_count_t frames = 0; // written
    Loudness before, after;
    std::optional<double>
        gainDb;                // what was added to come to the peak; none where that was not asked, or there is silence
    std::uint64_t clipped = 0; // samples cut off at full scale

    bool isWritten() const { return failure.empty() && !isInterrupted; }
};

// How much of the work is done, from 0 to 1: written by the thread that works, read by any.
using RenderProgress = std::atomic<double>;

// Renders a file on the calling thread. `isStopped` is asked now and then, and ends it with nothing written. The result
// is the same in every run, and whatever runs beside it. Throws nothing.
RenderResult renderFile(const FilePair& files, const RenderOptions& options, RenderProgress& progress,
                        const std::function<bool()>& isStopped);

} // namespace render
} // namespace QVM_NAMESPACE
