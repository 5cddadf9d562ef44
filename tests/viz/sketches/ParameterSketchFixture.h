// A main sketch in a window, with a display link that ticks when it is told to.
#pragma once

#include "SketchFixture.h"
#include "description/QVMConfig.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <gtest/gtest.h>

#include <map>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {

// Ticks when it is told to, on a thread of its own.
class HandTicks final : public DisplayTickSource {
public:
    void start(Tick tick) override { tick_ = std::move(tick); }
    void stop() override { tick_ = nullptr; }
    bool isStarted() const { return tick_ != nullptr; }
    void tick() {
        time_ += 1000;
        std::thread([this] { tick_({time_, 60000, 1000}); }).join();
    }

private:
    Tick tick_;
    std::int64_t time_ = 60000;
};

class Reader final : public QVMParameterSketchDelegate, public ValuesFromUnit {
public:
    StatesAre sketchHasUpdatedParameterStates(QVMParameterSketch&, const QVMParameterState* states) override {
        ++frames;
        tiltGain = states[1].value;
        return statesAre;
    }
    void receiveIfNew(std::uint32_t pid, float value, bool wasStored) override {
        received[pid] = value;
        if (wasStored) stored.push_back(pid);
    }
    void frameWasReceived() override { ++receivedFrames; }

    int frames = 0;
    float tiltGain = 0;
    StatesAre statesAre = StatesAre::drawnOnly;
    std::map<std::uint32_t, float> received; // by pid
    std::vector<std::uint32_t> stored;       // pids, as they were told
    int receivedFrames = 0;
};

class ParameterSketchFixture : public testing::Test {
protected:
    ParameterSketchFixture() : view(add(makeMain())) {}

    std::unique_ptr<QVMParameterSketch> makeMain() {
        return std::make_unique<QVMParameterSketch>(Rect{4, 196, 54, 62}, *config, 48000.0f, 512u, 2.0f, 2u, 2u);
    }
    QVMParameterSketch& add(std::unique_ptr<QVMParameterSketch> sketch) {
        window.setBackingScaleFactor(2);
        return window.setContentView(std::make_unique<View>(Rect{0, 0, 480, 320})).addSubview(std::move(sketch));
    }
    QVMAuxiliarySketch& addMeter() {
        auto meter = std::make_unique<QVMAuxiliarySketch>(Rect{321, 0, 97, 217}, 48000.0f, 512u, PB_Sketches[1], 24u,
                                                          view.getVizRef(), 2.0f, 2u, 2u);
        QVMAuxiliarySketch& added = window.contentView()->addSubview(std::move(meter));
        view.addAuxiliarySketch(added);
        return added;
    }
    QVM0015GLSketch& object() { return static_cast<QVM0015GLSketch&>(*view.getVizRef()); }
    void frame() {
        ticks.tick();
        time.settle();
    }

    HandTicks ticks;
    ScopedDisplayTickSource source{ticks};
    VirtualTime time;
    std::unique_ptr<QVMConfig> config = QVMConfig::inlinedConfig();
    Window window;
    QVMParameterSketch& view;
};

} // namespace QVM_NAMESPACE
