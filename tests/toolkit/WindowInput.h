// The fixture of the tests of the user's input.
#pragma once

#include "platform/runloop/VirtualTime.h"
#include "platform/view/RecordingView.h"
#include "toolkit/FakePeer.h"
#include "toolkit/WindowComponent.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {

// Keeps the events themselves too.
class EventListener : public RecordingView {
public:
    using RecordingView::RecordingView;
    std::vector<Event> events;
    void mouseDown(const Event& e) override { keep(e), RecordingView::mouseDown(e); }
    void mouseDragged(const Event& e) override { keep(e), RecordingView::mouseDragged(e); }
    void mouseUp(const Event& e) override { keep(e), RecordingView::mouseUp(e); }
    void scrollWheel(const Event& e) override { keep(e), RecordingView::scrollWheel(e); }
    bool keyDown(const Event& e) override { return keep(e), RecordingView::keyDown(e); }

private:
    void keep(const Event& e) { events.push_back(e); }
};

class WindowInput : public ::testing::Test {
protected:
    WindowInput() {
        view = &component->window().setContentView(std::make_unique<EventListener>("v", record, Rect{0, 0, 100, 80}));
        desktop = std::make_unique<FakeDesktopWindow>(*component);
        juce::ModifierKeys::currentModifiers = {};
        move({50, 40});
        record.clear();
    }
    ~WindowInput() override {
        juce::ModifierKeys::currentModifiers = {};
        mouse({-10, -10}, 0); // the pointer outlives the window
        desktop.reset();
        component.reset();
        runPostedMessages();
    }
    FakePeer& peer() { return desktop->peer(); }
    void mouse(juce::Point<float> at, int mods) { peer().mouse(at, mods, now += 10); }
    void move(juce::Point<float> at) { mouse(at, 0); }
    void press(juce::Point<float> at, int button = juce::ModifierKeys::leftButtonModifier) { mouse(at, button); }
    void release(juce::Point<float> at) { mouse(at, 0); }
    // With no display this program never has the focus, for want of which a menu closes when messages are run for long:
    // none is before the test is through with it.
    int openMenus() const {
        int menus = 0;
        for (const juce::Component* child : component->getChildren())
            menus += child->getName().contains("menu") && child->isVisible() ? 1 : 0;
        return menus;
    }
    Record take() { return std::exchange(record, {}); }

    VirtualTime time{100};
    Record record;
    juce::int64 now = 1000;
    std::unique_ptr<WindowComponent> component = std::make_unique<WindowComponent>(WindowComponent::Embedding::inHost);
    EventListener* view = nullptr;
    std::unique_ptr<FakeDesktopWindow> desktop;
};

} // namespace QVM_NAMESPACE
