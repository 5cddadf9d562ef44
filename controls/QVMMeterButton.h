// A symbol button whose text is a reading, with its unit behind it in smaller type. Main thread only.
#pragma once

#include "controls/QVMSymbolButton.h"

namespace QVM_NAMESPACE {

class QVMMeterButton : public QVMSymbolButton {
public:
    using QVMSymbolButton::QVMSymbolButton;

    // The unit; absent, the reading stands alone.
    const std::optional<std::string>& suffix() const { return suffix_; }
    void setSuffix(std::optional<std::string> suffix);
    // Point size of the unit; takes effect with the next unit that is set.
    double suffixSize() const { return suffixSize_; }
    void setSuffixSize(double size) { suffixSize_ = size; }
    // The unit as styled text, in the colour of the time when it was set; empty while there is none. Shown it has the
    // colour of the reading.
    const AttributedString& suffixAttr() const { return suffixAttr_; }

    AttributedString attributedStringForGlyphColor(const std::string& glyph, std::optional<Color> color) const override;

private:
    std::optional<std::string> suffix_;
    double suffixSize_ = 10;
    AttributedString suffixAttr_;
};

} // namespace QVM_NAMESPACE
