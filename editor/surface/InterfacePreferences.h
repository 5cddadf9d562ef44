// Preferences of the interface: those that are remembered for the product, by name, and how they travel inside the
// process, by notifications, whoever keeps them. Main thread only.
#pragma once

#include "platform/runloop/NotificationCenter.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

class InterfacePreferences {
public:
    // Names of the notifications; the first carries the numbers "major", the key, and "minor", the value.
    static constexpr const char* changedNotification = "kQVMInterfacePreferenceNotification";
    static constexpr const char* savedNotification = "kQVMInterfacePreferencesSavedNotification";

    using Changed = std::function<void(const std::string& key, double value)>;
    using Saved = std::function<void()>;

    // One that is remembered: how it is read, and how one that was remembered takes effect, of which nothing is
    // reported and nothing drawn need be there yet.
    struct Preference {
        std::function<double()> value;
        std::function<void(double)> adopt;
    };
    void define(const std::string& key, Preference preference) { defined_[key] = std::move(preference); }
    // As it is now; nothing for a name that was not defined. What is adopted under such a name has no effect.
    std::optional<double> value(const std::string& key) const;
    void adopt(const std::string& key, double value) const;
    // The user has changed it: tells whoever `observe` named.
    void report(const std::string& key) const;

    // Calls one of both for every notification, from whichever editor, until stop().
    void observe(Changed changed, Saved saved);
    void stop();
    // Tells all editors.
    static void post(const void* sender, std::int32_t key, double value);

private:
    std::map<std::string, Preference> defined_;
    Changed changed_;
    std::vector<ObservationToken> observations_;
};

} // namespace QVM_NAMESPACE
