// Styled text: a list of runs, each with one font and one colour, set on one baseline. A plain value; any thread.
#pragma once

#include "platform/layer/Font.h"
#include "platform/surface/Color.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

struct TextRun {
    std::string text; // UTF-8
    Font font;
    Color color;
    double kern = 0;           // points added behind each character
    double baselineOffset = 0; // points, positive is up
    bool operator==(const TextRun&) const = default;
};

struct AttributedString {
    std::vector<TextRun> runs;

    AttributedString() = default;
    AttributedString(std::string text, Font font, Color color) {
        runs.push_back({std::move(text), std::move(font), color, 0, 0});
    }
    // The other one's runs come behind these, each as it is: equal neighbours are not joined.
    AttributedString& append(const AttributedString& other) {
        runs.insert(runs.end(), other.runs.begin(), other.runs.end());
        return *this;
    }
    // The text of all runs without their style, UTF-8.
    std::string string() const {
        std::string all;
        for (const TextRun& run : runs)
            all += run.text;
        return all;
    }
    // There is no character to show, though there may be runs.
    bool isEmpty() const {
        return std::all_of(runs.begin(), runs.end(), [](const TextRun& run) { return run.text.empty(); });
    }
    bool operator==(const AttributedString&) const = default;
};

} // namespace QVM_NAMESPACE
