// A view that draws with the theme and draws again when it changes.
#pragma once

#include "platform/runloop/NotificationCenter.h"
#include "platform/view/View.h"
#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

class ThemedView : public View {
public:
    using View::View;

    // Applies the current theme's colours to the layers. Called by the notification, and by an owner after building.
    virtual void themeUpdated() = 0;

    // Observes the theme while the view stands in a window. The theme is one for the process, so a change that was made
    // in another window counts as well.
    void viewDidMoveToWindow() override {
        themeObservation_.reset();
        if (!window()) return;
        themeObservation_ = NotificationCenter::defaultCenter().observe(
            QVMUITheme::updatedNotification, nullptr, [this](const Notification&) { themeUpdated(); });
        themeUpdated();
    }

private:
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
