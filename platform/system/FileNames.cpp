#include "platform/system/FileNames.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace QVM_NAMESPACE {

namespace {

namespace fs = std::filesystem;

constexpr int mostLinks = 40; // one after the other; the system's own bound

} // namespace

fs::path withoutLinks(const fs::path& file) {
    std::error_code error;
    fs::path target = file;
    for (int i = 0; i < mostLinks && fs::is_symlink(target, error); ++i)
        target = target.parent_path() / fs::read_symlink(target, error);
    return fs::is_symlink(target, error) ? file : target;
}

std::error_code renameToNew(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
    const bool isUnknown = errno == EINVAL || errno == ENOSYS;
    if (isUnknown && ::link(from.c_str(), to.c_str()) == 0) return {};
    return {errno, std::generic_category()};
}

} // namespace QVM_NAMESPACE
