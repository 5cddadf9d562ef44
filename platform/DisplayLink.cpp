#include "platform/DisplayLink.h"

#include "platform/RunLoop.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

// The running links of the process and what makes them tick.
class DisplayLinkHub {
public:
    static DisplayLinkHub& shared() {
        // Never destroyed: a link may be stopped while the process ends.
        static DisplayLinkHub& hub = *new DisplayLinkHub;
        return hub;
    }

    void add(std::shared_ptr<DisplayLink> link) {
        bool isFirst = false;
        {
            const std::lock_guard lock(mutex_);
            isFirst = running_.empty();
            running_.push_back(std::move(link));
        }
        if (isFirst) source_->start([this](const DisplayTimeStamp& stamp) { tick(stamp); });
    }
    void remove(const DisplayLink* link) {
        bool wasLast = false;
        {
            const std::lock_guard lock(mutex_); // waits for a callback that is under way
            std::erase_if(running_, [link](const auto& other) { return other.get() == link; });
            wasLast = running_.empty();
        }
        if (wasLast) source_->stop();
    }
    DisplayTickSource* exchangeSource(DisplayTickSource* source) { return std::exchange(source_, source); }
    ThreadTickSource& thread() { return thread_; }

private:
    void tick(const DisplayTimeStamp& stamp) {
        const std::lock_guard lock(mutex_);
        for (const auto& link : running_)
            if (link->callback_) link->callback_(link, stamp, link->context_);
    }

    std::mutex mutex_;
    std::vector<std::shared_ptr<DisplayLink>> running_; // guarded by mutex_
    ThreadTickSource thread_;
    DisplayTickSource* source_ = &thread_; // main thread
};

std::shared_ptr<DisplayLink> DisplayLink::create() {
    return std::shared_ptr<DisplayLink>(new DisplayLink);
}

void DisplayLink::setOutputCallback(OutputCallback callback, void* context) {
    callback_ = callback;
    context_ = context;
}

void DisplayLink::start() {
    if (isRunning_.exchange(true)) return;
    ++run_;
    DisplayLinkHub::shared().add(shared_from_this());
}

void DisplayLink::stop() {
    if (!isRunning_.exchange(false)) return;
    const auto alive = shared_from_this(); // the hub's may be the last
    DisplayLinkHub::shared().remove(this);
}

void DisplayLink::postFrame(std::function<void()> frame) {
    if (isFramePosted_.exchange(true)) return;
    RunLoop::main().post([link = shared_from_this(), run = run_.load(), frame = std::move(frame)] {
        if (link->isRunning_ && link->run_ == run) frame();
        link->isFramePosted_ = false;
    });
}

void DisplayLink::setRefreshRate(double hertz) {
    DisplayLinkHub::shared().thread().setRate(hertz);
}

ScopedDisplayTickSource::ScopedDisplayTickSource(DisplayTickSource& source)
    : outer_(DisplayLinkHub::shared().exchangeSource(&source)) {}

ScopedDisplayTickSource::~ScopedDisplayTickSource() {
    DisplayLinkHub::shared().exchangeSource(outer_);
}

} // namespace QVM_NAMESPACE
