// The one component of the toolkit that shows a window's view tree and brings it the user's input.
#pragma once

#include "platform/view/Window.h"
#include "toolkit/KeyboardFocus.h"
#include "toolkit/MenuPopup.h"
#include "toolkit/PointerInput.h"
#include "toolkit/RefreshPace.h"
#include "toolkit/ToolkitRuntime.h"
#include "toolkit/WindowFrames.h"
#include "toolkit/WindowPresence.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>
#include <utility>

namespace QVM_NAMESPACE {

// Put it into an editor or a window of the toolkit, at the size it gives itself; it changes its size when its content
// does, and the parent follows (childBoundsChanged, or setContentSizeHandler where the content may also be scaled). All
// on the main thread. It may be destroyed at any time, with menus open and calls pending.
class WindowComponent final : public juce::Component, public juce::TooltipClient, private WindowHost {
public:
    using Embedding = KeyboardFocus::Embedding;

    explicit WindowComponent(Embedding embedding);
    ~WindowComponent() override;

    // Give it a content view; this takes the view's size.
    Window& window() { return window_; }
    // Called when the content's size changed from inside, in its own points or in those of its frame alone.
    void setContentSizeHandler(std::function<void()> handler) { contentSizeHandler_ = std::move(handler); }
    // What the last frame did.
    const RenderStatistics& lastFrame() const { return frames_.last(); }

    // The toolkit's callbacks.
    void paint(juce::Graphics& g) override { frames_.paint(g); }
    void mouseDown(const juce::MouseEvent& event) override { pointer_.down(event); }
    void mouseDrag(const juce::MouseEvent& event) override { pointer_.drag(event); }
    void mouseUp(const juce::MouseEvent& event) override { pointer_.up(event); }
    void mouseMove(const juce::MouseEvent& event) override { pointer_.move(event); }
    void mouseEnter(const juce::MouseEvent& event) override { pointer_.enter(event); }
    void mouseExit(const juce::MouseEvent& event) override { pointer_.exit(event); }
    void mouseWheelMove(const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override {
        pointer_.wheel(event, wheel);
    }
    bool keyPressed(const juce::KeyPress& key) override;
    bool keyStateChanged(bool isKeyDown) override;
    void focusGained(FocusChangeType) override { keys_.wasGained(); }
    void focusLost(FocusChangeType) override {
        pointer_.keyboardWasLost();
        keys_.wasLost();
    }
    juce::String getTooltip() override { return pointer_.toolTip(); }
    void parentHierarchyChanged() override;
    void visibilityChanged() override { lookAround(); }

private:
    void setCursor(Cursor cursor) override;
    void contentViewDidChange() override;
    void contentSizeDidChange(Size points) override;
    void takeKeyboardFocus() override { keys_.take(); }
    void popUpMenu(std::unique_ptr<Menu> menu, Point at) override { menu_.popUp(*menu, at); }

    void refresh();
    void lookAround();

    juce::SharedResourcePointer<ToolkitRuntime> runtime_;
    Window window_{this};
    WindowPresence presence_{*this, window_, runtime_->connection()};
    RefreshPace pace_{*this};
    WindowFrames frames_{*this, window_, presence_, pace_, runtime_->faces()};
    KeyboardFocus keys_;
    MenuPopup menu_{*this, keys_, pace_, *runtime_};
    PointerInput pointer_{*this, window_, keys_, pace_, *runtime_};
    std::function<void()> contentSizeHandler_;
    juce::VBlankAttachment refresh_;
};

} // namespace QVM_NAMESPACE
