// The editor of a VST3 instance by the format's own interface, in a window of the host's making, with the run loop that
// the format has on this platform. Needs a display; everything happens on the thread of the caller.
#pragma once

#include "plugin/host/Vst3Instance.h"

#include <pluginterfaces/gui/iplugview.h>
#include <pluginterfaces/gui/iplugviewcontentscalesupport.h>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace slantwise_tests {

class Vst3View {
public:
    using Size = std::pair<int, int>; // pixels
    // What the host does when the plug-in asks for another size.
    enum class Resizing { allowed, refused, ignored };

    explicit Vst3View(Vst3Instance& instance, Resizing resizing = Resizing::allowed);
    ~Vst3View();
    Vst3View(const Vst3View&) = delete;
    Vst3View& operator=(const Vst3View&) = delete;

    Steinberg::IPlugView& view() const;
    Steinberg::tresult setScale(float factor);
    Size size() const; // as the view says

    // Opens the host's window, as large as the view says or as given, and puts the view into it.
    void attach(std::optional<Size> frame = std::nullopt);
    void remove();
    // The host's window goes with the view in it, and the view has not been told.
    void destroyWindow();
    // The host gives its window and the view this size.
    void resize(Size frame);
    // The sizes that the plug-in has asked for since the last call.
    std::vector<Size> takeAsked();
    // Where the window's corner is on the screen.
    Size corner() const;
    unsigned long window() const;

    // Whether the host's run loop still has something of the plug-in's to call.
    bool isCalledByHost() const;

    void run(double seconds);
    // False when it does not come true within some seconds.
    bool runUntil(const std::function<bool()>& condition);

private:
    class Host;
    std::unique_ptr<Host> host_;
    Steinberg::IPtr<Steinberg::IPlugView> view_;
};

} // namespace slantwise_tests
