#include "editor/surface/InterfacePreferences.h"

#include "description/NumberText.h"

#include <utility>

namespace QVM_NAMESPACE {

std::optional<double> InterfacePreferences::value(const std::string& key) const {
    const auto found = defined_.find(key);
    return found == defined_.end() ? std::nullopt : std::optional(found->second.value());
}

void InterfacePreferences::adopt(const std::string& key, double value) const {
    if (const auto found = defined_.find(key); found != defined_.end()) found->second.adopt(value);
}

void InterfacePreferences::report(const std::string& key) const {
    if (const std::optional<double> now = value(key); now && changed_) changed_(key, *now);
}

void InterfacePreferences::stop() {
    observations_.clear();
    changed_ = nullptr;
}

void InterfacePreferences::observe(Changed changed, Saved saved) {
    changed_ = changed;
    NotificationCenter& center = NotificationCenter::defaultCenter();
    observations_.push_back(
        center.observe(changedNotification, nullptr, [changed = std::move(changed)](const Notification& notification) {
            const auto major = notification.userInfo.find("major"), minor = notification.userInfo.find("minor");
            const auto end = notification.userInfo.end();
            if (major != end && minor != end) changed(ShortestText(major->second), minor->second);
        }));
    observations_.push_back(
        center.observe(savedNotification, nullptr, [saved = std::move(saved)](const Notification&) { saved(); }));
}

void InterfacePreferences::post(const void* sender, std::int32_t key, double value) {
    NotificationCenter::defaultCenter().post(
        {changedNotification, sender, {{"major", static_cast<double>(key)}, {"minor", value}}});
}

} // namespace QVM_NAMESPACE
