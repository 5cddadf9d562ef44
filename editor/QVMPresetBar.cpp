#include "editor/QVMPresetBar.h"

#include "controls/QVMSymbolButton.h"
#include "editor/EditorLayout.h"
#include "platform/TextLayer.h"
#include "resources/IconGlyphs.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr Rect undoFrame = {18, 1, 27, 27}, redoFrame = {46, 1, 27, 27};
constexpr double toolGlyphSize = 22, titleSize = 14; // points
constexpr double lineWidth = 1, dividerInset = 6;    // points

} // namespace

QVMPresetBar::QVMPresetBar(const Rect& frame, std::string title) : ThemedView(frame), title_(std::move(title)) {
    layer()->setName("presetBar");
    const Rect middle = EditorLayoutForAltFrame(QVMAltFrameNormal).presetControl;
    edge_ = addLine("edge", {0, bounds().height - lineWidth, bounds().width, lineWidth});
    divider_ = addLine("divider", {middle.x, dividerInset, lineWidth, bounds().height - 2 * dividerInset - lineWidth});
    titleLayer_ = std::make_shared<TextLayer>();
    titleLayer_->setName("title");
    titleLayer_->setFrame({middle.x, 0, middle.width, bounds().height - lineWidth});
    layer()->addSublayer(titleLayer_);

    const Color color = QVMUITheme::theme().palette.symbol;
    undo_ = &addSubview(std::make_unique<QVMSymbolButton>(undoFrame, std::string(icons::undo), toolGlyphSize, color));
    undo_->layer()->setName("undoButton");
    undo_->setToolTip("Undo");
    redo_ = &addSubview(std::make_unique<QVMSymbolButton>(redoFrame, std::string(icons::redo), toolGlyphSize, color));
    redo_->layer()->setName("redoButton");
    redo_->setToolTip("Redo");
    themeUpdated();
}

void QVMPresetBar::themeUpdated() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    layer()->setBackgroundColor(palette.sidePanel);
    edge_->setBackgroundColor(palette.divider);
    divider_->setBackgroundColor(palette.divider);
    undo_->resetGlyphColor(undo_->symbol(), palette.symbol);
    redo_->resetGlyphColor(redo_->symbol(), palette.symbol);
    titleLayer_->setString(
        AttributedString(title_, QVMUITheme::appropriateFontForValueSizeIconSize(title_, titleSize, 0), palette.value));
}

std::shared_ptr<Layer> QVMPresetBar::addLine(const char* name, const Rect& frame) {
    auto line = std::make_shared<Layer>();
    line->setName(name);
    line->setFrame(frame);
    layer()->addSublayer(line);
    return line;
}

} // namespace QVM_NAMESPACE
