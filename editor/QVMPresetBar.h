// The bar along the top: undo and redo, and what is loaded. Main thread only.
#pragma once

#include "editor/ThemedView.h"

#include <memory>
#include <string>

namespace QVM_NAMESPACE {

class QVMSymbolButton;
class TextLayer;

class QVMPresetBar final : public ThemedView {
public:
    // `title` is what the middle of the bar says.
    QVMPresetBar(const Rect& frame, std::string title);

    QVMSymbolButton& undo() { return *undo_; }
    QVMSymbolButton& redo() { return *redo_; }

    // Whether the values differ from those of the chosen preset.
    bool dirty() const { return dirty_; }
    void setDirty(bool dirty) { dirty_ = dirty; }

    void themeUpdated() override;

private:
    std::shared_ptr<Layer> addLine(const char* name, const Rect& frame);

    std::string title_;
    std::shared_ptr<Layer> edge_, divider_;
    std::shared_ptr<TextLayer> titleLayer_;
    QVMSymbolButton* undo_ = nullptr;
    QVMSymbolButton* redo_ = nullptr;
    bool dirty_ = false;
};

} // namespace QVM_NAMESPACE
