// One of our faces as a typeface of the toolkit, for what the toolkit draws itself: menus and tooltips.
#pragma once

#include "toolkit/FontFace.h"

namespace QVM_NAMESPACE {

class FaceTypeface final : public juce::CustomTypeface {
public:
    // The face is borrowed.
    FaceTypeface(const FontFace& face, const juce::String& family);

    // The toolkit calls a height in ems one in points.
    float getHeightToPointsFactor() const override { return static_cast<float>(1 / height_); }

protected:
    bool loadGlyphIfPossible(juce::juce_wchar character) override;

private:
    const FontFace& face_;
    const double height_; // ems: the toolkit's unit is ascent and descent together
};

} // namespace QVM_NAMESPACE
