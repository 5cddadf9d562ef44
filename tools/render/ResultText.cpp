#include "tools/render/ResultText.h"

#include "description/NumberText.h"
#include "program/Wording.h"

#include <cmath>

namespace QVM_NAMESPACE {
namespace render {

namespace {

std::string oneDecimal(double value) {
    if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
    const std::string text = FixedText(value, 1);
    return text == "-0.0" ? "0.0" : text;
}

std::string loudnessText(const Loudness& loudness) {
    return loudness.integratedLufs ? oneDecimal(*loudness.integratedLufs) : "-Inf";
}

} // namespace

std::string printable(const std::string& name) {
    std::string text = name;
    for (char& letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (code < 0x20 || code == 0x7F) letter = '?';
    }
    return text;
}

std::string resultText(const RenderResult& result) {
    std::string text = printable(result.files.input) + " -> " + printable(result.files.output) + "  " +
                       loudnessText(result.before) + " to " + loudnessText(result.after) + " LUFS  " +
                       oneDecimal(decibels(result.before.truePeak)) + " to " +
                       oneDecimal(decibels(result.after.truePeak)) + " dBTP";
    if (result.gainDb) text += "  (gain " + oneDecimal(*result.gainDb) + " dB)";
    return text;
}

std::vector<std::string> complaints(const RenderResult& result) {
    if (!result.failure.empty()) return {printable(result.failure)};
    if (result.isInterrupted) return {};
    std::vector<std::string> lines;
    if (result.isDamaged) {
        const double seconds = static_cast<double>(result.frames) / result.source.samplerate;
        lines.push_back(isDamaged(printable(result.files.input), "rendered") + " (" + FixedText(seconds, 1) + " s)");
    }
    if (result.clipped > 0) {
        lines.push_back("\"" + printable(result.files.output) + "\": " + std::to_string(result.clipped) +
                        (result.clipped == 1 ? " sample is" : " samples are") + " cut off at full scale");
    }
    return lines;
}

} // namespace render
} // namespace QVM_NAMESPACE
