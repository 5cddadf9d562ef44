// A view that draws with the theme and draws again when its window's theme changes.
#pragma once

#include "platform/NotificationCenter.h"
#include "platform/View.h"
#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

class ThemedView : public View {
public:
    using View::View;

    // Applies the current theme's colours to the layers. Called by the notification, and by an owner after building.
    virtual void themeUpdated() = 0;

    // Observes the theme for the window that the view stands in.
    void viewDidMoveToWindow() override {
        themeObservation_.reset();
        if (!window()) return;
        themeObservation_ = NotificationCenter::defaultCenter().observe(
            QVMUITheme::updatedNotification, window(), [this](const Notification&) { themeUpdated(); });
        themeUpdated();
    }

private:
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
