// A folder of its own for a test that writes files, gone with all that is in it at the end.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include <stdlib.h>

namespace slantwise_tests {

class ScopedFolder {
public:
    ScopedFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "slantwise-test-XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no folder for a test's files");
        path_ = name;
    }
    ~ScopedFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScopedFolder(const ScopedFolder&) = delete;
    ScopedFolder& operator=(const ScopedFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace slantwise_tests
