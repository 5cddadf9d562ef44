// An open editor of a processor, driven with events of the pointer in virtual time and with display frames by hand,
// and what the host is told of it.
#pragma once

#include "controls/QVMVerticalSlider.h"
#include "editor/surface/QVMGenericUI.h"
#include "host/QVM0015_CocoaView2.h"
#include "platform/runloop/ManualTickSource.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"
#include "plugin/HostRecorder.h"
#include "plugin/SlantwiseEditor.h"

#include <gtest/gtest.h>

#include <memory>

namespace QVM_NAMESPACE {

class SlantwiseEditorFixture : public testing::Test {
protected:
    void SetUp() override { open(); }

    void open() {
        editor_ = std::make_unique<SlantwiseEditor>(processor_);
        settle();
        host_.lines.clear();
    }
    // Until the pictures have come and the editor has taken on the unit's values.
    void settle() {
        time_.advance(1);
        for (int i = 0; i < 3; ++i)
            frame();
    }
    // One display frame.
    void frame() {
        time_.advance(1.0 / 60);
        ticks_.tick(time_.now());
        time_.settle();
    }

    QVMVerticalSlider& slider(std::uint32_t pid) {
        return dynamic_cast<QVMVerticalSlider&>(*editor_->view().ui().parameterControlWithPid(pid)->primaryControl());
    }
    // The middle of a slider's handle in the window.
    Point handle(std::uint32_t pid) {
        return slider(pid).coordinates().toWindow(slider(pid).readoutBulb()->position());
    }
    void send(EventType type, Point at, std::uint32_t modifiers = 0) {
        Event event;
        event.type = type;
        event.locationInWindow = at;
        event.modifierFlags = modifiers;
        event.clickCount = 1;
        event.timestamp = RunLoop::main().now();
        editor_->window().sendEvent(event);
    }
    void drag(Point from, double dx, double dy) {
        send(EventType::mouseDown, from);
        for (const double part : {0.25, 0.5, 0.75, 1.0})
            send(EventType::mouseDragged, {from.x + part * dx, from.y + part * dy});
        send(EventType::mouseUp, {from.x + dx, from.y + dy});
    }

    ManualTickSource ticks_;
    VirtualTime time_;
    SlantwiseProcessor processor_;
    slantwise_tests::HostRecorder host_{processor_};
    std::unique_ptr<SlantwiseEditor> editor_;
};

} // namespace QVM_NAMESPACE
