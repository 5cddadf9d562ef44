// What a dimmed control still tells: its value, in the theme's ink on the little that is left of the control.
#pragma once

#include "platform/layer/AttributedString.h"
#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

// Of a value's text, whatever else is dimmed around it. Enough to stand out by 3 to 1 in both themes.
inline constexpr double dimmedValueOpacity = 0.55;

inline AttributedString inDimmedInk(AttributedString text) {
    for (TextRun& run : text.runs)
        run.color = QVMUITheme::theme().textColor;
    return text;
}

} // namespace QVM_NAMESPACE
