#include "platform/system/UserFolders.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace QVM_NAMESPACE {

namespace {

namespace fs = std::filesystem;

constexpr const char* productFolder = "slantwise";
constexpr mode_t userOnly = 0700;

// The absolute path that a variable holds; empty for anything else.
fs::path absolutePathIn(const char* variable) {
    const char* const value = std::getenv(variable);
    const fs::path path = value ? value : "";
    return path.is_absolute() ? path : fs::path();
}

fs::path homeFolder() {
    if (fs::path home = absolutePathIn("HOME"); !home.empty()) return home;
    std::array<char, 16384> text;
    passwd entry, *found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, text.data(), text.size(), &found) != 0 || !found) return {};
    const fs::path home = found->pw_dir ? found->pw_dir : "";
    return home.is_absolute() ? home : fs::path();
}

// Empty where the user has no home.
fs::path baseFolder(const char* variable, const char* placeInHome) {
    fs::path base = absolutePathIn(variable);
    if (!base.empty()) return base;
    const fs::path home = homeFolder();
    return home.empty() ? home : home / placeInHome;
}

fs::path dataHome() {
    return baseFolder("XDG_DATA_HOME", ".local/share");
}

fs::path ofProduct(const fs::path& base) {
    return base.empty() ? base : base / productFolder;
}

} // namespace

fs::path userDataFolder() {
    return ofProduct(dataHome());
}

fs::path userConfigFolder() {
    return ofProduct(baseFolder("XDG_CONFIG_HOME", ".config"));
}

std::vector<fs::path> sharedDataFolders() {
    std::vector<fs::path> folders;
    if (fs::path home = dataHome(); !home.empty()) folders.push_back(std::move(home));
    const char* const named = std::getenv("XDG_DATA_DIRS");
    std::string_view rest = named && *named ? named : "/usr/local/share:/usr/share";
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        if (fs::path folder = rest.substr(0, end); folder.is_absolute()) folders.push_back(std::move(folder));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return folders;
}

std::error_code makeUserFolder(const fs::path& folder) {
    if (folder.empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
    fs::path made;
    for (const fs::path& name : folder) {
        made /= name;
        if (::mkdir(made.c_str(), userOnly) == 0 || errno == EEXIST) continue;
        const std::error_code error(errno, std::generic_category());
        std::error_code ignored;
        if (!fs::is_directory(made, ignored)) return error; // "/" and read-only file systems answer otherwise
    }
    std::error_code ignored;
    return fs::is_directory(folder, ignored) ? std::error_code() : std::make_error_code(std::errc::not_a_directory);
}

} // namespace QVM_NAMESPACE
