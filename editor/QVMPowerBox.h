// The column at the right: letter mark, gear, the place of the response curve, and the logo stamp.
//
// It carries the product's colour in both themes. The power switch stands over it, in the master clump. Main thread
// only.
#pragma once

#include "editor/EditorLayout.h"
#include "editor/ThemedView.h"

#include <memory>
#include <string_view>

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

    // Puts the parts where a layout wants them. The view's own frame is the caller's matter.
    void assumeLayout(const QVMEditorLayout& layout);

    void themeUpdated() override;

private:
    QVMSymbolButton& btnWithFrameGlyph(const Rect& frame, std::string_view glyph, double size);
    void layOutUnderline(const Rect& logoFrame);

    const QVMMetadata& metadata_;
    QVMSymbolButton* logo_ = nullptr;
    QVMSymbolButton* gear_ = nullptr;
    QVMLogoStamp* logoStamp_ = nullptr;
    std::shared_ptr<Layer> underline_, sketchPlace_;
};

} // namespace QVM_NAMESPACE
