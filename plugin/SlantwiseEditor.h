// The editor as the toolkit's wrappers see it: a component that holds one window with the view of host/.
//
// It is as large as the frame that the host gives it, and asks for the one that the view wants, at the desktop's scale
// where the host says none. Where the host gives another one by itself the view takes the scale that fits it. In one
// that the view does not fit it is placed whole (FramePlace), with the theme's ground beside it.
#pragma once

#include "editor/surface/EditorScale.h"
#include "plugin/FrameLimits.h"
#include "plugin/HostFrame.h"
#include "plugin/SlantwiseProcessor.h"
#include "presets/PresetFolder.h"
#include "toolkit/DesktopScale.h"
#include "toolkit/WindowComponent.h"

namespace QVM_NAMESPACE {

class QVM0015_CocoaView2;

// All on the main thread, which is the one that makes the editor.
class SlantwiseEditor final : public juce::AudioProcessorEditor {
public:
    // The processor outlives the editor.
    explicit SlantwiseEditor(SlantwiseProcessor& processor,
                             WindowComponent::Embedding embedding = WindowComponent::Embedding::inHost);
    ~SlantwiseEditor() override;

    Window& window() { return component_.window(); }
    QVM0015_CocoaView2& view() { return *view_; }
    // What the last frame drew again.
    const RenderStatistics& lastFrame() const { return component_.lastFrame(); }

    // The wrappers' call. They begin with a 1 for a host that has said nothing so far, and repeat no value.
    void setScaleFactor(float factor) override;
    // Shows the view at the scale of the desktop, unless the host says another.
    void followScale();

private:
    // Takes over a state that the host has restored meanwhile and a program that it has chosen, if any, and what the
    // desktop has said of its scale. With every refresh of the window, which comes anyway, and so never before there is
    // one: until then another thread may be serving the timers.
    void followHost();
    // Asks for the frame that the view wants, and places the view in the present one.
    void askForFrame();
    void layOut();
    // Gives the view the scale that fits the present frame.
    void fitFrame(EditorScale::Kept kept);
    Size frameSize() const { return {double(getWidth()), double(getHeight())}; }
    // The view's, at its plain scale.
    Size contentSize() const;
    // What is to fill a frame: the view, or what it is with the drawer over the controls where that comes out much
    // larger.
    Size shapeFor(Size frame) const;
    void resized() override;
    void paint(juce::Graphics& g) override;

    SlantwiseProcessor& processor_;
    juce::SharedResourcePointer<ToolkitRuntime> runtime_;
    DesktopScale desktopScale_{runtime_->connection()};
    HostFrame frame_{*this, runtime_->connection()};
    double scale_ = 1; // that the component is to have in the editor; the host's own is the editor's
    bool hasFactor_ = false, isPlacing_ = false, isFitting_ = false;
    FrameLimits limits_;
    double opened_ = 0;    // seconds on the run loop's clock
    PresetFolder presets_; // the user's; outlives the view
    WindowComponent component_;
    QVM0015_CocoaView2* view_ = nullptr; // owned by the window
    ObservationToken presses_;           // that hold gestures
    ObservationToken theme_;
    std::uint32_t restores_; // of the unit, as far as the editor has followed them
    juce::VBlankAttachment refresh_{this, [this] { followHost(); }};
};

} // namespace QVM_NAMESPACE
