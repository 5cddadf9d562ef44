// The gallery's window: tabs, the chosen page, and a line that tells what happened last.
//
// Tabs and theme switch are controls on parameters like all that they show. Main thread only.
#pragma once

#include "platform/layer/TextLayer.h"
#include "platform/runloop/NotificationCenter.h"
#include "tools/gallery/GalleryKeys.h"
#include "tools/gallery/PageView.h"

namespace QVM_NAMESPACE {

class GalleryView final : public View {
public:
    static constexpr Size size = {1120, 700}; // points

    // Told in a line of text what is shown where ("at Sliders/Gain/normal 24 100 216 54", window points) and what
    // happens ("Sliders/Gain/normal action 3.5").
    using Listener = std::function<void(const std::string& line)>;

    // The feed outlives the view.
    GalleryView(StereoFeed& feed, std::size_t page, Listener listener = {});
    ~GalleryView() override;

    void showPage(std::size_t index);
    std::size_t page() const { return page_; }
    PageView& pageView() { return *pageView_; }
    GalleryKeys& keys() { return keys_; }
    const std::string& status() const { return status_; }

    bool acceptsFirstResponder() const override { return true; }
    void mouseDown(const Event& event) override;
    bool keyDown(const Event& event) override;
    bool performKeyEquivalent(const Event& event) override;
    void viewDidMoveToWindow() override;

private:
    QVMFloatControl& addSwitch(const char* key, const Rect& frame);
    void exhibitReported(Exhibit& exhibit, const std::string& what);
    void tellPlaces();
    void redraw();

    StereoFeed& feed_;
    const Listener listener_;
    std::size_t page_ = 0;
    GalleryKeys keys_;
    PageView* pageView_ = nullptr;
    QVMFloatControl *tabs_, *theme_;
    std::string status_;
    std::shared_ptr<Layer> header_, headerLine_, footer_, footerLine_;
    std::shared_ptr<TextLayer> statusText_;
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
