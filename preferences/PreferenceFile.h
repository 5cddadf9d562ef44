// The file that holds what the user prefers: written whole or not at all, by any number of instances in any number of
// processes, each of which keeps what the others have written under other keys.
//
// Nothing is read or made before it is asked for. One that cannot be read counts as absent. What goes wrong leaves a
// line in the log and nothing else. Main thread: a write waits for the disk.
#pragma once

#include "preferences/PreferenceText.h"

#include <filesystem>
#include <string>

namespace QVM_NAMESPACE {

class PreferenceFile {
public:
    explicit PreferenceFile(std::filesystem::path file) : file_(std::move(file)) {}
    // The user's, for this product. Where the user has no home nothing is remembered.
    static PreferenceFile ofUser();

    Preferences read() const;
    // For the next who reads.
    void remember(const std::string& key, double value) const;

private:
    std::filesystem::path file_; // empty for none
};

} // namespace QVM_NAMESPACE
