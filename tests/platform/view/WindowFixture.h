// A window with recording views, for the tests of Window.
#pragma once

#include "platform/view/RecordingView.h"
#include "platform/view/Window.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace QVM_NAMESPACE {

// A 100 x 100 window with "a" at its left and "b" at its right, each 50 x 100, and "inner" in the top of "a".
class WindowFixture : public ::testing::Test {
protected:
    WindowFixture() {
        root = &window->setContentView(std::make_unique<RecordingView>("root", record, Rect{0, 0, 100, 100}));
        a = &root->addSubview(std::make_unique<RecordingView>("a", record, Rect{0, 0, 50, 100}));
        b = &root->addSubview(std::make_unique<RecordingView>("b", record, Rect{50, 0, 50, 100}));
        inner = &a->addSubview(std::make_unique<RecordingView>("inner", record, Rect{0, 0, 50, 20}));
        window->sendEvent(mouse(EventType::mouseExited, {}));
        record.clear();
    }
    bool send(EventType type, Point at, std::uint32_t modifiers = 0) {
        return window->sendEvent(mouse(type, at, modifiers));
    }
    Record take() { return std::exchange(record, {}); }

    Record record;
    RecordingHost host;
    std::unique_ptr<Window> window = std::make_unique<Window>(&host);
    RecordingView *root = nullptr, *a = nullptr, *b = nullptr, *inner = nullptr;
};

} // namespace QVM_NAMESPACE
