// Preferences of the interface as they travel inside the process: by notifications, whoever keeps them. Main thread
// only.
#pragma once

#include "platform/runloop/NotificationCenter.h"

#include <functional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class InterfacePreferences {
public:
    // Names of the notifications; the first carries the numbers "major", the key, and "minor", the value.
    static constexpr const char* changedNotification = "kQVMInterfacePreferenceNotification";
    static constexpr const char* savedNotification = "kQVMInterfacePreferencesSavedNotification";

    using Changed = std::function<void(const std::string& key, double value)>;
    using Saved = std::function<void()>;

    // Calls one of both for every notification, from whichever editor, until stop().
    void observe(Changed changed, Saved saved);
    void stop() { observations_.clear(); }
    // Tells all editors.
    static void post(const void* sender, std::int32_t key, double value);

private:
    std::vector<ObservationToken> observations_;
};

} // namespace QVM_NAMESPACE
