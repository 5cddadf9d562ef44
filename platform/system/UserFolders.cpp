#include "platform/system/UserFolders.h"

#include <array>
#include <cerrno>
#include <cstdlib>

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

fs::path folderFor(const char* variable, const char* placeInHome) {
    fs::path base = absolutePathIn(variable);
    if (base.empty()) {
        base = homeFolder();
        if (base.empty()) return {};
        base /= placeInHome;
    }
    return base / productFolder;
}

} // namespace

fs::path userDataFolder() {
    return folderFor("XDG_DATA_HOME", ".local/share");
}

fs::path userConfigFolder() {
    return folderFor("XDG_CONFIG_HOME", ".config");
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
