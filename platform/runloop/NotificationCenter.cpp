#include "platform/runloop/NotificationCenter.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

struct NotificationCenter::State {
    struct Observation {
        std::string name;
        const void* object = nullptr;
        Handler handler;
        bool ended = false;

        bool hears(const Notification& n) const { return n.name == name && (!object || object == n.object); }
    };
    std::vector<std::shared_ptr<Observation>> observations;
};

NotificationCenter& NotificationCenter::defaultCenter() {
    // Never destroyed: tokens may end while the process does.
    static NotificationCenter& center = *new NotificationCenter;
    return center;
}

NotificationCenter::NotificationCenter() : state_(std::make_shared<State>()) {}
NotificationCenter::~NotificationCenter() = default;

ObservationToken NotificationCenter::observe(std::string name, const void* object, Handler handler) {
    auto observation = std::make_shared<State::Observation>();
    observation->name = std::move(name);
    observation->object = object;
    observation->handler = std::move(handler);
    state_->observations.push_back(observation);
    return ObservationToken([weakState = std::weak_ptr<State>(state_), observation] {
        observation->ended = true;
        if (const auto state = weakState.lock()) std::erase(state->observations, observation);
    });
}

void NotificationCenter::post(const Notification& notification) {
    // A copy of those that hear it: handlers may change the list, and must outlive their own end.
    std::vector<std::shared_ptr<State::Observation>> hearers;
    std::copy_if(state_->observations.begin(), state_->observations.end(), std::back_inserter(hearers),
                 [&](const auto& observation) { return observation->hears(notification); });
    for (const auto& observation : hearers) {
        if (!observation->ended) observation->handler(notification);
    }
}

void NotificationCenter::post(std::string name, const void* object) {
    post({std::move(name), object, {}});
}

} // namespace QVM_NAMESPACE
