#include "tools/render/NewFile.h"

#include "platform/system/FileNames.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace QVM_NAMESPACE {
namespace render {

namespace {

namespace fs = std::filesystem;

constexpr mode_t everybody = 0666;   // less what the user's mask takes away
constexpr mode_t permissions = 0777; // and not to run as its owner, who may be another one now

std::string lastError() {
    return std::generic_category().message(errno);
}

// The way by which the system names an open file.
std::string openFile(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

} // namespace

std::string whyNotWritten(const std::string& path, Replace replace) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) return {};
    if (fs::is_directory(status)) return "it is a directory";
    if (!fs::is_regular_file(status)) return "it is no file but a pipe or a device";
    return replace == Replace::yes ? "" : "it is there already, and --force would replace it";
}

NewFile::NewFile(const std::string& path, Way mostly) : path_(withoutLinks(path)) {
    if (mostly == Way::nameless) open(Way::nameless);
    if (descriptor_ < 0) open(Way::hidden);
    if (descriptor_ < 0) problem_ = lastError();
}

NewFile::~NewFile() {
    if (descriptor_ >= 0) close(descriptor_);
    if (!hidden_.empty()) unlink(hidden_.c_str());
}

std::string NewFile::hiddenName() const {
    std::random_device random;
    const fs::path path(path_);
    return path.parent_path() /
           ("." + path.filename().string().substr(0, 200) + "." + std::to_string(random()) + ".part");
}

void NewFile::open(Way way) {
    if (way == Way::hidden) {
        const std::string name = hiddenName();
        descriptor_ = ::open(name.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, everybody);
        if (descriptor_ >= 0) hidden_ = name;
        return;
    }
    const fs::path folder = fs::path(path_).parent_path();
    descriptor_ = ::open(folder.empty() ? "." : folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, everybody);
    if (descriptor_ < 0 || access(openFile(descriptor_).c_str(), F_OK) == 0) return;
    close(std::exchange(descriptor_, -1)); // it could not be given a name
}

std::string NewFile::keep(Replace replace) {
    struct stat former {};
    if (replace == Replace::yes && stat(path_.c_str(), &former) == 0) fchmod(descriptor_, former.st_mode & permissions);
    if (fsync(descriptor_) != 0) return lastError();
    return link(replace);
}

std::string NewFile::link(Replace replace) {
    const bool isNameless = hidden_.empty();
    const auto nameIt = [this](const std::string& name) {
        return linkat(AT_FDCWD, openFile(descriptor_).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    };
    if (replace == Replace::no) {
        if (isNameless) return nameIt(path_) ? std::string() : lastError();
        const std::error_code error = renameToNew(hidden_, path_);
        return error ? error.message() : std::string(); // a hidden name that is left goes with this object
    }
    if (isNameless) {
        const std::string name = hiddenName();
        if (!nameIt(name)) return lastError();
        hidden_ = name;
    }
    if (rename(hidden_.c_str(), path_.c_str()) != 0) return lastError();
    hidden_.clear();
    return {};
}

} // namespace render
} // namespace QVM_NAMESPACE
