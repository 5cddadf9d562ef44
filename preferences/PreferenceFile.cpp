#include "preferences/PreferenceFile.h"

#include "platform/system/Log.h"
#include "platform/system/UserFolders.h"
#include "platform/system/WholeFile.h"

#include <cerrno>
#include <chrono>
#include <string_view>
#include <thread>
#include <variant>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* fileName = "preferences";
constexpr std::size_t mostBytes = 1 << 16;
constexpr auto lockPatience = std::chrono::milliseconds(500), lockPause = std::chrono::milliseconds(2);

// Who writes reads first, and no other instance writes in between. One that never lets go, or a file system that knows
// no locks, is not waited for.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder)
        : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        const auto end = std::chrono::steady_clock::now() + lockPatience;
        while (folder_ >= 0 && ::flock(folder_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK &&
               std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(lockPause);
    }
    ~FolderLock() {
        if (folder_ >= 0) ::close(folder_); // and with it the lock
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int folder_;
};

// What cannot be read and may still be the user's is left alone; what cannot be one of ours is not.
std::error_code whyNotReplaced(std::error_code unread) {
    const bool isNothing = unread == std::errc::no_such_file_or_directory || unread == std::errc::file_too_large;
    return isNothing ? std::error_code() : unread;
}

void complain(const std::filesystem::path& file, const std::string& what, const std::string& why) {
    logLine("Slantwise: " + what + " \"" + file.string() + "\": " + why);
}

} // namespace

PreferenceFile PreferenceFile::ofUser() {
    const std::filesystem::path folder = userConfigFolder();
    return PreferenceFile(folder.empty() ? folder : folder / fileName);
}

Preferences PreferenceFile::read() const {
    if (file_.empty()) return {};
    const auto content = readWholeFile(file_, mostBytes);
    if (const auto* error = std::get_if<std::error_code>(&content)) {
        if (*error != std::errc::no_such_file_or_directory && *error != std::errc::not_a_directory)
            complain(file_, "cannot read the preferences in", error->message());
        return {};
    }
    const auto found = preferencesIn(std::get<std::string>(content));
    if (!found) complain(file_, "cannot read the preferences in", "it is no text");
    return found.value_or(Preferences());
}

void PreferenceFile::remember(const std::string& key, double value) const {
    if (file_.empty()) return;
    std::error_code error = makeUserFolder(file_.parent_path());
    if (!error) {
        const FolderLock lock(file_.parent_path());
        const auto content = readWholeFile(file_, mostBytes);
        const auto* before = std::get_if<std::string>(&content);
        if (const auto* unread = std::get_if<std::error_code>(&content)) error = whyNotReplaced(*unread);
        const std::string text = before && preferencesIn(*before) ? *before : std::string();
        const std::string wanted = textWithPreference(text, key, value);
        const bool isNew = !before || wanted != *before;
        if (!error && isNew) error = writeWholeFile(file_, wanted, ExistingFile::replace);
    }
    if (error) complain(file_, "cannot write the preferences to", error.message());
}

} // namespace QVM_NAMESPACE
