#include "presets/PresetFolder.h"

#include "platform/system/UserFolders.h"
#include "presets/PresetName.h"
#include "presets/PresetText.h"

#include <algorithm>
#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace QVM_NAMESPACE {

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t nanoseconds = 1'000'000'000; // in a second
// Within this time a file may be written twice and look the same: the clock of the disk is coarse.
constexpr std::int64_t settling = 2 * nanoseconds;

std::int64_t inNanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * nanoseconds + time.tv_nsec;
}

std::int64_t now() {
    timespec time{};
    ::clock_gettime(CLOCK_REALTIME, &time);
    return inNanoseconds(time);
}

} // namespace

fs::path PresetFolder::ofUser() {
    const fs::path data = userDataFolder();
    return data.empty() ? data : data / "presets";
}

std::vector<PresetStore::File> PresetFolder::readAll() {
    std::vector<std::string> names;
    std::error_code error;
    if (!folder_.empty()) {
        for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error)) {
            std::string name = entry->path().filename().string();
            if (name.ends_with(presetFileEnding) && !name.starts_with('.')) names.push_back(std::move(name));
        }
    }
    std::ranges::sort(names);
    std::erase_if(known_, [&](const auto& each) { return !std::ranges::binary_search(names, each.first); });
    std::vector<File> files;
    files.reserve(names.size());
    for (const std::string& name : names)
        files.push_back({name, contentOf(name)});
    return files;
}

std::variant<std::string, std::error_code> PresetFolder::contentOf(const std::string& fileName) {
    const fs::path path = folder_ / fileName;
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return std::error_code(errno, std::generic_category());
    const Mark mark{status.st_ino, status.st_size, inNanoseconds(status.st_ctim)};
    const auto known = known_.find(fileName);
    if (known != known_.end() && known->second.mark == mark) return known->second.content;
    known_.erase(fileName);
    auto content = readWholeFile(path, longestPresetText);
    const bool isSettled = now() - mark.changed > settling;
    if (const auto* text = std::get_if<std::string>(&content); text && isSettled) known_[fileName] = {mark, *text};
    return content;
}

std::error_code PresetFolder::write(const std::string& fileName, std::string_view text, ExistingFile existing) {
    if (const std::error_code error = makeUserFolder(folder_)) return error;
    return writeWholeFile(folder_ / fileName, text, existing);
}

std::error_code PresetFolder::remove(const std::string& fileName) {
    if (::unlink((folder_ / fileName).c_str()) == 0 || errno == ENOENT) return {};
    return {errno, std::generic_category()};
}

} // namespace QVM_NAMESPACE
