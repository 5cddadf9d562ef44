#include "platform/system/WholeFile.h"

#include "platform/system/FileNames.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace QVM_NAMESPACE {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view partPrefix = ".slantwise-", partSuffix = ".part";
constexpr auto partLifetime = std::chrono::hours(24); // longer than any write takes
constexpr int attempts = 100;                         // at a name that nobody has
constexpr mode_t anyMode = 0666;                      // less what the process masks
constexpr mode_t permissionBits = 07777;

std::error_code lastError() {
    return {errno, std::generic_category()};
}

// Owned; closed at the latest at the end.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }
    // Some file systems say only here that there was no room.
    std::error_code close() {
        const int closed = ::close(number_);
        number_ = -1;
        return closed == 0 ? std::error_code() : lastError();
    }

private:
    int number_;
};

// The file beside the other one. It is gone with this, unless it got a name.
class Part {
public:
    explicit Part(const fs::path& folder) {
        static std::atomic<std::uint32_t> count = 0; // of this process
        const auto moment = std::chrono::steady_clock::now().time_since_epoch().count();
        for (int i = 0; i < attempts && !descriptor_; ++i) {
            path_ = folder / (std::string(partPrefix) + std::to_string(::getpid()) + "-" + std::to_string(++count) +
                              "-" + std::to_string(moment) + std::string(partSuffix));
            descriptor_.emplace(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, anyMode));
            if (*descriptor_) return;
            error_ = lastError();
            descriptor_.reset();
            if (error_ != std::errc::file_exists) return;
        }
    }
    ~Part() {
        if (descriptor_) ::unlink(path_.c_str());
    }
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    std::error_code write(std::string_view content, std::optional<mode_t> mode) {
        if (!descriptor_) return error_;
        while (!content.empty()) {
            const ssize_t written = ::write(descriptor_->number(), content.data(), content.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) return lastError();
            content.remove_prefix(static_cast<std::size_t>(written));
        }
        if (mode && ::fchmod(descriptor_->number(), *mode) != 0) return lastError();
        if (::fsync(descriptor_->number()) != 0) return lastError();
        return descriptor_->close();
    }

    std::error_code moveTo(const fs::path& file, ExistingFile existing) const {
        if (existing == ExistingFile::replace)
            return ::rename(path_.c_str(), file.c_str()) == 0 ? std::error_code() : lastError();
        return renameToNew(path_, file);
    }

private:
    fs::path path_;
    std::optional<Descriptor> descriptor_;
    std::error_code error_;
};

// A name survives the loss of power once its folder is on the disk. Where that cannot be had, the file is whole all the
// same.
void settle(const fs::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) ::fsync(opened.number());
}

void removeForgottenParts(const fs::path& folder) {
    std::error_code ignored;
    const auto now = fs::file_time_type::clock::now();
    for (fs::directory_iterator entry(folder, ignored), end; !ignored && entry != end; entry.increment(ignored)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with(partPrefix) || !name.ends_with(partSuffix)) continue;
        std::error_code untold;
        const auto written = entry->last_write_time(untold);
        if (!untold && now - written > partLifetime) fs::remove(entry->path(), untold);
    }
}

} // namespace

std::error_code writeWholeFile(const fs::path& file, std::string_view content, ExistingFile existing) {
    const fs::path target = existing == ExistingFile::replace ? withoutLinks(file) : file;
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::optional<mode_t> mode;
    if (struct stat status; existing == ExistingFile::replace && ::stat(target.c_str(), &status) == 0)
        mode = status.st_mode & permissionBits;
    removeForgottenParts(folder);
    Part part(folder);
    if (const std::error_code error = part.write(content, mode)) return error;
    if (const std::error_code error = part.moveTo(target, existing)) return error;
    settle(folder);
    return {};
}

std::variant<std::string, std::error_code> readWholeFile(const fs::path& file, std::size_t mostBytes) {
    const Descriptor opened(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!opened) return lastError();
    struct stat status;
    if (::fstat(opened.number(), &status) != 0) return lastError();
    if (S_ISDIR(status.st_mode)) return std::make_error_code(std::errc::is_a_directory);
    if (!S_ISREG(status.st_mode)) return std::make_error_code(std::errc::not_supported);
    std::string content(mostBytes + 1, '\0'); // one more tells what is too long
    std::size_t length = 0;
    while (length < content.size()) {
        const ssize_t count = ::read(opened.number(), content.data() + length, content.size() - length);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return lastError();
        if (count == 0) break;
        length += static_cast<std::size_t>(count);
    }
    if (length > mostBytes) return std::make_error_code(std::errc::file_too_large);
    content.resize(length);
    return content;
}

} // namespace QVM_NAMESPACE
