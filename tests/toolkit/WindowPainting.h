// The fixture of the tests of what a window paints.
#pragma once

#include "platform/runloop/VirtualTime.h"
#include "toolkit/FakePeer.h"
#include "toolkit/Pictures.h"
#include "toolkit/WindowComponent.h"

#include <gtest/gtest.h>

#include <memory>

namespace QVM_NAMESPACE {

inline const Color red{1, 0, 0, 1}, blue{0, 0, 1, 1}, grey = Color::white(0.5f);

// A grey window of 100 x 80 with a red square of 10 at (20, 30).
class WindowPainting : public ::testing::Test {
protected:
    WindowPainting() {
        View& content = component->window().setContentView(std::make_unique<View>(Rect{0, 0, 100, 80}));
        content.layer()->look().setBackgroundColor(grey);
        square = plainLayer({20, 30, 10, 10}, red);
        content.layer()->tree().add(square);
        desktop = std::make_unique<FakeDesktopWindow>(*component);
    }
    ~WindowPainting() override {
        desktop.reset();
        component.reset();
        runPostedMessages();
    }
    // Brings the window up to date and on screen.
    void settle() {
        time.advance(1);
        runPostedMessages();
        peer().vBlank();
        peer().paintAll();
        peer().flushes = 0;
        time.advance(1);
    }
    FakePeer& peer() { return desktop->peer(); }
    Expected expected(int scale = 1) {
        return [scale](int x, int y) {
            return x >= 20 * scale && x < 30 * scale && y >= 30 * scale && y < 40 * scale ? red : grey;
        };
    }
    VirtualTime time{100};
    std::unique_ptr<WindowComponent> component = std::make_unique<WindowComponent>(WindowComponent::Embedding::inHost);
    std::shared_ptr<Layer> square;
    std::unique_ptr<FakeDesktopWindow> desktop;
};

} // namespace QVM_NAMESPACE
