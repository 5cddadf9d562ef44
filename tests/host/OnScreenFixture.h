// The view on the real unit and on screen.
#pragma once

#include "host/HostViewFixture.h"

#include "controls/QVMVerticalSlider.h"
#include "unit/PrivateProperties.h"
#include "unit/QVM0015_AudioUnit.h"
#include "viz/sketches/QVM0015GLSketch.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace QVM_NAMESPACE {

// An editor in a window of its own.
class OpenEditor {
public:
    explicit OpenEditor(AudioUnit unit)
        : view_(window_.setContentView(QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(unit, {}))) {}
    QVM0015_CocoaView2& view() { return view_; }
    QVMGenericUI& ui() { return view_.ui(); }
    QVM0015GLSketch& object() { return static_cast<QVM0015GLSketch&>(*ui().sketch()->getVizRef()); }
    QVMVerticalSlider& slider(std::uint32_t pid) {
        return dynamic_cast<QVMVerticalSlider&>(*ui().parameterControlWithPid(pid)->primaryControl());
    }

private:
    Window window_;
    QVM0015_CocoaView2& view_;
};

class OnScreenFixture : public HostView {
protected:
    OnScreenFixture() { settle(); }
    // Until the pictures are there and at rest.
    void settle() {
        time.advance(1);
        for (int i = 0; i < 12; ++i)
            frame();
    }
    void showFrames(int count) {
        for (int i = 0; i < count; ++i) {
            time.advance(1.0 / 60);
            frame();
        }
    }
    // Display frames with a block before each.
    void playFrames(int count, float leftSample, float rightSample) {
        for (int i = 0; i < count; ++i) {
            std::vector<float> first(512, leftSample), second(512, rightSample);
            float* channels[] = {first.data(), second.data()};
            real.process(channels, channels, 512);
            showFrames(1);
        }
    }
    const QVMLevelMeter::Channel& left() { return editor->object().levelMeter()->channel(0); }
    SharedState* unitsVizRef() {
        SharedState* vizRef = nullptr;
        std::uint32_t size = sizeof(void*);
        EXPECT_EQ(AudioUnitGetProperty(&real, kQVMProperty_VizRef, 0, 0, &vizRef, &size), noErr);
        return vizRef;
    }
    void automate(std::uint32_t pid, float hostValue) {
        EXPECT_EQ(AudioUnitSetParameter(&real, pid, 0, 0, hostValue, 0), noErr);
    }
    QVMGenericUI& ui() { return editor->ui(); }

    QVM0015_AudioUnit real;
    std::unique_ptr<OpenEditor> editor = std::make_unique<OpenEditor>(&real);
};

} // namespace QVM_NAMESPACE
