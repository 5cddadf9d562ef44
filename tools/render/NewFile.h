// A file that appears under its name whole or not at all.
//
// Until it is kept it has no name, so that nothing is left of it however the program ends. Where the file system has no
// such files it has a hidden one beside the place where it is to be, which a kill leaves behind.
#pragma once

#include "BuildNamespace.h"

#include <optional>
#include <string>

namespace QVM_NAMESPACE {
namespace render {

enum class Replace : unsigned char { no, yes };

class NewFile {
public:
    enum class Way : unsigned char { nameless, hidden };

    // What stands at the path now is not touched. `mostly` is for tests.
    explicit NewFile(const std::string& path, Way mostly = Way::nameless);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    // Why it could not be made, or nothing.
    const std::string& problem() const { return problem_; }
    // To write and read; belongs to this object.
    int descriptor() const { return descriptor_; }

    // Gives it its name once it has reached the disk. One that it replaces is replaced in one step, and passes on its
    // permissions, but not its owner. Answers why it could not be, or nothing; then nothing has changed.
    [[nodiscard]] std::string keep(Replace replace);

private:
    std::string hiddenName() const;
    void open(Way way);
    std::string link(Replace replace);

    std::string path_;
    std::string problem_;
    std::string hidden_; // its present name, empty for none
    int descriptor_ = -1;
};

// Why no file can be put there, or nothing: something stands there that is not to be, or never can be, replaced.
[[nodiscard]] std::string whyNotWritten(const std::string& path, Replace replace);

} // namespace render
} // namespace QVM_NAMESPACE
