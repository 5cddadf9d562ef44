// Opening a sound file to read or write it, and in plain words why it can't be.
#pragma once

#include "BuildNamespace.h"

#include <memory>
#include <string>
#include <variant>

#include <sndfile.h>

namespace QVM_NAMESPACE {

struct SoundFileCloser {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFileHandle = std::unique_ptr<SNDFILE, SoundFileCloser>;

struct OpenSoundFile {
    SoundFileHandle handle; // never null
    SF_INFO info{};
};

struct SoundFileRefusal {
    std::string why; // a few words, without the file's name
};

// Waits for nobody: what is no file, such as a pipe, is refused. Any thread. The library may write to the error stream
// (see HeldErrorStream).
[[nodiscard]] std::variant<OpenSoundFile, SoundFileRefusal> openSoundFile(const std::string& path);
// The same of a file that is open, from its beginning. The descriptor stays the caller's, and has to live as long.
[[nodiscard]] std::variant<OpenSoundFile, SoundFileRefusal> openSoundFile(int descriptor);
// Writes into a file that is open and empty, which stays the caller's.
[[nodiscard]] std::variant<OpenSoundFile, SoundFileRefusal> createSoundFile(int descriptor, const SF_INFO& format);

} // namespace QVM_NAMESPACE
