#include "tools/render/Report.h"

#include "tools/render/ResultText.h"

#include <cstdio>
#include <utility>

#include <sys/ioctl.h>
#include <unistd.h>

namespace QVM_NAMESPACE {
namespace render {

namespace {

constexpr double secondsBeforeItShows = 0.3;

std::size_t widthOf(int terminal) {
    constexpr std::size_t usual = 80;
    winsize size{};
    return ioctl(terminal, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

} // namespace

Report::Report(std::string program, int errors, Lines lines)
    : program_(std::move(program)), errors_(errors), lines_(lines), isTerminal_(isatty(errors) == 1) {}

void Report::write(const std::string& text) const {
    for (std::size_t at = 0; at < text.size();) {
        const ssize_t written = ::write(errors_, text.data() + at, text.size() - at);
        if (written <= 0) return; // there is nobody to tell
        at += static_cast<std::size_t>(written);
    }
}

void Report::fileIsDone(const RenderResult& result) {
    clear();
    if (result.isWritten() && lines_ == Lines::shown) {
        const std::string line = resultText(result) + "\n";
        isHeard_ = std::fputs(line.c_str(), stdout) >= 0 && std::fflush(stdout) == 0 && isHeard_;
    }
    for (const std::string& complaint : complaints(result))
        write(program_ + ": " + complaint + "\n");
}

void Report::progress(const ProgressState& state) {
    if (!isTerminal_ || state.elapsedSeconds < secondsBeforeItShows) return;
    // The last column stays free: where it is written to, some terminals begin a new line.
    write("\r" + progressText(state, widthOf(errors_) - 1) + "\x1b[K");
    isMoving_ = true;
}

void Report::clear() {
    if (isMoving_) write("\r\x1b[K");
    isMoving_ = false;
}

} // namespace render
} // namespace QVM_NAMESPACE
