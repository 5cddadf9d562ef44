// The column at the right: letter mark, gear, the place of the response curve, and the logo stamp.
//
// It carries the product's colour in both themes, shaded in the dark one. The power switch stands over it, in the
// master clump. Main thread only.
#pragma once

#include "editor/surface/EditorLayout.h"
#include "editor/surface/ThemedView.h"
#include "platform/layer/TextLayer.h"

#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace QVM_NAMESPACE {

class QVMLogoStamp;
class QVMSymbolButton;
struct QVMMetadata;

enum class AdvancedControls : bool { no, yes };

class QVMPowerBox final : public ThemedView {
public:
    // The gear is there only with advanced controls. The metadata outlives the view.
    QVMPowerBox(const Rect& frame, AdvancedControls advanced, const QVMMetadata& metadata);

    QVMSymbolButton& logo() { return *logo_; }
    QVMSymbolButton* gear() { return gear_; } // null without advanced controls
    QVMLogoStamp& logoStamp() { return *logoStamp_; }
    const QVMMetadata& metadata() const { return metadata_; }

    // A double click where no button is, as on the curve, asks for the other form of the editor.
    void setFrameToggle(std::function<void()> toggle) { frameToggle_ = std::move(toggle); }
    // Told when the pointer comes into the box (true) and when it leaves.
    void setHoverHandler(std::function<void(bool)> handler) { hoverHandler_ = std::move(handler); }

    // What the response curve stands on; opaque.
    Color sketchGround() const { return sketchPlace_->look().backgroundColor(); }
    // A faint eye where the response curve was hidden.
    void setShowsHiddenSign(bool shows);
    const std::shared_ptr<TextLayer>& hiddenSign() const { return hiddenSign_; }

    // Puts the parts where a layout wants them. The view's own frame is the caller's matter.
    void assumeLayout(const QVMEditorLayout& layout);

    void themeUpdated() override;
    void mouseDown(const Event& event) override;
    void mouseEntered(const Event& event) override;
    void mouseExited(const Event& event) override;

private:
    bool isOnButton(Point pointInWindow) const;
    QVMSymbolButton& btnWithFrameGlyph(const Rect& frame, std::string_view glyph, double size);
    void layOutUnderline(const Rect& logoFrame);

    const QVMMetadata& metadata_;
    QVMSymbolButton* logo_ = nullptr;
    QVMSymbolButton* gear_ = nullptr;
    QVMLogoStamp* logoStamp_ = nullptr;
    std::shared_ptr<Layer> underline_, sketchPlace_;
    std::shared_ptr<TextLayer> hiddenSign_;
    std::function<void()> frameToggle_;
    std::function<void(bool)> hoverHandler_;
};

} // namespace QVM_NAMESPACE
