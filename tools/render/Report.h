// Tells the shell what happens: a line a file in the order of the files, and a moving line below on a terminal.
#pragma once

#include "tools/render/ProgressText.h"
#include "tools/render/RenderFile.h"

#include <string>

namespace QVM_NAMESPACE {
namespace render {

// One thread.
class Report {
public:
    // Lines of results go to the standard output unless they are left out; complaints, behind the program's name, and
    // the moving line go to `errors`, a descriptor that lives as long.
    enum class Lines : unsigned char { shown, leftOut };
    Report(std::string program, int errors, Lines lines);

    void fileIsDone(const RenderResult& result);
    // Draws the moving line, where there is a terminal and the work takes long enough to be worth it.
    void progress(const ProgressState& state);
    // Takes the moving line away.
    void clear();
    // Whether all lines could be written so far.
    bool isHeard() const { return isHeard_; }

private:
    void write(const std::string& text) const;

    std::string program_;
    int errors_;
    Lines lines_;
    bool isTerminal_;
    bool isMoving_ = false; // the moving line stands there
    bool isHeard_ = true;
};

} // namespace render
} // namespace QVM_NAMESPACE
