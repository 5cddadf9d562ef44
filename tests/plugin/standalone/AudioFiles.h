// Audio files for tests: written into a directory of their own, removed with it.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <span>
#include <string>
#include <vector>

#include <sndfile.h>
#include <unistd.h>

namespace audiofiles {

class Directory {
public:
    Directory() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() /
                ("slantwise-test-" + std::to_string(getpid()) + "-" + std::to_string(random()));
        std::filesystem::create_directories(path_);
    }
    ~Directory() { std::filesystem::remove_all(path_); }
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    std::string file(const std::string& name) const { return (path_ / name).string(); }

    // Interleaved samples in the given libsndfile format; the file's path.
    std::string audio(const std::string& name, int format, int channels, int rateHz,
                      std::span<const float> samples) const {
        SF_INFO info{};
        info.format = format;
        info.channels = channels;
        info.samplerate = rateHz;
        SNDFILE* const sound = sf_open(file(name).c_str(), SFM_WRITE, &info);
        if (!sound) return {};
        sf_writef_float(sound, samples.data(), static_cast<sf_count_t>(samples.size()) / channels);
        sf_close(sound);
        return file(name);
    }

    std::string bytes(const std::string& name, const std::string& content) const {
        std::ofstream(file(name), std::ios::binary) << content;
        return file(name);
    }

private:
    std::filesystem::path path_;
};

} // namespace audiofiles
