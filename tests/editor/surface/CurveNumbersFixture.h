// An editor whose curve tells numbers, with a pointer and keys.
#pragma once

#include "editor/RenderedEditorFixture.h"
#include "editor/surface/CurveNumbers.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// An editor in its compact form, at rest.
class CurveNumbersFixture : public RenderedEditorFixture {
protected:
    void SetUp() override {
        RenderedEditorFixture::SetUp();
        window_.makeKey();
        ui_->requestFrame(QVMAltFrameCompact);
        frames(1);
        drawAll();
        delegate_.calls.clear();
        delegate_.sent.clear();
    }
    CurveNumbers& numbers() { return *ui_->sketches().numbers(); }
    const CurveReadout& readout() { return numbers().readout(); }
    QVMParameterControl& corner(std::uint32_t pid) { return *numbers().corner(pid); }
    CurveCorner& handle(std::uint32_t pid) { return static_cast<CurveCorner&>(*corner(pid).primaryControl()); }
    QVM0015GLSketch& object() { return static_cast<QVM0015GLSketch&>(*ui_->sketch()->getVizRef()); }
    CurveScale scale() { return CurveScale(object().responseDisplay()); }

    void pointTo(Point at) { window_.sendEvent(mouseEvent(EventType::mouseMoved, at)); }
    void pointOut() { window_.sendEvent(mouseEvent(EventType::mouseExited, {-1, -1})); }
    void press(Point at, std::uint32_t modifiers = 0) {
        window_.sendEvent(mouseEvent(EventType::mouseDown, at, modifiers));
    }
    void dragTo(Point at, std::uint32_t modifiers = 0) {
        window_.sendEvent(mouseEvent(EventType::mouseDragged, at, modifiers));
    }
    void release(Point at) { window_.sendEvent(mouseEvent(EventType::mouseUp, at)); }
    bool typeKey(std::uint16_t code, char32_t character = 0, std::uint32_t modifiers = 0) {
        return window_.sendEvent(pressedKey(character, code, modifiers));
    }
    bool arrow(char32_t which, std::uint32_t modifiers = 0) {
        return typeKey(0, which, modifiers | EventModifier::numericPad);
    }
    // What is drawn again for a move of the pointer.
    std::vector<std::string> drawnAgain() { return renderer_.update(time_.now()).rasterised; }
    // The names of all layers that can be seen.
    static void addNames(const Layer& layer, std::vector<std::string>& names) {
        if (layer.isHidden() || layer.opacity() == 0) return;
        names.push_back(layer.name());
        for (const auto& sublayer : layer.tree().sublayers())
            addNames(*sublayer, names);
    }
    std::vector<std::string> shownLayers() {
        std::vector<std::string> names;
        addNames(*ui_->sketch()->layer(), names);
        return names;
    }
};

} // namespace QVM_NAMESPACE
