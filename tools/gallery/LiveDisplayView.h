// A live display as a view: hears the feed and shows a new picture with each display frame that has one.
//
// Frames come only while the view is in a window, and cost next to nothing while it or what it stands in is hidden, or
// while the picture stays as it is. Main thread only.
#pragma once

#include "platform/layer/GLLayer.h"
#include "platform/runloop/DisplayLink.h"
#include "platform/view/View.h"
#include "tools/gallery/StereoFeed.h"
#include "viz/displays/LiveDisplay.h"

namespace QVM_NAMESPACE {

class LiveDisplayView final : public View {
public:
    // The feed outlives the view. The display is set up when the view comes into a window, and anew, empty, when its
    // size or the window's scale changes.
    LiveDisplayView(const Rect& frame, StereoFeed& feed, std::unique_ptr<LiveDisplay> display);
    ~LiveDisplayView() override;

    // Whether frames are being delivered.
    bool isRunning() const { return link_ != nullptr; }
    // Where the display is drawn; a sublayer that fills the view.
    const GLLayer& picture() const { return *picture_; }

    void viewDidMoveToWindow() override;
    void viewDidChangeBackingProperties() override { setUp(); }
    void frameDidChange() override { setUp(); }

private:
    class Picture;
    static int linkDidTick(const std::shared_ptr<DisplayLink>& link, const DisplayTimeStamp& output, void* view);

    void setUp();
    void stop();
    void hear(std::span<const float> left, std::span<const float> right);
    void showFrame(double seconds, double time);
    bool isShown() const;

    StereoFeed& feed_;
    const std::unique_ptr<LiveDisplay> display_;
    const std::shared_ptr<GLLayer> picture_;
    std::shared_ptr<DisplayLink> link_; // null while the view is in no window
    ObservationToken hearing_;          // while the link runs
    QVMAudioBuffer<float> block_{2};
    Size size_;            // points; this and the next as the display was set up
    double scale_ = 0;     // device pixels a point
    double lastFrame_ = 0; // seconds on the link's clock; 0: none yet
};

} // namespace QVM_NAMESPACE
