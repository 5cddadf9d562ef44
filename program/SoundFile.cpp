#include "program/SoundFile.h"

#include <cerrno>
#include <filesystem>
#include <mutex>
#include <system_error>

namespace QVM_NAMESPACE {

namespace {

// Why nothing can be read from there, or nothing.
std::string whyNoFile(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (error) return error.message();
    if (std::filesystem::is_directory(status)) return "it is a directory";
    if (!std::filesystem::is_regular_file(status)) return "it is no file but a pipe or a device";
    return std::filesystem::file_size(path, error) == 0 ? "it is empty" : "";
}

// Why the library did not open a file, in our words where its own would tell of itself.
std::string whyNotOpened() {
    const int systemError = errno;
    switch (sf_error(nullptr)) {
    case SF_ERR_SYSTEM:
        return std::generic_category().message(systemError);
    case SF_ERR_UNRECOGNISED_FORMAT:
        return "it is in no known format of audio";
    case SF_ERR_UNSUPPORTED_ENCODING:
        return "it is encoded in a way that is not known";
    default:
        return "it is damaged";
    }
}

template <class Open>
std::variant<OpenSoundFile, SoundFileRefusal> opened(const SF_INFO& info, Open open) {
    static std::mutex oneAtATime; // why a file was not opened is kept once for the whole process
    const std::lock_guard lock(oneAtATime);
    OpenSoundFile file{nullptr, info};
    file.handle.reset(open(&file.info));
    if (!file.handle) return SoundFileRefusal{whyNotOpened()};
    return file;
}

} // namespace

std::variant<OpenSoundFile, SoundFileRefusal> openSoundFile(const std::string& path) {
    if (std::string why = whyNoFile(path); !why.empty()) return SoundFileRefusal{std::move(why)};
    return opened({}, [&path](SF_INFO* info) { return sf_open(path.c_str(), SFM_READ, info); });
}

std::variant<OpenSoundFile, SoundFileRefusal> openSoundFile(int descriptor) {
    return opened({}, [descriptor](SF_INFO* info) { return sf_open_fd(descriptor, SFM_READ, info, SF_FALSE); });
}

std::variant<OpenSoundFile, SoundFileRefusal> createSoundFile(int descriptor, const SF_INFO& format) {
    return opened(format, [descriptor](SF_INFO* info) { return sf_open_fd(descriptor, SFM_WRITE, info, SF_FALSE); });
}

} // namespace QVM_NAMESPACE
