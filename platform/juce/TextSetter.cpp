#include "platform/juce/TextSetter.h"

namespace QVM_NAMESPACE {

juce::Colour toolkitColour(Color color) {
    return juce::Colour::fromFloatRGBA(color.r, color.g, color.b, color.a);
}

SetLine setLine(FaceLibrary& faces, const AttributedString& text, double scale) {
    SetLine line;
    for (const TextRun& run : text.runs) {
        SetLine::Run set{
            faces.font(run.font, scale), toolkitColour(run.color), static_cast<float>(run.baselineOffset * scale), {}};
        juce::Array<int> glyphs;
        juce::Array<float> offsets; // one more than there are glyphs
        set.font.getGlyphPositions(juce::String::fromUTF8(run.text.c_str()), glyphs, offsets);
        const double kern = run.kern * scale;
        for (int i = 0; i < glyphs.size(); ++i) {
            set.glyphs.push_back({glyphs[i], static_cast<float>(line.width + offsets[i] + i * kern)});
        }
        if (!offsets.isEmpty()) line.width += offsets.getLast() + glyphs.size() * kern;
        line.runs.push_back(std::move(set));
    }
    return line;
}

std::vector<AttributedString> brokenIntoLines(FaceLibrary& faces, const AttributedString& text, double width,
                                              double scale) {
    std::vector<AttributedString> lines(1);
    for (const TextRun& run : text.runs) {
        std::size_t at = 0;
        while (at < run.text.size()) {
            const std::size_t end = std::min(run.text.find_first_of(" \n", at), run.text.size());
            const bool newLine = end < run.text.size() && run.text[end] == '\n';
            TextRun word = run;
            word.text = run.text.substr(at, std::min(end + (newLine ? 0 : 1), run.text.size()) - at);
            AttributedString trial = lines.back();
            trial.runs.push_back(word);
            if (!lines.back().isEmpty() && setLine(faces, trial, scale).width > width) {
                lines.emplace_back();
                lines.back().runs.push_back(word);
            } else {
                lines.back() = trial;
            }
            if (newLine) lines.emplace_back();
            at = end + 1;
        }
    }
    return lines;
}

} // namespace QVM_NAMESPACE
