// The one component of the toolkit that shows a window's view tree and brings it the user's input.
#pragma once

#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/DisplayLink.h"
#include "platform/view/Window.h"
#include "toolkit/EventMapping.h"
#include "toolkit/KeyboardFocus.h"
#include "toolkit/MenuShield.h"
#include "toolkit/RefreshPace.h"
#include "toolkit/ToolTipWindow.h"
#include "toolkit/ToolkitRasterBackend.h"
#include "toolkit/ToolkitRuntime.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace QVM_NAMESPACE {

// Put it into an editor or a window of the toolkit, at the size it gives itself; it changes its size when its content
// does, and the parent follows (childBoundsChanged). All on the main thread. It may be destroyed at any time, with
// menus open and calls pending.
//
// Frames: the first change after a frame asks for the next one, which comes as soon as the events at hand are dealt
// with. While something is animated one comes with each refresh of the display. Otherwise there is none. Where a frame
// takes longer than a refresh they come less often: the user's input goes first. The window counts as visible until it
// has come to a screen and is hidden, minimised or taken away there.
class WindowComponent final : public juce::Component,
                              public juce::TooltipClient,
                              private WindowHost,
                              private juce::AsyncUpdater {
public:
    using Embedding = KeyboardFocus::Embedding;

    explicit WindowComponent(Embedding embedding);
    ~WindowComponent() override;

    // Give it a content view; this takes the view's size.
    Window& window() { return window_; }
    // What the last frame did.
    const RenderStatistics& lastFrame() const { return *lastFrame_; }

    // The toolkit's callbacks.
    void paint(juce::Graphics& g) override;
    void mouseDown(const juce::MouseEvent& event) override;
    void mouseDrag(const juce::MouseEvent& event) override;
    void mouseUp(const juce::MouseEvent& event) override;
    void mouseMove(const juce::MouseEvent& event) override;
    void mouseEnter(const juce::MouseEvent& event) override;
    void mouseExit(const juce::MouseEvent& event) override;
    void mouseWheelMove(const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;
    bool keyPressed(const juce::KeyPress& key) override;
    bool keyStateChanged(bool isKeyDown) override;
    void focusGained(FocusChangeType) override { keys_.wasGained(); }
    void focusLost(FocusChangeType) override { keys_.wasLost(); }
    juce::String getTooltip() override;
    void parentHierarchyChanged() override;
    void visibilityChanged() override { lookAround(); }

private:
    void setCursor(Cursor cursor) override;
    void contentViewDidChange() override;
    void contentSizeDidChange(Size points) override;
    void takeKeyboardFocus() override { keys_.take(); }
    void popUpMenu(std::unique_ptr<Menu> menu, Point at) override;

    void send(const juce::MouseEvent& event, EventType type);
    bool isPressLost();
    void losePress();
    void handleAsyncUpdate() override;
    void refresh();
    void frame();
    // Draws and shows a frame if one is wanted, now or as soon as the last one is old enough.
    void drawSoon();
    void show();
    double secondsToRest() const;
    void didDraw(double since);
    void adoptScale(double scale);
    void adoptLinkRate();
    void lookAround();
    bool isOnScreen() const;
    void repaintDamage();
    void composeInto(juce::Graphics& g, double scale) const;
    bool isContentOpaque() const;

    juce::SharedResourcePointer<ToolkitRuntime> runtime_;
    ToolkitRasterBackend backend_{runtime_->faces()};
    LayerRenderer renderer_{backend_};
    const RenderStatistics* lastFrame_; // the renderer's
    Window window_{this};
    Point pointer_; // where it was last seen
    KeyboardFocus keys_;
    MenuShield menuShield_;
    bool isFrameWanted_ = false;
    bool isFrameShown_ = true;
    bool wasOnScreen_ = false;
    bool areToolTipsQuiet_ = false; // since a key was pressed
    RefreshPace pace_{*this};
    DisplayRate linkRequest_;
    DelayedCall frameCall_;                                              // for a frame that was wanted too soon
    double lastFrameTime_ = 0, lastLookAround_ = 0, lastDrawingEnd_ = 0; // seconds on the run loop's clock
    double drawingSeconds_ = 0;                                          // of the last frame and its painting
    DelayedCall toolkitRelease_;                                         // of a button that is up already
    std::unique_ptr<ToolTipWindow> tooltips_;                            // while the pointer is inside
    juce::VBlankAttachment refresh_;
};

} // namespace QVM_NAMESPACE
