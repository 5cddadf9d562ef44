#include "plugin/host/Vst3View.h"

#include <X11/Xlib.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>

namespace slantwise_tests {

using namespace Steinberg;

namespace {

using Clock = std::chrono::steady_clock;
constexpr double fewestStepsASecond = 60; // that a host takes on any machine, or a second is longer
constexpr int place = 100;                // of the window on the screen
constexpr double patienceSeconds = 15;

} // namespace

class Vst3View::Host final : public IPlugFrame, public Linux::IRunLoop {
public:
    explicit Host(Resizing resizing) : resizing_(resizing), display_(XOpenDisplay(nullptr)) {
        if (!display_) throw std::runtime_error("no display");
    }
    ~Host() { XCloseDisplay(display_); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void open(Size size) {
        XSetWindowAttributes attributes = {};
        attributes.override_redirect = True; // the window manager keeps off
        window_ = XCreateWindow(display_, DefaultRootWindow(display_), place, place, static_cast<unsigned>(size.first),
                                static_cast<unsigned>(size.second), 0, CopyFromParent, InputOutput, CopyFromParent,
                                CWOverrideRedirect, &attributes);
        XMapRaised(display_, window_);
        XSync(display_, False);
    }
    void close() {
        if (window_ != 0) XDestroyWindow(display_, std::exchange(window_, 0));
        XSync(display_, False);
    }
    void setSize(Size size) {
        XResizeWindow(display_, window_, static_cast<unsigned>(size.first), static_cast<unsigned>(size.second));
        XSync(display_, False);
    }
    unsigned long window() const { return window_; }
    bool hasHandlers() const { return !files_.empty() || !timers_.empty(); }

    void step() {
        std::vector<pollfd> descriptors;
        descriptors.reserve(files_.size());
        for (const File& file : files_)
            descriptors.push_back({file.descriptor, POLLIN, 0});
        poll(descriptors.data(), descriptors.size(), 1);
        for (const pollfd& descriptor : descriptors) {
            if ((descriptor.revents & POLLIN) == 0) continue;
            const auto file = std::find_if(files_.begin(), files_.end(),
                                           [&](const File& f) { return f.descriptor == descriptor.fd; });
            if (file != files_.end()) file->handler->onFDIsSet(descriptor.fd);
        }
        for (std::size_t i = 0; i < timers_.size(); ++i) {
            if (Clock::now() < timers_[i].due) continue;
            timers_[i].due = Clock::now() + timers_[i].interval;
            timers_[i].handler->onTimer();
        }
    }

    tresult PLUGIN_API resizeView(IPlugView* view, ViewRect* size) override {
        asked.push_back({size->getWidth(), size->getHeight()});
        if (resizing_ == Resizing::refused) return kResultFalse;
        if (resizing_ == Resizing::ignored) return kResultTrue;
        setSize(asked.back());
        return view->onSize(size);
    }
    std::vector<Size> asked;

    tresult PLUGIN_API registerEventHandler(Linux::IEventHandler* handler, Linux::FileDescriptor file) override {
        files_.push_back({handler, file});
        return kResultTrue;
    }
    tresult PLUGIN_API unregisterEventHandler(Linux::IEventHandler* handler) override {
        std::erase_if(files_, [handler](const File& file) { return file.handler == handler; });
        return kResultTrue;
    }
    tresult PLUGIN_API registerTimer(Linux::ITimerHandler* handler, Linux::TimerInterval milliseconds) override {
        const std::chrono::milliseconds interval(milliseconds);
        timers_.push_back({handler, interval, Clock::now() + interval});
        return kResultTrue;
    }
    tresult PLUGIN_API unregisterTimer(Linux::ITimerHandler* handler) override {
        std::erase_if(timers_, [handler](const Timer& timer) { return timer.handler == handler; });
        return kResultTrue;
    }

    tresult PLUGIN_API queryInterface(const TUID id, void** object) override {
        QUERY_INTERFACE(id, object, FUnknown::iid, IPlugFrame)
        QUERY_INTERFACE(id, object, IPlugFrame::iid, IPlugFrame)
        QUERY_INTERFACE(id, object, Linux::IRunLoop::iid, Linux::IRunLoop)
        *object = nullptr;
        return kNoInterface;
    }
    // It lives as long as the view.
    uint32 PLUGIN_API addRef() override { return 1; }
    uint32 PLUGIN_API release() override { return 1; }

private:
    struct File {
        Linux::IEventHandler* handler;
        int descriptor;
    };
    struct Timer {
        Linux::ITimerHandler* handler;
        std::chrono::milliseconds interval;
        Clock::time_point due;
    };
    const Resizing resizing_;
    Display* const display_;
    Window window_ = 0;
    std::vector<File> files_;
    std::vector<Timer> timers_;
};

Vst3View::Vst3View(Vst3Instance& instance, Resizing resizing)
    : host_(std::make_unique<Host>(resizing)), view_(owned(instance.controller().createView(Vst::ViewType::kEditor))) {
    if (!view_) throw std::runtime_error("no editor");
    view_->setFrame(host_.get());
}

Vst3View::~Vst3View() {
    if (host_->window() != 0) remove();
    view_->setFrame(nullptr);
    view_ = nullptr;
}

IPlugView& Vst3View::view() const {
    return *view_;
}

tresult Vst3View::setScale(float factor) {
    const FUnknownPtr<IPlugViewContentScaleSupport> scaled(view_);
    return scaled ? scaled->setContentScaleFactor(factor) : kNoInterface;
}

Vst3View::Size Vst3View::size() const {
    ViewRect rect;
    if (view_->getSize(&rect) != kResultTrue) throw std::runtime_error("no size");
    return {rect.getWidth(), rect.getHeight()};
}

void Vst3View::attach(std::optional<Size> frame) {
    host_->open(frame.value_or(size()));
    const auto window = reinterpret_cast<void*>(host_->window()); // NOLINT(performance-no-int-to-ptr): the format's way
    if (view_->attached(window, kPlatformTypeX11EmbedWindowID) != kResultTrue) throw std::runtime_error("not attached");
}

void Vst3View::remove() {
    view_->removed();
    host_->close();
}

void Vst3View::resize(Size frame) {
    host_->setSize(frame);
    ViewRect rect(0, 0, frame.first, frame.second);
    view_->onSize(&rect);
}

void Vst3View::destroyWindow() {
    host_->close();
}

std::vector<Vst3View::Size> Vst3View::takeAsked() {
    return std::exchange(host_->asked, {});
}

Vst3View::Size Vst3View::corner() const {
    return {place, place};
}

unsigned long Vst3View::window() const {
    return host_->window();
}

bool Vst3View::isCalledByHost() const {
    return host_->hasHandlers();
}

void Vst3View::run(double seconds) {
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    for (double steps = 0; Clock::now() < end || steps < seconds * fewestStepsASecond; ++steps)
        host_->step();
}

bool Vst3View::runUntil(const std::function<bool()>& condition) {
    const auto end = Clock::now() + std::chrono::duration<double>(patienceSeconds);
    while (!condition()) {
        if (Clock::now() > end) return false;
        host_->step();
    }
    return true;
}

} // namespace slantwise_tests
