// How the toolkit draws its own menus and tooltips: flat and dark, in our type, whichever theme the editor shows.
#pragma once

#include "toolkit/FaceLibrary.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace QVM_NAMESPACE {

class ToolkitLookAndFeel final : public juce::LookAndFeel_V4 {
public:
    // The library is borrowed.
    explicit ToolkitLookAndFeel(FaceLibrary& faces);

    // All text of the toolkit comes here for its typeface. The toolkit's own way would open every font of the machine.
    juce::Typeface::Ptr getTypefaceForFont(const juce::Font& font) override;
    juce::Font getPopupMenuFont() override;
    int getPopupMenuBorderSize() override;
    void drawPopupMenuBackground(juce::Graphics& g, int width, int height) override;
    void drawTooltip(juce::Graphics& g, const juce::String& text, int width, int height) override;
    juce::Rectangle<int> getTooltipBounds(const juce::String& text, juce::Point<int> pointer,
                                          juce::Rectangle<int> parent) override;

private:
    juce::TextLayout layOutTooltip(const juce::String& text) const;

    FaceLibrary& faces_;
};

} // namespace QVM_NAMESPACE
