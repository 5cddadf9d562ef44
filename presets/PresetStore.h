// Where the user's presets are kept: small texts, each under a file name of its own. Other processes may write there as
// well, so what is told is always what is there now. Main thread; these calls wait for the disk.
#pragma once

#include "platform/system/WholeFile.h"

#include <string>
#include <string_view>
#include <system_error>
#include <variant>
#include <vector>

namespace QVM_NAMESPACE {

class PresetStore {
public:
    struct File {
        std::string fileName;
        std::variant<std::string, std::error_code> content; // or why it cannot be read
    };

    virtual ~PresetStore() = default;
    // Everything that is there now, by file name. Nothing where there is no place to keep anything.
    virtual std::vector<File> readAll() = 0;
    // Whole or not at all, as writeWholeFile().
    [[nodiscard]] virtual std::error_code write(const std::string& fileName, std::string_view text,
                                                ExistingFile existing) = 0;
    // A file that has gone already is removed.
    [[nodiscard]] virtual std::error_code remove(const std::string& fileName) = 0;
};

} // namespace QVM_NAMESPACE
