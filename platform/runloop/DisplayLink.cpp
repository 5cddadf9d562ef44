#include "platform/runloop/DisplayLink.h"

#include "platform/runloop/RunLoop.h"

#include <algorithm>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

constexpr double kUsualRate = 60; // hertz

} // namespace

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
    void exchangeRate(double before, double after) {
        if (const auto found = rates_.find(before); found != rates_.end()) rates_.erase(found);
        if (after > 0) rates_.insert(after);
        thread_.setRate(rates_.empty() ? kUsualRate : *rates_.rbegin());
    }

private:
    void tick(const DisplayTimeStamp& stamp) {
        const std::lock_guard lock(mutex_);
        for (const auto& link : running_)
            if (link->callback_) link->callback_(link, stamp, link->context_);
    }

    std::mutex mutex_;
    std::vector<std::shared_ptr<DisplayLink>> running_; // guarded by mutex_
    std::multiset<double> rates_;                       // hertz, that windows ask for; main thread
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

void DisplayRate::setHertz(double hertz) {
    const double wanted = ThreadTickSource::isRate(hertz) ? hertz : 0;
    if (wanted != hertz_) DisplayLinkHub::shared().exchangeRate(std::exchange(hertz_, wanted), wanted);
}

ScopedDisplayTickSource::ScopedDisplayTickSource(DisplayTickSource& source)
    : outer_(DisplayLinkHub::shared().exchangeSource(&source)) {}

ScopedDisplayTickSource::~ScopedDisplayTickSource() {
    DisplayLinkHub::shared().exchangeSource(outer_);
}

} // namespace QVM_NAMESPACE
