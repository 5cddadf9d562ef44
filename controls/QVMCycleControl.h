// Shows a parameter's value as a word or an icon on a capsule and steps to the next one at each click.
//
// The step is made on the press; the release does nothing more. Main thread only.
#pragma once

#include "controls/BoxControl.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"

namespace QVM_NAMESPACE {

class QVMCycleControl : public BoxControl {
public:
    QVMCycleControl(const Rect& frame, const QVMParameter& parameter);

    // What a press looks like on anything that can be pressed: a short swelling, and a short fading in.
    static BasicAnimation standardPulse();
    static BasicAnimation standardColorPulse();

    // Whether arrow keys cycle, and whether a click does (on the press, in spite of the name).
    virtual bool cycleArrows() const { return true; }
    virtual bool incrementOnMouseUp() const { return true; }
    // Whether the marks for stepping are shown.
    virtual bool includeCrementers() const { return parameter().includeCrementers; }

    // To the next or previous value as a user's discrete change.
    void cycleValueForward(bool forward);

    // The value shown is only near the real one; drawn fainter.
    bool inaccurate() const { return inaccurate_; }
    void setInaccurate(bool inaccurate);

    // Own coordinates.
    Rect bgFrame() const { return bg()->frame(); }
    Rect rectAvailableForTextDisplay() const;

    const std::shared_ptr<TextLayer>& value() const { return value_; }
    const std::shared_ptr<ShapeLayer>& inc() const { return inc_; }
    const std::shared_ptr<ShapeLayer>& dec() const { return dec_; }

    void setFloatValue(float value) override;
    void setDimmed(bool dimmed) override;
    void setHighlit(bool highlit) override { BoxControl::setHighlit(highlit && canHighlight_); }
    bool incrementWithArrowGranularity(char32_t arrow, std::int32_t granularity) override;
    void handleMouseDownWithEventGranularities(const QVMEvent& event, const QVMGranularities& granularities) override;
    void pulse(bool forward) override;

    // Named by the contract and not used in this product: whether keyboard focus is shown, which it always is; and the
    // widest that the text of any value is, in points.
    bool canHighlight() const { return canHighlight_; }
    void setCanHighlight(bool canHighlight) { canHighlight_ = canHighlight; }
    double maxWidth() const { return maxWidth_; }

protected:
    struct Look {
        Color text;
        Color background;
        Color border; // clear: none
        double backgroundOpacity = 1;
    };
    // The value that a step leads to.
    virtual float valueFollowing(bool forward) { return parameter().floatValueAfter(floatValue(), forward); }
    // How a value is drawn in the current theme. A subclass that overrides this, the next four or surface() redraws at
    // the end of its constructor, since this class's constructor cannot see them.
    virtual Look lookForValue(float value) const;
    virtual Rect backgroundFrame() const;
    virtual double iconSize() const; // points
    // What a value is shown as, and the font for that text.
    virtual std::string textForValue(float value) const;
    virtual Font appropriateFontForValueSizeIconSize(const std::string& value, double size, double icon) const;

    void redraw() override;

private:
    enum class Crementers : unsigned char { none, inside, beside };
    void layOut();
    void layOutCrementers();
    void typesetAttributedStringValueBackgroundColor(const AttributedString& text, const Look& look);
    double widestValueText() const;
    virtual AttributedString attributedTextForValue(float value,
                                                    Color color) const; // number with its unit, name or glyph

    std::shared_ptr<TextLayer> value_;
    std::shared_ptr<ShapeLayer> inc_, dec_;
    double maxWidth_ = 0;
    Crementers crementers_ = Crementers::none;
    bool canHighlight_ = true, inaccurate_ = false;
};

} // namespace QVM_NAMESPACE
