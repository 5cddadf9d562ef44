// Post and observe by name and object: for what many may want to hear of and the sender need not know. Main thread
// only.
//
// Delivery is a call: `post` returns when all have heard it. A handler may end any observation, its own too, and what
// it ends is not called any more; what it begins hears from the next post on.
#pragma once

#include "BuildNamespace.h"

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace QVM_NAMESPACE {

struct Notification {
    std::string name;
    const void* object = nullptr; // the sender, compared by address only
    std::map<std::string, double> userInfo;
};

// Ends the observation when it is destroyed; safe to outlive the centre. Movable.
class ObservationToken {
public:
    ObservationToken() = default;
    explicit ObservationToken(std::function<void()> end) : end_(std::make_unique<Ender>(std::move(end))) {}
    // Ends it now; a token that ended or observes nothing does nothing.
    void reset() { end_.reset(); }

private:
    struct Ender {
        explicit Ender(std::function<void()> f) : fn(std::move(f)) {}
        ~Ender() { fn(); }
        Ender(const Ender&) = delete;
        Ender& operator=(const Ender&) = delete;
        std::function<void()> fn;
    };
    std::unique_ptr<Ender> end_;
};

class NotificationCenter {
public:
    using Handler = std::function<void(const Notification&)>;

    // The process's centre.
    static NotificationCenter& defaultCenter();

    NotificationCenter();
    ~NotificationCenter();

    // Until the token goes, calls `handler` for each notification of that name whose object is `object`; a null object
    // hears all of them.
    [[nodiscard]] ObservationToken observe(std::string name, const void* object, Handler handler);
    // Calls the handlers in order of observation.
    void post(const Notification& notification);
    void post(std::string name, const void* object);

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace QVM_NAMESPACE
