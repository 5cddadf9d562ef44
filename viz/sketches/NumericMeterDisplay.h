// Where a sketch shows the numeric meter's reading: a text and its unit. Implemented by whoever owns the button.
#pragma once

#include "platform/surface/Color.h"

#include <optional>
#include <string>

namespace QVM_NAMESPACE {

class NumericMeterDisplay {
public:
    virtual ~NumericMeterDisplay() = default;
    // Main thread, both; the unit comes first. Without a colour the text keeps the one it has.
    virtual void setSuffix(std::optional<std::string> suffix) = 0;
    virtual void resetGlyphColor(const std::string& text, std::optional<Color> color) = 0;
};

} // namespace QVM_NAMESPACE
