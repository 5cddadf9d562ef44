// An editor whose layers are followed as a screen would, without any pixels: for what is drawn, and drawn again.
#pragma once

#include "editor/EditorFixture.h"

#include "platform/renderer/LayerRenderer.h"

namespace QVM_NAMESPACE {

class NoPixels final : public RasterBackend {
public:
    std::shared_ptr<Raster> rasterise(const Layer&, const PresentedLayer&, const Rect&, double) override {
        return std::make_shared<Raster>();
    }
};

class RenderedEditorFixture : public EditorFixture {
protected:
    // Draws all of the editor, so that what follows tells what changed.
    void drawAll() {
        renderer_.setRootLayer(ui_->layer());
        renderer_.update(time_.now());
    }
    // The next display frame, with the unit's values.
    const RenderStatistics& drawFrame() {
        time_.advance(frameSeconds);
        frame();
        return renderer_.update(time_.now());
    }
    // Frames that only draw: animations end in them.
    void drawFor(double seconds) {
        for (double passed = 0; passed < seconds; passed += frameSeconds) {
            time_.advance(frameSeconds);
            renderer_.update(time_.now());
        }
    }

    NoPixels pixels_;
    LayerRenderer renderer_{pixels_};
};

} // namespace QVM_NAMESPACE
