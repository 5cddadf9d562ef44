// The one component of the toolkit that shows a window's view tree and brings it the user's input.
#pragma once

#include "platform/DelayedCall.h"
#include "platform/LayerRenderer.h"
#include "platform/Window.h"
#include "platform/juce/EventMapping.h"
#include "platform/juce/HostFocus.h"
#include "platform/juce/NativePeer.h"
#include "platform/juce/ToolkitRasterBackend.h"
#include "platform/juce/ToolkitRuntime.h"
#include "platform/juce/WindowMapState.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>
#include <optional>
#include <set>

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
    // Whose window it lives in: a host's, which wants its keyboard back, or one of the program's own.
    enum class Embedding : unsigned char { inHost, ownWindow };
    // A program of the toolkit has windows of its own; all else is a plug-in.
    static Embedding usualEmbedding() {
        return juce::JUCEApplicationBase::isStandaloneApp() ? Embedding::ownWindow : Embedding::inHost;
    }

    explicit WindowComponent(Embedding embedding = usualEmbedding());
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
    void focusGained(FocusChangeType cause) override;
    void focusLost(FocusChangeType cause) override;
    juce::String getTooltip() override;
    void parentHierarchyChanged() override;
    void visibilityChanged() override { lookAround(); }

private:
    void setCursor(Cursor cursor) override;
    void contentViewDidChange() override;
    void contentSizeDidChange(Size points) override;
    void takeKeyboardFocus() override;
    void releaseKeyboardFocus() override;
    void popUpMenu(std::unique_ptr<Menu> menu, Point at) override;

    void send(const juce::MouseEvent& event, EventType type);
    void updateKeys();
    // After an event that may have changed who wants keys: takes the keyboard, or gives it back.
    void settleKeys();
    void grabKeys();
    void passKeyOn(const juce::NativeKey& key);
    void reportNamelessKey();
    void handleAsyncUpdate() override;
    void refresh();
    void frame();
    bool mayDraw() const;
    void didDraw(double since);
    void adoptScale(double scale);
    enum class Refresh : unsigned char { atDisplayRate, idle };
    void setRefresh(Refresh rate);
    void keepAwake();
    void lookAround();
    bool isIdle() const;
    void repaintDamage();
    void composeInto(juce::Graphics& g, double scale) const;
    bool isContentOpaque() const;
    std::uint64_t nativeWindow() const;
    void giveFocusBack();

    juce::SharedResourcePointer<ToolkitRuntime> runtime_;
    const Embedding embedding_;
    ToolkitRasterBackend backend_{runtime_->faces()};
    LayerRenderer renderer_{backend_};
    const RenderStatistics* lastFrame_; // the renderer's
    Window window_{this};
    Point pointer_; // where it was last seen
    HostFocus hostFocus_;
    WindowMapState mapState_;
    DelayedCall resignation_;          // the loss of focus, unless it comes back at once
    std::optional<juce::NativeKey> unreported_; // a press that the toolkit has not told the name of
    std::set<unsigned char> passedOn_;          // codes of held keys whose presses went to the host
    bool isFrameWanted_ = false, wantsKeys_ = false, isPressed_ = false, hasMenu_ = false;
    bool wasOnScreen_ = false;
    bool areToolTipsQuiet_ = false; // since a key was pressed
    Refresh refreshRate_ = Refresh::atDisplayRate;
    double lastFrameTime_ = 0, lastActivity_ = 0, lastRefresh_ = 0; // seconds on the run loop's clock
    double lastLookAround_ = 0;                                     // likewise
    double lastDrawingEnd_ = 0;                                     // likewise
    double drawingSeconds_ = 0;                                     // of the last frame and its painting
    std::unique_ptr<juce::TooltipWindow> tooltips_;                 // while the pointer is inside
    juce::VBlankAttachment refresh_;
};

} // namespace QVM_NAMESPACE
