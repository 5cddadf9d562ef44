// Shows the numeric meter's reading on the button in the side column. The sketches know no button, only what can show a
// number. Main thread only.
#pragma once

#include "controls/QVMMeterButton.h"
#include "viz/sketches/NumericMeterDisplay.h"

#include <utility>

namespace QVM_NAMESPACE {

class NumericMeterReading final : public NumericMeterDisplay {
public:
    // The button is borrowed.
    explicit NumericMeterReading(QVMMeterButton& button) : button_(button) {}

    void setSuffix(std::optional<std::string> suffix) override { button_.setSuffix(std::move(suffix)); }
    void resetGlyphColor(const std::string& text, std::optional<Color> color) override {
        button_.resetGlyphColor(text, color.value_or(button_.color()));
    }

private:
    QVMMeterButton& button_;
};

} // namespace QVM_NAMESPACE
