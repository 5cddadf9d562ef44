#include "tools/render/ProgressText.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace QVM_NAMESPACE {
namespace render {

namespace {

constexpr double secondsToJudge = 0.5, shareToJudge = 0.01;
constexpr std::size_t widestBar = 40, narrowestBar = 8; // characters between the brackets

std::string padded(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string bar(double share, std::size_t width) {
    const auto full = static_cast<std::size_t>(share * static_cast<double>(width));
    std::string text(width, ' ');
    std::fill_n(text.begin(), full, '=');
    if (full > 0 && full < width) text[full - 1] = '>';
    return "[" + text + "]";
}

} // namespace

std::string durationText(double seconds) {
    const auto whole = static_cast<long>(std::ceil(std::max(seconds, 0.0)));
    char text[32];
    const long hours = whole / 3600, minutes = whole / 60 % 60;
    if (hours > 0) {
        std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", hours, minutes, whole % 60);
    } else {
        std::snprintf(text, sizeof text, "%ld:%02ld", minutes, whole % 60);
    }
    return text;
}

std::string progressText(const ProgressState& state, std::size_t width) {
    const double share = std::clamp(state.share, 0.0, 1.0);
    std::string text = padded(std::to_string(static_cast<int>(share * 100)), 3) + " %";
    const auto append = [&text, width](const std::string& more) {
        if (text.size() + 2 + more.size() <= width) text += "  " + more;
    };
    if (state.files > 1) append(std::to_string(state.filesDone) + " of " + std::to_string(state.files) + " files");
    if (share >= shareToJudge && state.elapsedSeconds >= secondsToJudge)
        append(padded(durationText(state.elapsedSeconds * (1 - share) / share), 4) + " left");
    const std::size_t around = 4; // the brackets and the space behind them
    if (width < text.size() + around + narrowestBar) return text.substr(0, width);
    return bar(share, std::min(width - text.size() - around, widestBar)) + "  " + text;
}

} // namespace render
} // namespace QVM_NAMESPACE
