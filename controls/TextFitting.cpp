#include "controls/TextFitting.h"

#include "platform/layer/TextMetrics.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {
constexpr double kLeastPointSize = 6, kStep = 1;
}

AttributedString shrunkenToWidth(AttributedString text, double width) {
    const auto canShrink = [](const TextRun& run) {
        return isAscii(run.text) && run.font.pointSize - kStep >= kLeastPointSize;
    };
    while (TextMetrics::current().width(text) > width && std::ranges::any_of(text.runs, canShrink)) {
        for (TextRun& run : text.runs)
            if (canShrink(run)) run.font.pointSize -= kStep;
    }
    return text;
}

} // namespace QVM_NAMESPACE
