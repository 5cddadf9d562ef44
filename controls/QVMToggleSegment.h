// One choice of a toggle control: a word or an icon. It only shows; the toggle itself takes the pointer. Main thread
// only.
#pragma once

#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"
#include "platform/view/View.h"

#include <string>

namespace QVM_NAMESPACE {

class QVMToggleSegment final : public View {
public:
    // `frame` is in the toggle's coordinates; the text is drawn in the icon font where it is a glyph.
    QVMToggleSegment(const Rect& frame, std::string text);

    const std::string& text() const { return text_; }
    // Whether it is the choice, and so stands on the selection's colour.
    bool isSelected() const { return selected_; }
    void setSelected(bool selected);
    // Whether a line at its left end separates it from its neighbour.
    void setSeparated(bool separated) { divider_->setHidden(!separated); }
    bool isSeparated() const { return !divider_->isHidden(); }

    // Takes size, colours and fonts anew.
    void redraw();

    const std::shared_ptr<TextLayer>& label() const { return label_; }
    // Never itself: whatever happens on a segment happens on the toggle.
    View* hitTest(Point) override { return nullptr; }
    void frameDidChange() override { redraw(); }

private:
    std::string text_;
    bool selected_ = false;
    std::shared_ptr<Layer> divider_;
    std::shared_ptr<TextLayer> label_;
};

} // namespace QVM_NAMESPACE
