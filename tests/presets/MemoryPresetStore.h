// A store in memory that behaves as the folder does: what is written is there whole, a name that is taken stays taken,
// and what cannot be read says why.
#pragma once

#include "presets/PresetStore.h"

#include <map>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class MemoryPresetStore final : public PresetStore {
public:
    std::vector<File> readAll() override {
        ++readings;
        std::vector<File> found;
        for (const auto& [name, text] : files)
            if (name == unreadable)
                found.push_back({name, std::make_error_code(std::errc::permission_denied)});
            else
                found.push_back({name, text});
        return found;
    }
    [[nodiscard]] std::error_code write(const std::string& fileName, std::string_view text,
                                        ExistingFile existing) override {
        if (fault) return fault;
        if (existing == ExistingFile::keep && files.contains(fileName))
            return std::make_error_code(std::errc::file_exists);
        files[fileName] = std::string(text);
        return {};
    }
    [[nodiscard]] std::error_code remove(const std::string& fileName) override {
        if (fault) return fault;
        files.erase(fileName);
        return {};
    }

    std::map<std::string, std::string> files; // by name, as those of the folder are listed
    std::string unreadable;                   // one of them
    std::error_code fault;                    // what writing and removing fail with
    int readings = 0;                         // how often somebody looked
};

} // namespace QVM_NAMESPACE
