// When a window's layers are drawn and shown, and how they get into the toolkit's picture.
//
// The first change after a frame asks for the next one, which comes as soon as the events at hand are dealt with. While
// something is animated one comes with each refresh of the display. Otherwise there is none. Where a frame takes longer
// than a refresh they come less often: the user's input goes first.
#pragma once

#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/DelayedCall.h"
#include "toolkit/RefreshPace.h"
#include "toolkit/ToolkitRasterBackend.h"
#include "toolkit/WindowPresence.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace QVM_NAMESPACE {

// Main thread.
class WindowFrames final : private juce::AsyncUpdater {
public:
    // All are borrowed and outlive it: the component that shows the window, whether that is on a screen, the refreshes
    // of its native window, and the fonts.
    WindowFrames(juce::Component& component, Window& window, const WindowPresence& presence, RefreshPace& pace,
                 FaceLibrary& faces);

    // The window's content; null for none.
    void setRootLayer(std::shared_ptr<Layer> root) { renderer_.setRootLayer(std::move(root)); }
    // What the last frame did.
    const RenderStatistics& last() const { return *last_; }
    bool isAnimating() const { return renderer_.isAnimating(); }

    // From every refresh of the native window.
    void didRefresh();
    // From the component's paint: what the clip shows of the layers, black where they show nothing.
    void paint(juce::Graphics& g);

private:
    void handleAsyncUpdate() override { drawSoon(); }
    // Draws and shows a frame if one is wanted, now or as soon as the last one is old enough.
    void drawSoon();
    void draw();
    void show();
    double secondsToRest() const;
    void didDraw(double since);
    void adoptScale(double scale);
    void repaintDamage();
    void composeInto(juce::Graphics& g, double scale) const;
    bool isContentOpaque() const;

    juce::Component& component_;
    Window& window_;
    const WindowPresence& presence_;
    RefreshPace& pace_;
    ToolkitRasterBackend backend_;
    LayerRenderer renderer_{backend_};
    const RenderStatistics* last_; // the renderer's
    bool isWanted_ = false;
    bool isShown_ = true;
    DelayedCall wait_;                              // for a frame that was wanted too soon
    double lastFrameTime_ = 0, lastDrawingEnd_ = 0; // seconds on the run loop's clock
    double drawingSeconds_ = 0;                     // of the last frame and its painting
};

} // namespace QVM_NAMESPACE
