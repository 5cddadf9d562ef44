#include "theme/ScopedTheme.h"

#include "platform/runloop/NotificationCenter.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

void tellViews() {
    NotificationCenter::defaultCenter().post(QVMUITheme::updatedNotification, nullptr);
}

} // namespace

ScopedTheme::ScopedTheme(QVMUITheme theme)
    : theme_(std::move(theme)), outer_(std::exchange(QVMUITheme::current(), &theme_)) {
    tellViews();
}

ScopedTheme::~ScopedTheme() {
    QVMUITheme::current() = outer_;
    tellViews();
}

} // namespace QVM_NAMESPACE
