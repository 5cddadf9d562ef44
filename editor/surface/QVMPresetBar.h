// The bar along the top: undo and redo, the preset that is loaded, and the switch between A and B. Main thread only.
#pragma once

#include "editor/surface/ThemedView.h"

#include <memory>

namespace QVM_NAMESPACE {

class QVMABControl;
class QVMParameter;
class QVMParameterControl;
class QVMSymbolButton;

class QVMPresetBar final : public ThemedView {
public:
    // `presets` has the presets' names and outlives the bar; null where a product has none.
    QVMPresetBar(const Rect& frame, const QVMParameter* presets);

    // Names the preset; its inner control is a QVMPresetControl. Null without presets.
    QVMParameterControl* presetControl() const { return presetControl_; }
    QVMABControl& ab() { return *ab_; }
    // What they do is wired by whoever has the bar, and whether they can be pressed is the history's matter.
    QVMSymbolButton& undo() { return *undo_; }
    QVMSymbolButton& redo() { return *redo_; }

    // Whether the values differ from those of the chosen preset, whose name is drawn as inaccurate then.
    bool dirty() const { return dirty_; }
    void setDirty(bool dirty);

    void themeUpdated() override;

private:
    std::shared_ptr<Layer> edge_;
    // Subviews.
    QVMParameterControl* presetControl_ = nullptr;
    QVMABControl* ab_ = nullptr;
    QVMSymbolButton* undo_ = nullptr;
    QVMSymbolButton* redo_ = nullptr;
    bool dirty_ = false;
};

} // namespace QVM_NAMESPACE
