// The user's folders of this process, and of those that it starts, are empty ones of its own. Nothing to include: it is
// in force before main, and the folders are gone at the end.
#include "support/ScopedFolder.h"

#include <cstdlib>

namespace slantwise_tests {
namespace {

struct OwnFolders {
    OwnFolders() {
        ::setenv("XDG_CONFIG_HOME", (folder.path() / "config").c_str(), 1);
        ::setenv("XDG_DATA_HOME", (folder.path() / "data").c_str(), 1);
    }
    ScopedFolder folder;
};

const OwnFolders ownFolders; // NOLINT(cert-err58-cpp): without it there is nothing to run

} // namespace
} // namespace slantwise_tests
