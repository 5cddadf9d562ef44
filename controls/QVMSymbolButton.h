// A push button of one glyph from the icon font, with a spotlight for "selected" and a light for "warning".
//
// It acts on the press, not on the release. A light glyph turns dark while a light stands behind it. Main thread only.
#pragma once

#include "platform/layer/TextLayer.h"
#include "platform/view/Control.h"

#include <optional>
#include <string>

namespace QVM_NAMESPACE {

class QVMSymbolButton : public Control {
public:
    // `size` is the glyph's point size.
    QVMSymbolButton(const Rect& frame, std::string glyph, double size, Color color);

    // Shows another glyph and colour; the glyph stays centred.
    void resetGlyphColor(std::string glyph, Color color);
    // The glyph as styled text in the given colour, or in the button's own.
    virtual AttributedString attributedStringForGlyphColor(const std::string& glyph, std::optional<Color> color) const;

    // At first the theme's icon font at `size`.
    Font defaultFont() const;
    const Font& font() const { return font_; }
    void setFont(Font font);
    Color color() const { return color_; }
    double size() const { return size_; }
    const std::string& symbol() const { return symbol_; }

    // A disabled button ignores clicks and shows its glyph faintly.
    bool buttonEnabled() const { return buttonEnabled_; }
    void setButtonEnabled(bool enabled);
    // How faintly the symbol is seen while it is disabled, from the glyph's own alpha up: another one stands under it
    // then. For an owner that knows the ground and wants the button to be found on it.
    void setRestingAlpha(float alpha);
    const std::shared_ptr<TextLayer>& restingGlyph() const { return restingGlyph_; } // null before
    bool selected() const { return selected_; }
    void setSelected(bool selected);
    // The light pulses when the state changes, not when it is set again.
    bool warning() const { return warning_; }
    void setWarning(bool warning);
    // Lights the spotlight for a quarter of a second.
    void flash();

    const std::shared_ptr<TextLayer>& glyph() const { return glyph_; }
    const std::shared_ptr<Layer>& spotlight() const { return spotlight_; }
    const std::shared_ptr<Layer>& warningLight() const { return warningLight_; }

    bool acceptsFirstMouse() const override { return true; }
    void mouseDown(const Event& event) override;
    void mouseEntered(const Event& event) override;
    void mouseExited(const Event& event) override;
    void frameDidChange() override;

    // Named by the contract and not used in this product: a number by which the owner tells its buttons apart.
    int nid() const { return nid_; }
    void setNid(int nid) { nid_ = nid; }

protected:
    // Sets the text anew from glyph, font and colour.
    void showGlyph();

private:
    void layOut();
    void styleLights();
    void showHover();
    Color shownColor() const;

    std::string symbol_;
    Font font_;
    Color color_;
    float restingAlpha_ = 0;
    double size_ = 0;
    bool buttonEnabled_ = true, selected_ = false, warning_ = false, hovered_ = false;
    int nid_ = 0;
    std::shared_ptr<Layer> hoverLight_, spotlight_, warningLight_;
    std::shared_ptr<TextLayer> glyph_, restingGlyph_;
};

} // namespace QVM_NAMESPACE
