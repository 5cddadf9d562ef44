// A row of symbols from the icon font, one a value from 0 up, of which one is taken: pressed, or swept over with the
// pointer down. Main thread only.
#pragma once

#include "controls/SweptControl.h"
#include "platform/layer/TextLayer.h"

#include <vector>

namespace QVM_NAMESPACE {

class QVMNoteSlider : public SweptControl {
public:
    static constexpr Size cell = {28, 32}; // points, of one symbol

    QVMNoteSlider(const Rect& frame, const QVMParameter& parameter);

    // The symbols in value order, and the layer behind the one that is taken.
    const std::vector<std::shared_ptr<TextLayer>>& symbols() const { return symbols_; }
    const std::shared_ptr<Layer>& selection() const { return selection_; }
    // Where symbols stand, own coordinates.
    Rect availableRect() const;

    // Puts the selection behind a symbol's frame.
    void positionSelectionWithReferenceFrame(const Rect& frame);
    // Takes the symbol under the event, if there is one, as the user's choice.
    void selectIndexFromEvent(const QVMEvent& event);

    void setFloatValue(float value) override;
    float incrementedValueForArrowGranularity(char32_t arrow, std::int32_t granularity) const override;

protected:
    void takeValueFromEvent(const QVMEvent& event) override { selectIndexFromEvent(event); }
    void redraw() override;
    int indexAt(Point point) const override;
    std::optional<Rect> hoverFrame(int index) const override; // none for the symbol that is taken

private:
    void layOutSymbols();
    void showSelection(Animate animate);
    int selectedIndex() const; // -1: the value has no symbol

    std::vector<std::shared_ptr<TextLayer>> symbols_;
    std::shared_ptr<Layer> selection_;
};

} // namespace QVM_NAMESPACE
