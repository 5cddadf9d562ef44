#include "editor/surface/InterfacePreferences.h"

#include "description/NumberText.h"

#include <utility>

namespace QVM_NAMESPACE {

void InterfacePreferences::observe(Changed changed, Saved saved) {
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
