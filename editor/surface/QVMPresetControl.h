// The preset's name in the bar, with an arrow at each end that steps through the presets.
//
// A press on an arrow steps; a press on the name means nothing to the control itself and is reported as such. What is
// shown for an index that no preset has is "N/A"; a name that is too long is cut. Main thread only.
#pragma once

#include "controls/QVMCycleControl.h"
#include "editor/session/PresetSession.h"

#include <array>
#include <memory>

namespace QVM_NAMESPACE {

// The end of the control at which something stands.
enum class PresetEdge : unsigned char { left, right };

class QVMPresetControl final : public QVMCycleControl {
public:
    // What a preset that does not exist is called.
    static constexpr const char* unknownName = PresetSession::unknownName;

    // `presets` has the preset's index as its value and their names as its texts; it outlives the control.
    QVMPresetControl(const Rect& frame, const QVMParameter& presets);

    // Borrowed: what is stepped through and named from now on, which is more than the parameter has.
    void setPresets(PresetList& presets);

    // The arrows; they hide the base's marks of the same name.
    const std::shared_ptr<TextLayer>& inc() const { return inc_; }
    const std::shared_ptr<TextLayer>& dec() const { return dec_; }
    // The part of the control that counts as an arrow, own coordinates.
    Rect hitFrameOf(PresetEdge edge) const;

    bool includeCrementers() const override { return false; } // those of the base
    void setFloatValue(float value) override;
    // A press steps at an arrow and is a meaningless tap elsewhere, whatever modifier is held: it is no gesture of a
    // value.
    void handleMouseDownEvent(const QVMEvent& event) override;
    void handleMouseUpEvent(const QVMEvent&) override {}
    void pulse(bool forward) override;
    void themeUpdated() override;
    void mouseMoved(const Event& event) override;
    void mouseExited(const Event& event) override;

protected:
    float valueFollowing(bool forward) override;
    Look lookForValue(float value) const override;
    Rect backgroundFrame() const override;
    std::string textForValue(float value) const override;
    AttributedString attributedTextForValue(float value, Color color) const override;
    Font appropriateFontForValueSizeIconSize(const std::string& value, double size, double icon) const override;
    std::optional<Color> surface() const override;

private:
    std::shared_ptr<TextLayer> addCrementerWithGlyphEdge(std::string_view glyph, PresetEdge edge);
    std::shared_ptr<Layer> addDividerWithX(double x);
    void styleArrows();

    PresetList* presets_ = nullptr;
    std::shared_ptr<TextLayer> inc_, dec_;
    std::shared_ptr<Layer> arrowLight_; // behind the arrow that the pointer is over
    std::array<std::shared_ptr<Layer>, 2> dividers_;
};

} // namespace QVM_NAMESPACE
