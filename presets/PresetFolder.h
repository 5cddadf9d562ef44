// The user's presets as files of one folder. It is made when the first one is written, and looked at only when somebody
// asks; a file that looks as it did then is not read again.
#pragma once

#include "presets/PresetStore.h"

#include <cstdint>
#include <filesystem>
#include <map>

namespace QVM_NAMESPACE {

class PresetFolder final : public PresetStore {
public:
    // Touches nothing. An empty path is no place at all.
    explicit PresetFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}
    // The user's, for this product; empty where the user has no home.
    static std::filesystem::path ofUser();

    std::vector<File> readAll() override;
    [[nodiscard]] std::error_code write(const std::string& fileName, std::string_view text,
                                        ExistingFile existing) override;
    [[nodiscard]] std::error_code remove(const std::string& fileName) override;

private:
    // By what a changed file is known.
    struct Mark {
        std::uint64_t file = 0;             // its number on the disk
        std::int64_t size = 0, changed = 0; // bytes; nanoseconds
        bool operator==(const Mark&) const = default;
    };
    struct Known {
        Mark mark;
        std::string content;
    };
    std::variant<std::string, std::error_code> contentOf(const std::string& fileName);

    const std::filesystem::path folder_;
    std::map<std::string, Known> known_; // by file name; only what could be read
};

} // namespace QVM_NAMESPACE
